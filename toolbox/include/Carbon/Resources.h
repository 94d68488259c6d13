// The Resource Manager: resource files in the classic format and the chain that they form.

#ifndef CARBON_RESOURCES_H
#define CARBON_RESOURCES_H

#include <Carbon/Files.h>

CARBON_FUNCTIONS_BEGIN

enum {
    resNotFound = -192,  // no such resource, or not a resource's handle
    mapReadErr = -199,   // the map or the data area is corrupt; nothing was opened
};

enum {
    kResFileNotOpened = -1,  // the reference number of no file
};

/// Opens the data fork of `file` as a resource file, puts it at the top of the chain and makes it current. Its name is
/// empty: `forkNameLength` is 0, and `forkName` not looked at. A file here has no other fork, but one that is
/// AppleDouble or AppleSingle is read as such. Files are only ever read, so `permissions` is fsRdPerm or fsCurPerm.
/// Each opening of a file is one of its own.
/// `*refNum` is then the caller's, to be given to CloseResFile; it is kResFileNotOpened after a failure.
/// Returns noErr; paramErr for a null `file` or `refNum`; errFSBadFSRef; errFSBadForkName for a name that is not empty;
/// permErr when the file may not be read or other permissions are asked for; tmfoErr when 256 files are open; fnfErr;
/// ioErr, also for what is no regular file; errFSForkNotFound for AppleDouble without a resource fork;
/// eofErr when the fork is shorter than a header; mapReadErr for a corrupt fork, and for one larger than the format can
/// be, which is not read; memFullErr.
OSErr FSOpenResourceFile(
    const FSRef* file, UniCharCount forkNameLength, const UniChar* forkName, SInt8 permissions, SInt16* refNum);

/// Closes the file and frees its handles. If it was the current file, the one opened before it becomes current. A
/// number of which no file is open is ignored.
void CloseResFile(SInt16 refNum);

/// The handle of the resource: from the current file, then from those opened before it. The same handle for the same
/// resource until it is released. Null if it is not found or compressed, or when there is no memory. The handle is the
/// Resource Manager's: give it back with ReleaseResource. Bytes past the resource's end can be read as zeros up to a
/// slack of 1,024, as a caller that trusts a layout may do.
Handle GetResource(ResType type, SInt16 id);

/// Frees the data of a resource's handle and forgets the handle, but keeps it while it is marked as changed.
/// Null, and a handle that is not a resource's, are ignored.
void ReleaseResource(Handle resource);

/// Marks the resource as changed, so that what was written into its block stays until its file is closed.
/// Null, and a handle that is not a resource's, are ignored.
void ChangedResource(Handle resource);
CARBON_FUNCTIONS_END

#endif
