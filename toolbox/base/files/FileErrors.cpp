#include "toolbox/base/files/FileErrors.h"

#include <cerrno>

namespace Toolbox {

OSErr fileError(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return fnfErr;
    case EACCES:
    case EPERM:
        return permErr;
    case EMFILE:
    case ENFILE:
        return tmfoErr;
    default:
        return ioErr;
    }
}

}  // namespace Toolbox
