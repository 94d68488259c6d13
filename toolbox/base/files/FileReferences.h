// From paths to FSRefs and back. An FSRef is too small for a path, so it carries a number, and this keeps the paths.

#ifndef TOOLBOX_BASE_FILES_FILEREFERENCES_H
#define TOOLBOX_BASE_FILES_FILEREFERENCES_H

#include <Carbon/Files.h>

#include <optional>
#include <string>

namespace Toolbox {

/// Makes `*reference` refer to the file or folder that `path` names now; a relative path is made absolute. Symbolic
/// links must lead somewhere, but stay in the path as they were named. Equal paths give equal references.
/// Returns noErr; else fnfErr or another code of fileError, and `*reference` is all zeros, which refers to nothing.
OSErr makeFileReference(const std::string& path, FSRef* reference);

/// The absolute path that `reference` was made of, whether anything is still there or not. Nothing for null and for
/// what makeFileReference did not make.
std::optional<std::string> pathOf(const FSRef* reference);

}  // namespace Toolbox

#endif
