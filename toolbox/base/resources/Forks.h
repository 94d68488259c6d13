// A file's forks. A file here has one stream of bytes, so its resource fork lies in a file beside it, or inside it.

#ifndef TOOLBOX_BASE_RESOURCES_FORKS_H
#define TOOLBOX_BASE_RESOURCES_FORKS_H

#include <Carbon/Files.h>

#include <string>
#include <vector>

namespace Toolbox {

enum class Fork { Data, Resource };

/// Reads the resources of the file at `path` into `*bytes`: its data fork as it is, or the resource fork in it if it is
/// AppleDouble or AppleSingle; or its resource fork, from the AppleDouble file "._NAME" beside it.
/// Returns noErr; the codes of InputFile; errFSForkNotFound when there is no resource fork or it is empty; eofErr when
/// "._NAME" is shorter than a header; mapReadErr when it is not AppleDouble, when an entry reaches past the end, or for
/// a fork larger than the resource format can be, which is not read.
OSErr readFork(const std::string& path, Fork fork, std::vector<UInt8>* bytes);

}  // namespace Toolbox

#endif
