// The loaded code of a bundle.

#ifndef TOOLBOX_CORE_BUNDLES_EXECUTABLE_H
#define TOOLBOX_CORE_BUNDLES_EXECUTABLE_H

#include <filesystem>
#include <string>

namespace Toolbox {

/// An executable, once it is loaded. What was loaded stays so until the process ends: somebody may hold its functions.
class Executable {
public:
    /// Loads the executable `file`, an absolute path; none must be loaded. Its names stay its own. Code in it may run.
    /// False when the system refuses it, with the reason in `*reason`, a clause.
    bool load(const std::filesystem::path& file, std::string* reason);

    bool isLoaded() const { return m_handle != nullptr; }

    /// The function or datum `name` that this executable itself exports; those of the libraries that it uses do not
    /// count. Null when it has none, or is not loaded.
    void* find(const std::string& name) const;

private:
    void* m_handle = nullptr;
};

}  // namespace Toolbox

#endif
