// A plug-in for the tests: a module that is put into the bundles that they make.

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

int instanceOfFirst = 1;
int instanceOfSecond = 2;
CFUUIDRef typeAskedFor = nullptr;

/// Notes the type, and gives the first instance.
void* firstFactory(CFAllocatorRef, CFUUIDRef type)
{
    typeAskedFor = type;
    return &instanceOfFirst;
}

/// Gives the second instance.
void* secondFactory(CFAllocatorRef, CFUUIDRef)
{
    return &instanceOfSecond;
}

/// Refuses every type.
void* refusingFactory(CFAllocatorRef, CFUUIDRef)
{
    return nullptr;
}

/// Gives back its allocator.
void* factoryOfAllocators(CFAllocatorRef allocator, CFUUIDRef)
{
    return const_cast<void*>(static_cast<const void*>(allocator));
}

/// Calls the toolbox in its turn.
void* callingFactory(CFAllocatorRef, CFUUIDRef type)
{
    CFEqual(type, type);
    return &instanceOfFirst;
}
}
