#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"
#include "toolbox/base/files/FileReferences.h"

#include <filesystem>
#include <fstream>
#include <tuple>
#include <vector>

namespace fs = std::filesystem;

namespace {

// A folder of its own for each test, gone afterwards.
class CFURL : public CoreFoundationTest {
protected:
    const TemporaryFolder m_folder;
};

TEST_F(CFURL, HasThePathThatItWasMadeOf)
{
    const std::vector<std::pair<std::string, std::string>> PATHS = {
        {"/", "/"},
        {"//", "/"},
        {"/a", "/a"},
        {"/a/", "/a"},
        {"/a//", "/a"},
        {"/a/../b/.", "/a/../b/."},
        {"/with blank/\xC3\xA4%20", "/with blank/\xC3\xA4%20"},
    };
    for (const auto& [given, path] : PATHS)
        EXPECT_EQ(takePath(makeURL(given)), path) << given;
}

TEST_F(CFURL, TakesARelativePathFromTheWorkingDirectoryOfThatMoment)
{
    CFURLRef url = nullptr;
    {
        const WorkingFolder here(m_folder.path());
        url = makeURL("a/b");
    }
    EXPECT_EQ(takePath(url), m_folder / "a/b");
}

TEST_F(CFURL, IsNotMadeOfARelativePathWhenThereIsNoWorkingDirectory)
{
    const WorkingFolder gone(m_folder.makeFolder("gone"));
    fs::remove(m_folder / "gone");
    EXPECT_EQ(makeURL("a"), nullptr);
    EXPECT_EQ(takePath(makeURL("/a")), "/a");
}

TEST_F(CFURL, TakesOnlyTheBytesThatAreCountedAndNoWrongArguments)
{
    const auto* const path = reinterpret_cast<const UInt8*>("/abc");
    EXPECT_EQ(CFURLCreateFromFileSystemRepresentation(nullptr, nullptr, 2, false), nullptr);
    EXPECT_EQ(CFURLCreateFromFileSystemRepresentation(nullptr, path, 0, false), nullptr);
    EXPECT_EQ(CFURLCreateFromFileSystemRepresentation(nullptr, path, -1, false), nullptr);
    EXPECT_EQ(makeURL(std::string("/a\0b", 4)), nullptr);
    EXPECT_EQ(CFURLCreateFromFSRef(nullptr, nullptr), nullptr);
    EXPECT_EQ(takePath(CFURLCreateFromFileSystemRepresentation(nullptr, path, 3, false)), "/ab");
}

// clang-format off
const std::tuple<const char*, const char*, const char*, const char*> COMPONENT_CASES[] = {
    // name            base   component             path
    {"Name",           "/a",  "b",                  "/a/b"},
    {"AfterSlash",     "/a/", "b",                  "/a/b"},
    {"AfterRoot",      "/",   "b",                  "/b"},
    {"SlashInFront",   "/a",  "/b",                 "/a/b"},
    {"SlashAfterRoot", "/",   "/b",                 "/b"},
    {"SlashBehind",    "/a",  "b/",                 "/a/b"},
    {"Path",           "/a",  "b/c",                "/a/b/c"},
    {"Parent",         "/a",  "..",                 "/a/.."},
    {"Empty",          "/a",  "",                   "/a"},
    {"EmptyAfterRoot", "/",   "",                   "/"},
    {"Framework",      "/F",  "Security.framework", "/F/Security.framework"},
    {"Blank",          "/a",  "b c",                "/a/b c"},
};
// clang-format on

TEST_F(CFURL, TakesAComponentWithASlashWhereOneIsNeeded)
{
    for (const auto& [name, base, component, path] : COMPONENT_CASES) {
        const Owned url = makeURL(base);
        const Owned string = makeString(component);
        EXPECT_EQ(takePath(CFURLCreateCopyAppendingPathComponent(nullptr, url, string, false)), path) << name;
    }
}

TEST_F(CFURL, TakesAComponentThatIsNotASCIIAndNoneThatIsNoFileName)
{
    const Owned url = makeURL("/a");
    const Owned component = CFStringCreateWithCString(nullptr, "\x80", kCFStringEncodingMacRoman);
    EXPECT_EQ(takePath(CFURLCreateCopyAppendingPathComponent(nullptr, url, component, false)), "/a/\xC3\x84");
    const UniChar withZero[] = {'b', 0, 'c'};
    const UniChar halfAPair[] = {'b', 0xD800};
    const Owned zero = CFStringCreateWithCharacters(nullptr, withZero, 3);
    const Owned half = CFStringCreateWithCharacters(nullptr, halfAPair, 2);
    EXPECT_EQ(CFURLCreateCopyAppendingPathComponent(nullptr, url, zero, false), nullptr);
    EXPECT_EQ(CFURLCreateCopyAppendingPathComponent(nullptr, url, half, false), nullptr);
}

TEST_F(CFURL, NeedsAPlaceForWhatItGivesAndAFileForAReference)
{
    FSRef file;
    EXPECT_FALSE(CFURLGetFSRef(Owned(makeURL(m_folder / "missing")), &file));
    const Owned url = makeURL("/a");
    EXPECT_FALSE(CFURLGetFSRef(url, nullptr));
    EXPECT_FALSE(CFURLGetFileSystemRepresentation(url, true, nullptr, 8));
}

TEST_F(CFURL, GivesItsPathOnlyIntoABufferThatHoldsAllOfIt)
{
    const Owned url = makeURL("/abc");
    for (CFIndex size = -1; size < 5; ++size) {
        UInt8 path[8] = "xxxxxxx";
        EXPECT_FALSE(CFURLGetFileSystemRepresentation(url, true, path, size)) << size;
        EXPECT_STREQ(reinterpret_cast<char*>(path), "xxxxxxx") << size;
    }
    UInt8 path[8] = "xxxxxxx";
    EXPECT_TRUE(CFURLGetFileSystemRepresentation(url, false, path, 5));
    EXPECT_STREQ(reinterpret_cast<char*>(path), "/abc");
    EXPECT_EQ(path[5], 'x');
}

TEST_F(CFURL, IsEqualToAnotherOfTheSamePath)
{
    const Owned url = makeURL("/a");
    const Owned same = makeURL("/a/");
    const Owned other = makeURL("/b");
    EXPECT_TRUE(CFEqual(url, same));
    EXPECT_FALSE(CFEqual(url, other));
}

TEST_F(CFURL, ComesFromAReferenceToAFileOrFolderAndGoesBackToOne)
{
    std::ofstream(m_folder / "file") << "content";
    for (const fs::path& path : {m_folder / "file", m_folder.path()}) {
        FSRef reference;
        ASSERT_EQ(Toolbox::makeFileReference(path, &reference), noErr);
        const Owned url = CFURLCreateFromFSRef(kCFAllocatorSystemDefault, &reference);
        EXPECT_TRUE(CFEqual(url, Owned(makeURL(path)))) << path;
        FSRef again;
        ASSERT_TRUE(CFURLGetFSRef(url, &again));
        EXPECT_EQ(Toolbox::pathOf(&again), path.string());
    }
}

}  // namespace
