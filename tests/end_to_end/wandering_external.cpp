// The external whose executable EXTERNAL in the environment names, in a process that it has taken to another working
// directory.

#include <CoreFoundation/CFPlugIn.h>

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>

extern "C" void* MyFactory(CFAllocatorRef allocator, CFUUIDRef type)
{
    void* const external = dlopen(std::getenv("EXTERNAL"), RTLD_NOW);
    if (external == nullptr || chdir("/") != 0)
        return nullptr;
    const auto factory = reinterpret_cast<decltype(&MyFactory)>(dlsym(external, "MyFactory"));
    return factory == nullptr ? nullptr : factory(allocator, type);
}
