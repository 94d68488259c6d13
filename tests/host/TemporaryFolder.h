// A folder for a test's files, which goes with the test.

#ifndef TESTS_HOST_TEMPORARYFOLDER_H
#define TESTS_HOST_TEMPORARYFOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "visex-host-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("there is no temporary folder to be had");
        m_path = name;
    }

    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

    /// How many things are in it.
    std::size_t entries() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

    /// Makes the file `name` with this text, and returns its path.
    std::filesystem::path write(const std::string& name, const std::string& text) const
    {
        std::ofstream(m_path / name, std::ios::binary) << text;
        return m_path / name;
    }

private:
    std::filesystem::path m_path;
};

/// The bytes of `file`.
inline std::string contents(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

#endif
