// The application whose part the host plays: its bundle, and its resource file at the top of the resource chain.

#ifndef HOST_INSTALLER_H
#define HOST_INSTALLER_H

#include <Carbon/Carbon.h>

#include <filesystem>
#include <optional>
#include <string>

namespace Host {

class Installer {
public:
    /// Makes the bundle in `folder` the main bundle and opens `resourceFile`, or, if none is named, the bundle's own:
    /// the one named after the bundle, with "rsrc" in place of "app". A bundle need not have one. Throws Problem.
    Installer(const std::filesystem::path& folder, const std::optional<std::string>& resourceFile);

    /// Closes the resource file.
    ~Installer();

    Installer(const Installer&) = delete;
    Installer& operator=(const Installer&) = delete;

    /// Has the external ask for the administrator's right, by the flag in 'CALL' 1000 that is set in memory; the file
    /// stays as it is. Throws Problem when there is no such resource or it is too short for the flag.
    void requireAdministrator();

    /// The external that the application brings along; a link that leads out of the application does not count. Throws
    /// Problem when it has none, or more than one.
    std::filesystem::path builtInExternal() const;

private:
    const std::filesystem::path m_folder;
    std::optional<SInt16> m_resourceFile;  // open
};

}  // namespace Host

#endif
