// Core Foundation's bundles: folders with an Info.plist, an executable and resources.

#ifndef COREFOUNDATION_CFBUNDLE_H
#define COREFOUNDATION_CFBUNDLE_H

#include <CoreFoundation/CFString.h>
#include <CoreFoundation/CFURL.h>

extern "C" {

typedef struct __CFBundle* CFBundleRef;

/// The bundle of the running application, borrowed. Null until the host of the toolbox has named one that is there.
CFBundleRef CFBundleGetMainBundle(void);

/// The bundle in the folder at `url`; the same object, once more retained, for the same folder. Any folder will do; its
/// Info.plist is read, if it has one, and what it says of factories is registered. No code is loaded.
/// Null for a wrong URL and where there is no folder. The caller's.
CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef url);

/// Loads the bundle's executable. True when it is loaded, then or before. False when there is none, when its path
/// leaves the bundle, or when it cannot be loaded. What was loaded stays so until the process ends.
Boolean CFBundleLoadExecutable(CFBundleRef bundle);

/// The function `name` of the bundle's executable, which is loaded if need be. Null when it cannot be, when it has no
/// such function, and for wrong references.
void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name);

/// The resource `name`.`type` of the bundle: first among those without a language, then in the user's languages, then
/// in the development region. `type` and `subfolder` may be null. Null when it is not found or lies outside the bundle.
/// The caller's.
CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef subfolder);

/// The folder of the plug-ins that the bundle brings along. Null for a wrong reference. The caller's.
CFURLRef CFBundleCopyBuiltInPlugInsURL(CFBundleRef bundle);
}

#endif
