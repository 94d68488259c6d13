// The Folder Manager: where the system keeps its folders.

#ifndef CARBON_FOLDERS_H
#define CARBON_FOLDERS_H

#include <Carbon/Files.h>

CARBON_FUNCTIONS_BEGIN

enum {
    kOnAppropriateDisk = -32767,
    kSystemDomain = -32766,
};

enum {
    kCreateFolder = 1,
};

enum {
    kFrameworksFolderType = 'fram',
};

enum {
    invalidFolderTypeErr = -4273,
};

/// The folder of `type` in the domain or on the volume `volume`, as a reference in `*folder`.
/// The one folder that is known is the frameworks folder of the system domain, asked for as kSystemDomain or as
/// kOnAppropriateDisk; the host of the toolbox says where it lies. It is never created, whatever `create` says.
/// Returns noErr; paramErr for a null `folder`; nsvErr for another volume; invalidFolderTypeErr for another type;
/// fnfErr when the folder is not there or was never named; memFullErr. After a failure `*folder` refers to nothing.
OSErr FSFindFolder(SInt16 volume, OSType type, Boolean create, FSRef* folder);
CARBON_FUNCTIONS_END

#endif
