#include "host/External.h"

#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "host/Messages.h"

#include <string>

namespace Host {

namespace {

CFPlugInRef createPlugIn(const std::filesystem::path& folder)
{
    const CFOwner<CFURLRef> url(createURL(folder));
    return CFPlugInCreate(kCFAllocatorDefault, url.get());
}

}  // namespace

External::External(const std::filesystem::path& folder)
    : m_bundle(createPlugIn(folder))
{
    const auto notLoaded = [&folder](const char* reason) {
        return Problem(ExitStatus::PlugInNotLoaded, "cannot load the external '" + folder.string() + "': " + reason);
    };
    if (m_bundle.get() == nullptr)
        throw notLoaded("there is no such folder, which a bundle is");

    const CFOwner<CFArrayRef> factories(CFPlugInFindFactoriesForPlugInTypeInPlugIn(factoryType(), m_bundle.get()));
    if (CFArrayGetCount(factories.get()) == 0)
        throw notLoaded("it has no Info.plist that registers a factory for externals of this installer");

    if (!CFBundleLoadExecutable(m_bundle.get()))
        throw notLoaded("its executable is not there, or is none that can be loaded here");

    const auto factory = static_cast<CFUUIDRef>(CFArrayGetValueAtIndex(factories.get(), 0));
    m_instance = static_cast<XcodInstance*>(CFPlugInInstanceCreate(kCFAllocatorDefault, factory, factoryType()));
    if (m_instance == nullptr)
        throw notLoaded("its factory gives no instance");
}

External::~External()
{
    if (m_instance != nullptr)
        m_instance->functions->Release(m_instance);
}

Report External::call(Record& record, const Toolbox::TraceSink& trace)
{
    ExternParmBlock& block = record.block();
    Report report;
    report.message = block.message;
    report.current = block.currentLanguage;
    report.chosenBefore = block.chosenLanguage;
    report.flagsBefore = block.resultFlags;

    ChosenLanguage chosen(block);
    Toolbox::SetTrace(trace);
    m_instance->functions->XCodMain(&block);
    Toolbox::SetTrace(nullptr);

    report.chosen = chosen.settle();
    report.flagsAfter = block.resultFlags;
    return report;
}

}  // namespace Host
