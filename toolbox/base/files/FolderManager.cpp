// The Folder Manager, which here knows one folder.

#include "toolbox/base/CurrentReport.h"
#include "toolbox/base/NeverDestroyed.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/base/files/FileReferences.h"
#include "toolbox/base/memory/MemoryManager.h"

#include <Carbon/Folders.h>
#include <Toolbox/Application.h>

#include <filesystem>

namespace Toolbox {

namespace {

std::string& frameworksFolder()
{
    return neverDestroyed<struct FrameworksFolder, std::string>();
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

using namespace Toolbox;

OSErr FSFindFolder(SInt16 volume, OSType type, Boolean create, FSRef* folder)
{
    TracedCall call("FSFindFolder", volume, type, create, folder);
    return call.gives(orMemFull([=] { return findFolder(volume, type, folder); }));
}
