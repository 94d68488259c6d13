// The system's error numbers in the File Manager's words.

#ifndef TOOLBOX_BASE_FILES_FILEERRORS_H
#define TOOLBOX_BASE_FILES_FILEERRORS_H

#include <Carbon/Files.h>

namespace Toolbox {

/// The code for `error`, a value of errno: fnfErr when the path leads to nothing, permErr, tmfoErr, else ioErr.
OSErr fileError(int error);

}  // namespace Toolbox

#endif
