// The Resource Manager: resource files in the classic format and the chain that they form.

#ifndef CARBON_RESOURCES_H
#define CARBON_RESOURCES_H

#include <Carbon/Files.h>

extern "C" {

enum {
    resNotFound = -192,     // no such resource, or not a resource's handle
    resFNotFound = -193,    // no such open file
    mapReadErr = -199,      // the map or the data area is corrupt; nothing was opened
    CantDecompress = -186,  // the resource is compressed
};

/// Opens a fork of `file` as a resource file, puts it at the top of the chain and makes it current.
/// `forkNameLength` 0 and a null `forkName` name the data fork, "RESOURCE_FORK" the resource fork, which is read from
/// the AppleDouble file beside it ("._NAME"). A data fork that is itself AppleDouble or AppleSingle is read as such.
/// `*refNum` is then the caller's, to be given to CloseResFile. Files are only ever read.
/// Returns noErr, errFSBadFSRef, fnfErr, permErr, ioErr, eofErr (shorter than a header), errFSBadForkName,
/// errFSForkNotFound, mapReadErr, paramErr for a null `refNum`.
OSErr FSOpenResourceFile(
    const FSRef* file, UniCharCount forkNameLength, const UniChar* forkName, SInt8 permissions, SInt16* refNum);

/// Closes the file and frees its handles. If it was the current file, the one opened before it becomes current.
/// ResError is resFNotFound when no such file is open.
void CloseResFile(SInt16 refNum);

/// The result of the last Resource Manager call: noErr or one of the codes above.
OSErr ResError(void);

/// The handle of the resource: from the current file, then from those opened before it. The same handle for the same
/// resource until it is released. Null if it is not found; ResError is then resNotFound when some file has the type,
/// but noErr when none has, so test the handle. It is the Resource Manager's: give it back with ReleaseResource.
/// Bytes past the resource's end can be read as zeros up to a slack of 1,024, as a caller that trusts a layout may do.
Handle GetResource(ResType type, SInt16 id);

/// Frees the data of a resource's handle and forgets the handle, but keeps it while it is marked as changed.
/// ResError is resNotFound for null or for a handle that is no resource's.
void ReleaseResource(Handle resource);

/// Marks the resource as changed, so that what was written into its block stays until its file is closed.
/// ResError is resNotFound for null or for a handle that is no resource's.
void ChangedResource(Handle resource);
}

#endif
