// A folder for the files of one test, gone with everything in it when the test ends.

#ifndef TESTS_TOOLBOX_BASE_TEMPORARY_FOLDER_H
#define TESTS_TOOLBOX_BASE_TEMPORARY_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "toolbox_test_XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        m_path = name;
    }

    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The absolute path of the folder, or of `name` in it.
    std::string path() const { return m_path.string(); }
    std::string path(const std::string& name) const { return (m_path / name).string(); }

    /// Writes a file and returns its path.
    std::string write(const std::string& name, const std::vector<unsigned char>& bytes) const
    {
        std::ofstream file(path(name), std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush())
            throw std::runtime_error("cannot write " + path(name));
        return path(name);
    }

    /// Makes a folder in it and returns its path.
    std::string makeFolder(const std::string& name) const
    {
        std::filesystem::create_directories(m_path / name);
        return path(name);
    }

private:
    std::filesystem::path m_path;
};

#endif
