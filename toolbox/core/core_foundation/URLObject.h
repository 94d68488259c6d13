// The object behind a CFURLRef: the absolute path of a file or folder.

#ifndef TOOLBOX_CORE_CORE_FOUNDATION_URLOBJECT_H
#define TOOLBOX_CORE_CORE_FOUNDATION_URLOBJECT_H

#include "toolbox/core/core_foundation/CFObject.h"

#include <CoreFoundation/CFURL.h>

#include <filesystem>

namespace Toolbox {

class URLObject : public CFObject {
public:
    /// The URL of `path`, which is absolute. Nobody looks whether it is there.
    explicit URLObject(const std::filesystem::path& path);

    /// The path, without a slash at its end (but for the root's).
    const std::filesystem::path& path() const { return m_path; }

    /// Whether `other` names the same path.
    bool equals(const CFObject& other) const override;

    /// The path, quoted.
    std::string traceName() const override;

private:
    const std::filesystem::path m_path;
};

/// A new URL, the caller's, of `path`; null for an empty path.
CFURLRef createURL(const std::filesystem::path& path);

}  // namespace Toolbox

#endif
