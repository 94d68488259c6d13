// Property lists and bundles: the bytes of an Info.plist, up to a zero byte if there is one; what follows it is a file
// of code. A bundle is made of every Info.plist that can be read, and everything asked of it that depends on that. Its
// executable is no code, so nothing must ever load.

#include "fuzz/must_hold.h"
#include "fuzz/nothing_left.h"
#include "fuzz/scratch_file.h"
#include "tests/support/TemporaryFolder.h"
#include "toolbox/core/bundles/ELFFile.h"
#include "toolbox/core/bundles/PropertyList.h"

#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>

namespace {

// A bundle with one resource and an executable that is none.
class Bundle {
public:
    Bundle()
        : m_path(m_folder.makeFolder("fuzz.bundle"))
        , m_info(m_folder.makeFolder("fuzz.bundle/Contents") / "Info.plist")
        , m_code(m_folder / "code")
        , m_url(CFURLCreateFromFileSystemRepresentation(
              nullptr, reinterpret_cast<const UInt8*>(m_path.data()), static_cast<CFIndex>(m_path.size()), true))
    {
        m_folder.makeFolder("fuzz.bundle/Contents/Linux");
        m_folder.makeFolder("fuzz.bundle/Contents/Resources/German.lproj");
        m_folder.write("fuzz.bundle/Contents/Linux/fuzz", "no code");
        m_folder.write("fuzz.bundle/Contents/Resources/German.lproj/text", "text");
    }

    ~Bundle() { CFRelease(m_url); }

    void holdInfo(const std::uint8_t* data, std::size_t size) { m_info.hold(data, size); }
    void holdCode(const std::uint8_t* data, std::size_t size) { m_code.hold(data, size); }

    CFURLRef url() const { return m_url; }
    std::string codePath() const { return m_folder / "code"; }

private:
    const TemporaryFolder m_folder;
    const std::string m_path;
    ScratchFile m_info;
    ScratchFile m_code;
    const CFURLRef m_url;
};

// The type that the seeds register a factory for, and the texts that are asked for.
const CFUUIDRef TYPE = CFUUIDGetConstantUUIDWithBytes(
    nullptr, 0x5C, 0xD9, 0x48, 0x4B, 0x4A, 0x86, 0x4C, 0xA2, 0xA7, 0x9A, 0x15, 0x25, 0xA3, 0xB5, 0xF6, 0xE8);
const CFStringRef FUNCTION = CFSTR("main");
const CFStringRef RESOURCE = CFSTR("text");

void checkFactories(CFPlugInRef plugIn)
{
    const CFArrayRef factories = CFPlugInFindFactoriesForPlugInTypeInPlugIn(TYPE, plugIn);
    if (factories == nullptr)
        return;
    for (CFIndex index = 0; index < CFArrayGetCount(factories); ++index) {
        const auto factory = static_cast<CFUUIDRef>(CFArrayGetValueAtIndex(factories, index));
        mustHold(CFPlugInInstanceCreate(nullptr, factory, TYPE) == nullptr, "no factory without code");
    }
    CFRelease(factories);
}

void checkBundle(CFURLRef url)
{
    const CFPlugInRef plugIn = CFPlugInCreate(nullptr, url);
    mustHold(plugIn != nullptr, "a folder is a bundle");
    checkFactories(plugIn);
    mustHold(!CFBundleLoadExecutable(plugIn), "nothing loads that is no code");
    mustHold(CFBundleGetFunctionPointerForName(plugIn, FUNCTION) == nullptr, "no function without code");
    if (const CFURLRef resource = CFBundleCopyResourceURL(plugIn, RESOURCE, nullptr, nullptr))
        CFRelease(resource);
    CFRelease(plugIn);
    mustHold(CFPlugInFindFactoriesForPlugInTypeInPlugIn(TYPE, plugIn) == nullptr, "no factory without its bundle");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Bundle bundle;
    const std::uint8_t* const zero = std::find(data, data + size, 0);
    const auto infoSize = static_cast<std::size_t>(zero - data);
    const auto info = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(infoSize));

    QString problem;
    if (Toolbox::readPropertyList(info, &problem).has_value()) {
        const NothingLeft check;
        bundle.holdInfo(data, infoSize);
        checkBundle(bundle.url());
    }
    if (infoSize < size) {
        bundle.holdCode(zero + 1, size - infoSize - 1);
        Toolbox::isWholeELFFile(bundle.codePath());
    }
    return 0;
}
