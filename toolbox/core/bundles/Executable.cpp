#include "toolbox/core/bundles/Executable.h"

#include "toolbox/base/TracedCall.h"
#include "toolbox/core/bundles/ELFFile.h"

#include <cstring>

#include <dlfcn.h>
#include <link.h>

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

}  // namespace

bool Executable::load(const std::filesystem::path& file)
{
    if (!isLoaded() && isWholeELFFile(file)) {
        const ForeignCode initializers;
        m_handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    }
    return isLoaded();
}

void* Executable::find(const std::string& name) const
{
    void* const found = isLoaded() ? dlsym(m_handle, name.c_str()) : nullptr;
    return found != nullptr && isOwn(m_handle, found) ? found : nullptr;
}

}  // namespace Toolbox
