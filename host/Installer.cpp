#include "host/Installer.h"

#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "host/CFReferences.h"
#include "host/Messages.h"
#include "host/Paths.h"

#include <Toolbox/Application.h>

#include <algorithm>
#include <system_error>
#include <vector>

namespace Host {

namespace {

namespace fs = std::filesystem;

// The name of a folder, also when it is given as "." or with a slash at its end.
std::string bundleName(const fs::path& folder)
{
    std::error_code error;
    const fs::path absolute = fs::canonical(folder, error);
    return absolute.stem().string();
}

// Tells of the resource files in the bundle `folder`, which is called `name`, when none of them is its own.
void tellOfOtherResourceFiles(const fs::path& folder, const std::string& name)
{
    std::error_code error;
    for (fs::directory_iterator each(folder / "Contents/Resources", error), end; !error && each != end;
         each.increment(error)) {
        const fs::path& file = each->path();
        if (file.extension() == ".rsrc")
            complain("the resource file '" + file.string() + "' was not opened: the application's own is called '"
                + name + ".rsrc' and lies inside it");
    }
}

// The resource file of the main bundle, which is called `name`; empty if it has none.
fs::path ownResourceFile(const std::string& name)
{
    const CFOwner<CFStringRef> title(
        CFStringCreateWithCString(kCFAllocatorDefault, name.c_str(), kCFStringEncodingUTF8));
    const CFOwner<CFURLRef> url(CFBundleCopyResourceURL(CFBundleGetMainBundle(), title.get(), CFSTR("rsrc"), nullptr));
    return pathOf(url.get());
}

const char* describe(OSErr error, const fs::path& file)
{
    std::error_code unknown;
    switch (error) {
    case fnfErr:
        return "there is no such file";
    case permErr:
        return "there is no permission to read it";
    case eofErr:
    case mapReadErr:
        return "it is no resource file, or a damaged one";
    default:
        if (fs::is_directory(file, unknown))
            return "it is a folder";
        return fs::is_regular_file(file, unknown) ? "it cannot be read" : "it is not a regular file";
    }
}

SInt16 openResourceFile(const fs::path& file)
{
    const CFOwner<CFURLRef> url(createURL(file));
    FSRef reference;
    SInt16 number = 0;
    const OSErr error = CFURLGetFSRef(url.get(), &reference)
        ? FSOpenResourceFile(&reference, 0, nullptr, fsRdPerm, &number)
        : static_cast<OSErr>(fnfErr);
    if (error != noErr)
        throw Problem(
            ExitStatus::NotDone, "cannot open the resource file '" + file.string() + "': " + describe(error, file));
    return number;
}

}  // namespace

Installer::Installer(const fs::path& folder, const std::optional<std::string>& resourceFile)
    : m_folder(folder)
{
    if (!Toolbox::SetMainBundle(folder.string()))
        throw Problem(ExitStatus::NotDone, "there is no application bundle in '" + folder.string() + "'");

    const std::string name = bundleName(folder);
    if (!resourceFile && !isUtf8(name))
        throw Problem(ExitStatus::NotDone,
            "the name of the application '" + folder.string()
                + "' is not UTF-8, so that its resource file cannot be looked for; name one with --resources");
    const fs::path file = resourceFile ? fs::path(*resourceFile) : ownResourceFile(name);
    if (file.empty())
        tellOfOtherResourceFiles(folder, name);
    else
        m_resourceFile = openResourceFile(file);
}

Installer::~Installer()
{
    if (m_resourceFile)
        CloseResFile(*m_resourceFile);
}

void Installer::requireAdministrator()
{
    if (!m_resourceFile)
        throw Problem(ExitStatus::NotDone,
            "the administrator flag cannot be set: the application has no resource file, which would hold it; name one "
            "with --resources");
    const Handle call = GetResource(CALL_RESOURCE_TYPE, CALL_RESOURCE_ID);
    if (call == nullptr)
        throw Problem(ExitStatus::NotDone,
            "the administrator flag cannot be set: the resource file has no 'CALL' 1000, which would hold it");
    if (GetHandleSize(call) <= ADMINISTRATOR_BYTE)
        throw Problem(ExitStatus::NotDone,
            "the administrator flag cannot be set: 'CALL' 1000 of the resource file is too short to hold it");
    (*call)[ADMINISTRATOR_BYTE] = static_cast<char>((*call)[ADMINISTRATOR_BYTE] | 0x80 >> ADMINISTRATOR_BIT);
    ChangedResource(call);  // or it would be read from the file again
}

fs::path Installer::builtInExternal() const
{
    const CFOwner<CFURLRef> url(CFBundleCopyBuiltInPlugInsURL(CFBundleGetMainBundle()));
    const fs::path folder = pathOf(url.get());
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
        if (each->path().extension() == ".bundle" && isInside(m_folder, each->path()))
            found.push_back(each->path());
    }
    if (found.empty())
        throw Problem(
            ExitStatus::ExternalNotLoaded, "there is no external in '" + folder.string() + "'; name one as BUNDLE");
    if (found.size() > 1)
        throw Problem(
            ExitStatus::NotDone, "there is more than one external in '" + folder.string() + "'; name one as BUNDLE");
    return found.front();
}

}  // namespace Host
