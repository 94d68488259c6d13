// Core Foundation's bundles: folders with an Info.plist, an executable and resources.

#ifndef COREFOUNDATION_CFBUNDLE_H
#define COREFOUNDATION_CFBUNDLE_H

#include <CoreFoundation/CFString.h>
#include <CoreFoundation/CFURL.h>

CARBON_FUNCTIONS_BEGIN

typedef struct __CFBundle* CFBundleRef;

/// The bundle of the running application, borrowed. Null until the host of the toolbox has named one that is there.
CFBundleRef CFBundleGetMainBundle(void);

/// The bundle in the folder at `url`; the same object, once more retained, for the same folder, by whatever path and
/// symbolic links. Any folder will do. Things lie in "Contents" if it is there, else in "Resources", else at the top;
/// in a ".framework", "Resources" comes first. Its Info.plist is read once, now, and what it says of factories is
/// registered. No code is loaded. An Info.plist that is missing, is a link that leads out of the bundle, or cannot be
/// read counts as empty: it must be XML of at most 1 MiB and 32 levels, without entities of its own. Null for a wrong
/// URL and where there is no folder. The caller's; when the last owner releases it, its factories are taken out of the
/// register.
CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef url);

/// Loads the bundle's executable: the file that Info.plist calls CFBundleExecutable, else NSExecutable, else the one
/// called as the bundle without its extension. It is looked for in "Contents/Linux", then in "Contents", then at the
/// top. True when it is loaded, then or before. False when there is none, when its path leaves the bundle, when it is
/// not all there, or when the system cannot load it. What was loaded stays so until the process ends, also when the
/// bundle ends.
Boolean CFBundleLoadExecutable(CFBundleRef bundle);

/// The function, or datum, that the bundle's executable itself exports as `name`; the executable is loaded if need be.
/// Null when it cannot be, when it exports no such name, and for wrong references.
void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name);

/// The resource `name`.`type` of the bundle, a file or a folder: first among those without a language, then in the
/// user's languages, as the process's locale has them, then in the development region. `type` and `subfolder` may be
/// null; case counts. The URL has the resource's real path. Null when it is not found, for wrong references, and for
/// what leaves the bundle: "..", absolute paths and symbolic links that lead out of it. The caller's.
CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef subfolder);

/// The folder of the plug-ins that the bundle brings along, which need not be there. Null for a wrong reference. The
/// caller's.
CFURLRef CFBundleCopyBuiltInPlugInsURL(CFBundleRef bundle);
CARBON_FUNCTIONS_END

#endif
