// The Folder Manager, which here knows one folder.

#include <Carbon/Folders.h>
#include <Toolbox/Application.h>

#include "toolbox/base/CurrentReport.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/base/files/FileReferences.h"
#include "toolbox/base/memory/OrMemFull.h"

#include <filesystem>

namespace Toolbox {

namespace {

std::string& frameworksFolder()
{
    static auto* const folder = new std::string;
    return *folder;
}

OSErr findFolder(SInt16 volume, OSType type, FSRef* folder)
{
    if (folder == nullptr)
        return paramErr;
    *folder = {};
    if (volume != kSystemDomain && volume != kOnAppropriateDisk)
        return nsvErr;
    if (type != kFrameworksFolderType)
        return invalidFolderTypeErr;

    std::error_code unreachable;
    if (!std::filesystem::is_directory(frameworksFolder(), unreachable)) {
        remark("there is no frameworks folder \"" + frameworksFolder() + '"');
        return fnfErr;
    }
    return makeFileReference(frameworksFolder(), folder);
}

}  // namespace

void SetFrameworksFolder(const std::string& folder)
{
    // Made absolute now, so that it stays the same folder wherever the process goes. Empty if that cannot be done.
    std::error_code problem;
    frameworksFolder() = std::filesystem::absolute(folder, problem).string();
}

}  // namespace Toolbox

OSErr FSFindFolder(SInt16 volume, OSType type, Boolean create, FSRef* folder)
{
    Toolbox::TracedCall call("FSFindFolder", volume, type, create, folder);
    return call.gives(Toolbox::orMemFull([=] { return Toolbox::findFolder(volume, type, folder); }));
}
