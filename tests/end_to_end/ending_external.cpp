// An external whose factory ends the process, in the way that ENDS_BY in the environment names.

#include <CoreFoundation/CFPlugIn.h>

#include <pthread.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

extern "C" void* MyFactory(CFAllocatorRef, CFUUIDRef)
{
    const std::string way = std::getenv("ENDS_BY");
    if (way == "exit")
        std::exit(0);
    if (way == "quick_exit")
        std::quick_exit(0);
    if (way == "_exit")
        _exit(0);
    if (way == "_Exit")
        std::_Exit(0);
    if (way == "pthread_exit")
        pthread_exit(nullptr);
    if (way == "throw")
        throw 0;
    if (way == "a child's _exit" && fork() == 0)
        _exit(0);
    return nullptr;
}
