// Core Foundation's plug-ins: bundles whose Info.plist registers factories for types.

#ifndef COREFOUNDATION_CFPLUGIN_H
#define COREFOUNDATION_CFPLUGIN_H

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFBundle.h>
#include <CoreFoundation/CFUUID.h>

CARBON_FUNCTIONS_BEGIN

typedef CFBundleRef CFPlugInRef;

/// A factory: makes an instance of `type`, or gives null.
typedef void* (*CFPlugInFactoryFunction)(CFAllocatorRef allocator, CFUUIDRef type);

/// The plug-in in the folder at `url`: CFBundleCreate by another name, for a bundle that registers factories. The
/// caller's.
///
/// Info.plist says which: CFPlugInFactories is a dictionary from a factory's id to the name of its function;
/// CFPlugInTypes one from a type's id to an array of factories' ids, or to one. Ids are UUIDs in their usual text form,
/// in either case. Not registered are entries of another form; a factory that another bundle has registered, which
/// keeps it; a type for a factory that this bundle has not registered; and the factory that project templates come
/// with, of zeros alone and with the function MyFactoryFunction. CFPlugInDynamicRegistration has no effect.
CFPlugInRef CFPlugInCreate(CFAllocatorRef allocator, CFURLRef url);

/// The factories, as CFUUIDRef, that `plugIn` registers for `type`: empty when only others do, null when none does or
/// for wrong references. The caller's.
CFArrayRef CFPlugInFindFactoriesForPlugInTypeInPlugIn(CFUUIDRef type, CFPlugInRef plugIn);

/// What the factory's function returns for `type`, its code loaded first if need be; the function is given `allocator`
/// and `type` as they are. Null for an unknown factory, one that is not registered for the type, one whose function is
/// not found, and wrong references. Counts no instance.
void* CFPlugInInstanceCreate(CFAllocatorRef allocator, CFUUIDRef factory, CFUUIDRef type);

/// One instance of `factory` less. A factory that counts none is left as it is, and so is a wrong reference. Since the
/// function that counts one up is not provided, that is every factory, and this has no effect.
void CFPlugInRemoveInstanceForFactory(CFUUIDRef factory);
CARBON_FUNCTIONS_END

#endif
