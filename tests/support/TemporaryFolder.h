// A folder for the files of one test, gone with everything in it when the test ends, and a working folder.

#ifndef TESTS_SUPPORT_TEMPORARYFOLDER_H
#define TESTS_SUPPORT_TEMPORARYFOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "language-selector-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("there is no temporary folder to be had");
        m_path = std::filesystem::canonical(name);
    }

    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Its absolute path, without symbolic links.
    const std::filesystem::path& path() const { return m_path; }

    /// The path of `name` in it.
    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

    /// How many things are in it.
    std::size_t entries() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

    /// Makes the file `name` with these bytes, in a folder that is there, and returns its path.
    std::filesystem::path write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream file(m_path / name, std::ios::binary);
        if (!(file << bytes).flush())
            throw std::runtime_error("cannot write " + (m_path / name).string());
        return m_path / name;
    }
    std::filesystem::path write(const std::string& name, const std::vector<unsigned char>& bytes) const
    {
        return write(name, std::string(bytes.begin(), bytes.end()));
    }

    /// Makes the folder `name`, with those that lead to it, and returns its path.
    std::filesystem::path makeFolder(const std::string& name) const
    {
        std::filesystem::create_directories(m_path / name);
        return m_path / name;
    }

private:
    std::filesystem::path m_path;
};

/// Makes `folder` the working folder for as long as this lives.
class WorkingFolder {
public:
    explicit WorkingFolder(const std::filesystem::path& folder)
        : m_before(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }

    ~WorkingFolder() { std::filesystem::current_path(m_before); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    const std::filesystem::path m_before;
};

/// The bytes of `file`.
inline std::string contents(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

#endif
