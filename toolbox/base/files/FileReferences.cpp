#include "toolbox/base/files/FileReferences.h"

#include "toolbox/base/NeverDestroyed.h"
#include "toolbox/base/files/InputFile.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <unordered_map>
#include <vector>

namespace Toolbox {

namespace {

// What lies in an FSRef's bytes; the rest of them is zero.
struct Token {
    UInt32 tag;
    UInt32 number;  // from 1
};

constexpr UInt32 TOKEN_TAG = 'fref';

FSRef referenceOf(UInt32 number)
{
    const Token token = {TOKEN_TAG, number};
    FSRef reference = {};
    static_assert(sizeof token <= sizeof reference.hidden, "a token lies within a reference");
    std::memcpy(reference.hidden, &token, sizeof token);
    return reference;
}

// Paths are kept for good: nobody tells when the last copy of a reference is gone.
class Paths {
public:
    UInt32 numberOf(const std::string& path)
    {
        const auto [known, isNew] = m_numbers.try_emplace(path, static_cast<UInt32>(m_paths.size() + 1));
        if (isNew)
            m_paths.push_back(path);
        return known->second;
    }

    std::optional<std::string> path(UInt32 number) const
    {
        return number == 0 || number > m_paths.size() ? std::nullopt : std::optional(m_paths[number - 1]);
    }

private:
    std::vector<std::string> m_paths;
    std::unordered_map<std::string, UInt32> m_numbers;
};

Paths& paths()
{
    return neverDestroyed<struct AllPaths, Paths>();
}

OSErr checkExists(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        return fnfErr;
    struct stat facts;
    if (stat(path.c_str(), &facts) != 0)
        return fileError(errno);
    return noErr;
}

}  // namespace

OSErr makeFileReference(const std::string& path, FSRef* reference)
{
    *reference = {};
    const OSErr result = checkExists(path);
    if (result != noErr)
        return result;
    std::error_code noWorkingFolder;
    const std::filesystem::path absolute = std::filesystem::absolute(path, noWorkingFolder);
    if (noWorkingFolder)
        return fnfErr;
    *reference = referenceOf(paths().numberOf(absolute.string()));
    return noErr;
}

std::optional<std::string> pathOf(const FSRef* reference)
{
    if (reference == nullptr)
        return std::nullopt;
    Token token;
    std::memcpy(&token, reference->hidden, sizeof token);
    const FSRef expected = referenceOf(token.number);
    if (std::memcmp(&expected, reference, sizeof expected) != 0)
        return std::nullopt;
    return paths().path(token.number);
}

}  // namespace Toolbox
