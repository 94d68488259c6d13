#include "toolbox/core/core_foundation/URLObject.h"

#include "toolbox/core/core_foundation/Quoted.h"

#include <string>

namespace Toolbox {

namespace {

std::filesystem::path withoutSlashAtEnd(const std::filesystem::path& path)
{
    std::string text = path.native();
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return text;
}

}  // namespace

URLObject::URLObject(const std::filesystem::path& path, bool isFolder)
    : m_path(withoutSlashAtEnd(path))
    , m_isFolder(isFolder)
{
}

bool URLObject::equals(const CFObject& other) const
{
    const auto* const url = dynamic_cast<const URLObject*>(&other);
    return url != nullptr && url->m_path.native() == m_path.native() && url->m_isFolder == m_isFolder;
}

std::string URLObject::traceName() const
{
    return quoted(QString::fromStdString(m_path.native()));
}

CFURLRef createURL(const std::filesystem::path& path, bool isFolder)
{
    return path.empty() ? nullptr : referenceTo<CFURLRef>(*new URLObject(path, isFolder));
}

}  // namespace Toolbox
