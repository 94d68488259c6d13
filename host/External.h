// The external, reached as its installer reaches it: through the plug-in services, and nothing else.

#ifndef HOST_EXTERNAL_H
#define HOST_EXTERNAL_H

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

#include "host/CFReferences.h"

#include <filesystem>

namespace Host {

class PlugIn {
public:
    /// Loads the bundle in `folder` and takes an instance from the factory that it registers for the installer's type.
    /// Throws Problem when there is no such bundle, factory, code or instance.
    explicit PlugIn(const std::filesystem::path& folder);

    /// Releases the instance, then the bundle.
    ~PlugIn();

    PlugIn(const PlugIn&) = delete;
    PlugIn& operator=(const PlugIn&) = delete;

    /// Calls the main entry with `block`.
    void call(ExternParmBlock& block);

private:
    const CFOwner<CFPlugInRef> m_bundle;
    XcodInstance* m_instance = nullptr;  // the first word of it is all that is known
};

}  // namespace Host

#endif
