#include "toolbox/core/bundles/Executable.h"

#include "toolbox/base/TracedCall.h"
#include "toolbox/core/bundles/ELFFile.h"

#include <Toolbox/Code.h>

#include <dlfcn.h>
#include <link.h>

#include <cstring>

namespace Toolbox {

namespace {

// Whether `address` lies in the very file of `handle`: a search goes on into the libraries that it was linked with.
bool isOwn(void* handle, const void* address)
{
    const link_map* file = nullptr;
    Dl_info home{};
    return dlinfo(handle, RTLD_DI_LINKMAP, &file) == 0 && dladdr(address, &home) != 0
        && std::strcmp(home.dli_fname, file->l_name) == 0;
}

// Why the loader did not load `file`, whose name it puts before the reason.
std::string loaderReason(const std::filesystem::path& file)
{
    const std::string reason = dlerror();
    const std::string name = file.native() + ": ";
    return reason.rfind(name, 0) == 0 ? reason.substr(name.size()) : reason;
}

struct Search {
    ElfW(Addr) address;
    bool inCode;
};

// Looks in one loaded file; returns 0 to have the next one looked in.
int searchCode(dl_phdr_info* file, std::size_t, void* data)
{
    auto* const search = static_cast<Search*>(data);
    for (unsigned index = 0; index < file->dlpi_phnum; ++index) {
        const ElfW(Phdr)& segment = file->dlpi_phdr[index];
        const ElfW(Addr) start = file->dlpi_addr + segment.p_vaddr;
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_X) != 0 && search->address >= start
            && search->address - start < segment.p_memsz)
            search->inCode = true;
    }
    return search->inCode ? 1 : 0;
}

}  // namespace

bool IsCode(const void* address)
{
    Search search = {reinterpret_cast<ElfW(Addr)>(address), false};
    dl_iterate_phdr(searchCode, &search);
    return search.inCode;
}

bool Executable::load(const std::filesystem::path& file, std::string* reason)
{
    if (!isWholeELFFile(file)) {
        *reason = "it is not an ELF file, or is cut short";
        return false;
    }
    const ForeignCode initializers;
    m_handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!isLoaded())
        *reason = loaderReason(file);
    return isLoaded();
}

void* Executable::find(const std::string& name) const
{
    void* const found = isLoaded() ? dlsym(m_handle, name.c_str()) : nullptr;
    return found != nullptr && isOwn(m_handle, found) ? found : nullptr;
}

}  // namespace Toolbox
