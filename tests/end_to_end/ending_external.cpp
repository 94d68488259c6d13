// An external that ends the process: at the moment that ENDS_AT in the environment names, in the way that
// ENDS_BY does. Until then it behaves: its call chooses German. Or its factory gives what GIVES names in place of an
// instance.

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

#include <sys/mman.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

namespace {

std::string variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

const struct {
    const char* name;
    void (*end)();
} WAYS[] = {
    {"exit", [] { std::exit(0); }},
    {"another program", [] { execl("/bin/true", "true", nullptr); }},
    {"a crash", [] { std::signal(SIGSEGV, SIG_DFL), std::raise(SIGSEGV); }},  // not the sanitizers' to report
    {"throw", [] { throw std::runtime_error("why"); }},
    {"abort", [] { std::abort(); }},
};

void endIfAt(const char* moment)
{
    if (variable("ENDS_AT") != moment)
        return;
    for (const auto& way : WAYS) {
        if (variable("ENDS_BY") == way.name)
            way.end();
    }
}

struct Destroyed {
    ~Destroyed() { endIfAt("destructor"); }
} destroyed;

HRESULT queryInterface(void*, REFIID, LPVOID*)
{
    return E_NOINTERFACE;
}

ULONG addRef(void*)
{
    return 1;
}

ULONG release(void*)
{
    endIfAt("release");
    return 0;
}

void call(ExternParmBlock* block)
{
    endIfAt("call");
    block->chosenLanguage = 2;
    if (variable("ENDS_AT") == "exit function")
        std::atexit([] { endIfAt("exit function"); });
}

// One of which only the first word lies where anything can be read.
XcodFunctionBlock* cutTable()
{
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    auto* const pages =
        static_cast<char*>(mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(pages + page, page, PROT_NONE);
    return reinterpret_cast<XcodFunctionBlock*>(pages + page - sizeof(void*));
}

// A copy of these bytes, good but for where it lies.
void* misaligned(const void* bytes, std::size_t size)
{
    alignas(std::max_align_t) static char copy[64];
    return std::memcpy(copy + 1, bytes, size);
}

XcodFunctionBlock functions = {nullptr, queryInterface, addRef, release, call};
XcodInstance instance = {&functions, nullptr, 1};

}  // namespace

extern "C" void* MyFactory(CFAllocatorRef, CFUUIDRef)
{
    endIfAt("factory");
    const std::string gives = variable("GIVES");
    if (gives == "nothing")
        return nullptr;
    if (gives == "a number")
        return reinterpret_cast<void*>(std::uintptr_t{0x10});
    if (gives == "a null table")
        instance.functions = nullptr;
    if (gives == "a table that is nowhere")
        instance.functions = reinterpret_cast<XcodFunctionBlock*>(std::uintptr_t{0x1000});
    if (gives == "a table that is cut off")
        instance.functions = cutTable();
    if (gives == "a misaligned table")
        instance.functions = static_cast<XcodFunctionBlock*>(misaligned(&functions, sizeof functions));
    if (gives == "a misaligned instance")
        return misaligned(&instance, sizeof instance);
    if (gives == "no call")
        functions.XCodMain = nullptr;
    if (gives == "data to release")
        functions.Release = reinterpret_cast<ULONG (*)(void*)>(reinterpret_cast<std::uintptr_t>(&functions));
    return &instance;
}
