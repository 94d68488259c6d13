#include "host/External.h"

#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "host/CallGuard.h"
#include "host/Messages.h"

#include <Toolbox/CallReport.h>
#include <Toolbox/Code.h>

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

namespace Host {

namespace {

Problem notLoaded(const std::filesystem::path& folder, const std::string& reason)
{
    return Problem(ExitStatus::ExternalNotLoaded, "cannot load the external '" + folder.string() + "': " + reason);
}

CFPlugInRef createPlugIn(const std::filesystem::path& folder)
{
    std::error_code missing;
    if (!std::filesystem::is_directory(folder, missing))
        throw notLoaded(folder, "there is no such folder (a bundle is a folder)");
    const CFOwner<CFURLRef> url(createURL(folder));
    return CFPlugInCreate(kCFAllocatorDefault, url.get());
}

// Takes the toolbox's report of a call, whose last remark says why it failed; `otherwise` if there is none.
std::string takeReason(const char* otherwise)
{
    const std::vector<std::string> remarks = Toolbox::TakeReport().remarks;
    return remarks.empty() ? otherwise : remarks.back();
}

// Whether an object lies at `address`, as far as the system knows: rt_sigprocmask(2) reads the set of signals that it
// is given, or fails with EFAULT, before it refuses a way of changing the mask that does not exist, with EINVAL.
// Nothing is changed, and no descriptor is needed.
template <typename Object> bool isReadable(const Object* address, std::size_t size = sizeof(Object))
{
    constexpr int NO_WAY = -1;
    constexpr std::size_t SET = 8;  // bytes of a set of signals
    const auto isSetAt = [](const char* set) {
        return syscall(SYS_rt_sigprocmask, NO_WAY, set, nullptr, SET) != 0 && errno == EINVAL;
    };
    const auto* const first = reinterpret_cast<const char*>(address);
    return reinterpret_cast<std::uintptr_t>(address) % alignof(Object) == 0 && isSetAt(first)
        && isSetAt(first + size - SET);  // and what lies between, as it is smaller than a page
}

// An Info.plist may name any function as the factory, so what it returned is examined before it is used.
bool isInstance(const XcodInstance* instance)
{
    constexpr std::size_t FIRST_WORD = sizeof(void*);  // all that an installer knows of an instance
    if (!isReadable(instance, FIRST_WORD) || !isReadable(instance->functions))
        return false;
    const XcodFunctionBlock& functions = *instance->functions;
    return Toolbox::IsCode(reinterpret_cast<const void*>(functions.QueryInterface))
        && Toolbox::IsCode(reinterpret_cast<const void*>(functions.AddRef))
        && Toolbox::IsCode(reinterpret_cast<const void*>(functions.Release))
        && Toolbox::IsCode(reinterpret_cast<const void*>(functions.XCodMain));
}

}  // namespace

External::External(const std::filesystem::path& folder)
    : m_bundle(createPlugIn(folder))
{
    guarded(Running::Load, [&] { load(folder); });
}

void External::load(const std::filesystem::path& folder)
{
    const CFOwner<CFArrayRef> factories(CFPlugInFindFactoriesForPlugInTypeInPlugIn(factoryType(), m_bundle.get()));
    if (CFArrayGetCount(factories.get()) == 0)
        throw notLoaded(folder, "it has no usable Info.plist that registers a factory for externals of this installer");

    tellRemarks();  // none of them is the reason for what fails below
    if (!CFBundleLoadExecutable(m_bundle.get()))
        throw notLoaded(folder, takeReason("its executable cannot be loaded"));

    const auto factory = static_cast<CFUUIDRef>(CFArrayGetValueAtIndex(factories.get(), 0));
    void* const made = CFPlugInInstanceCreate(kCFAllocatorDefault, factory, factoryType());
    if (made == nullptr)
        throw notLoaded(folder, takeReason("its factory gives no instance"));
    if (!isInstance(static_cast<XcodInstance*>(made)))
        throw notLoaded(folder, "what its factory gives is not an instance of an external");
    m_instance = static_cast<XcodInstance*>(made);
}

Report External::call(Record& record, DisplayKind display, const Toolbox::TraceSink& trace)
{
    ExternParmBlock& block = record.block();
    Report report;
    report.display = display;
    report.message = block.message;
    report.current = block.currentLanguage;
    report.chosenBefore = block.chosenLanguage;
    report.flagsBefore = block.resultFlags;

    ChosenLanguage chosen(block);  // or a language written again could not be told from none: see Record.h
    Toolbox::SetTrace(trace);
    guarded(display == DisplayKind::Window ? Running::CallOnScreen : Running::Call,
        [&] { m_instance->functions->XCodMain(&block); });
    Toolbox::SetTrace(nullptr);

    report.chosen = chosen.settle();
    report.flagsAfter = block.resultFlags;
    report.toolbox = Toolbox::TakeReport();
    return report;
}

void External::release()
{
    guarded(Running::Release, [this] { m_instance->functions->Release(m_instance); });
}

}  // namespace Host
