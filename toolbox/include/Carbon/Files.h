// The File Manager: references to files and folders.

#ifndef CARBON_FILES_H
#define CARBON_FILES_H

#include <Carbon/MacTypes.h>

CARBON_FUNCTIONS_BEGIN

/// A reference to a file or folder that exists. Opaque, copied freely, owns nothing.
typedef struct FSRef {
    UInt8 hidden[80];
} FSRef;

enum {
    fsCurPerm = 0,
    fsRdPerm = 1,
};

enum {
    nsvErr = -35,               // no such volume or domain
    ioErr = -36,                // the file could not be read
    eofErr = -39,               // the file ends too early
    tmfoErr = -42,              // too many files are open
    fnfErr = -43,               // no such file or folder
    permErr = -54,              // no permission to read it
    errFSBadFSRef = -1401,      // not a reference that the File Manager gave
    errFSBadForkName = -1402,   // neither the data fork nor the resource fork
    errFSForkNotFound = -1409,  // the file has no such fork
};
CARBON_FUNCTIONS_END

#endif
