// Core Foundation's plug-ins: bundles whose Info.plist registers factories for types.

#ifndef COREFOUNDATION_CFPLUGIN_H
#define COREFOUNDATION_CFPLUGIN_H

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFBundle.h>
#include <CoreFoundation/CFUUID.h>

extern "C" {

typedef CFBundleRef CFPlugInRef;

/// A factory: makes an instance of `type`, or gives null.
typedef void* (*CFPlugInFactoryFunction)(CFAllocatorRef allocator, CFUUIDRef type);

/// The plug-in in the folder at `url`: CFBundleCreate, for a bundle that registers factories. The caller's.
CFPlugInRef CFPlugInCreate(CFAllocatorRef allocator, CFURLRef url);

/// The factories, as CFUUIDRef, that `plugIn` registers for `type`: empty when only others do, null when none does or
/// for wrong references. The caller's.
CFArrayRef CFPlugInFindFactoriesForPlugInTypeInPlugIn(CFUUIDRef type, CFPlugInRef plugIn);

/// What the factory's function returns for `type`, its code loaded first if need be. Null for an unknown factory, one
/// that is not registered for the type, or one whose function is not found. Counts no instance.
void* CFPlugInInstanceCreate(CFAllocatorRef allocator, CFUUIDRef factory, CFUUIDRef type);

/// One instance of `factory` less. No effect for a factory that counts none, and on wrong references.
void CFPlugInRemoveInstanceForFactory(CFUUIDRef factory);
}

#endif
