// The fork of a file that its resources lie in: all of the file, or a part of it.

#ifndef TOOLBOX_BASE_RESOURCES_FORKS_H
#define TOOLBOX_BASE_RESOURCES_FORKS_H

#include <Carbon/Files.h>

#include <string>
#include <vector>

namespace Toolbox {

/// Reads the resources of the file at `path` into `*bytes`: the file as it is, or the resource fork in it if it is
/// AppleDouble or AppleSingle.
/// Returns noErr; the codes of InputFile; errFSForkNotFound for AppleDouble without a resource fork or with an empty
/// one; mapReadErr when an entry reaches past the end, or for a fork larger than the resource format can be, which is
/// not read.
OSErr readFork(const std::string& path, std::vector<UInt8>* bytes);

}  // namespace Toolbox

#endif
