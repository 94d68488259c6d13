// What tests of bundles share: a folder for each test, in which bundles are made file by file.

#ifndef TESTS_TOOLBOX_CORE_BUNDLES_BUNDLETEST_H
#define TESTS_TOOLBOX_CORE_BUNDLES_BUNDLETEST_H

#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace fs = std::filesystem;

/// The folder of executables in "Contents".
constexpr const char* PLATFORM_FOLDER = "Linux";

/// Makes the file `file`, with the folders that lead to it.
inline void writeFile(const fs::path& file, const std::string& content = "content")
{
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
}

/// A property list whose dictionary has these entries, in XML.
inline std::string propertyList(const std::string& entries)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\"><dict>"
        + entries + "</dict></plist>\n";
}

/// The entry of `key` with the string `text`.
inline std::string stringEntry(const std::string& key, const std::string& text)
{
    return "<key>" + key + "</key><string>" + text + "</string>";
}

/// Makes a bundle without code in `folder`, with these entries in its Info.plist.
inline void makeBundle(const fs::path& folder, const std::string& entries)
{
    writeFile(folder / "Contents/Info.plist", propertyList(entries));
    fs::create_directories(folder / "Contents" / PLATFORM_FOLDER);
}

/// The bundle in `folder`, the caller's.
inline CFBundleRef createBundle(const fs::path& folder)
{
    return CFBundleCreate(nullptr, Owned(makeURL(folder)));
}

/// A test with a folder of its own.
template <typename Test> class TestInAFolder : public Test {
protected:
    /// The path `name` in the test's folder.
    fs::path in(const std::string& name) const { return m_folder.path() / name; }

private:
    const TemporaryFolder m_folder;
};

/// One that leaves as many Core Foundation objects as it found.
using BundleTest = TestInAFolder<CoreFoundationTest>;

#endif
