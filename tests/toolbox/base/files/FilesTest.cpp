#include "tests/support/TemporaryFolder.h"
#include "toolbox/base/files/FileErrors.h"
#include "toolbox/base/files/FileReferences.h"
#include "toolbox/base/files/InputFile.h"

#include <Carbon/Folders.h>
#include <Toolbox/Application.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Toolbox::makeFileReference;
using Toolbox::pathOf;

bool isAllZero(const FSRef& reference)
{
    return std::all_of(std::begin(reference.hidden), std::end(reference.hidden), [](UInt8 byte) { return byte == 0; });
}

bool areEqual(const FSRef& one, const FSRef& other)
{
    return std::memcmp(&one, &other, sizeof one) == 0;
}

FSRef garbage()
{
    FSRef reference;
    std::fill(std::begin(reference.hidden), std::end(reference.hidden), UInt8(0xA5));
    return reference;
}

// Makes `folder` the working directory for as long as this lives.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::string& folder)
        : m_before(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }

    ~WorkingDirectory() { std::filesystem::current_path(m_before); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    const std::filesystem::path m_before;
};

TEST(FileReference, GivesItsPathBack)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("a file", "");
    for (const std::string& path : {file, folder.path().string(), std::string("/")}) {
        FSRef reference = garbage();
        EXPECT_EQ(makeFileReference(path, &reference), noErr);
        EXPECT_EQ(pathOf(&reference), path);
    }
}

TEST(FileReference, HoldsAPathLongerThanItself)
{
    const TemporaryFolder folder;
    const std::string path = folder.makeFolder(std::string(200, 'x') + "/" + std::string(200, 'y'));
    FSRef reference;
    EXPECT_EQ(makeFileReference(path, &reference), noErr);
    EXPECT_EQ(pathOf(&reference), path);
}

TEST(FileReference, IsTheSameForTheSamePathAndAnotherForAnother)
{
    const TemporaryFolder folder;
    FSRef first;
    FSRef again;
    FSRef other;
    makeFileReference(folder.write("first", ""), &first);
    makeFileReference(folder.write("other", ""), &other);
    makeFileReference(folder / "first", &again);
    EXPECT_TRUE(areEqual(first, again));
    EXPECT_FALSE(areEqual(first, other));
}

TEST(FileReference, IsCopiedFreely)
{
    const TemporaryFolder folder;
    FSRef reference;
    makeFileReference(folder.path(), &reference);
    const FSRef copy = reference;
    reference = garbage();
    EXPECT_EQ(pathOf(&copy), folder.path());
}

TEST(FileReference, KeepsItsPathWhenTheFileIsGone)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "");
    FSRef reference;
    makeFileReference(path, &reference);
    std::filesystem::remove(path);
    EXPECT_EQ(pathOf(&reference), path);
}

TEST(FileReference, ToARelativePathStaysWhereItWas)
{
    const TemporaryFolder folder;
    folder.write("file", "");
    FSRef reference;
    {
        const WorkingDirectory here(folder.path());
        EXPECT_EQ(makeFileReference("file", &reference), noErr);
    }
    EXPECT_EQ(pathOf(&reference), folder / "file");
}

TEST(FileReference, KeepsSymbolicLinksAsTheyWereNamed)
{
    const TemporaryFolder folder;
    std::filesystem::create_symlink(folder.makeFolder("target"), folder / "link");
    FSRef reference;
    EXPECT_EQ(makeFileReference(folder / "link", &reference), noErr);
    EXPECT_EQ(pathOf(&reference), folder / "link");
}

TEST(FileReference, IsNotMadeOfWhatIsNotThere)
{
    const TemporaryFolder folder;
    folder.write("file", "");
    std::filesystem::create_symlink("nowhere", folder / "dangling");
    std::filesystem::create_symlink("circle", folder / "circle");
    const std::string missing[] = {
        "",
        folder / "missing",
        folder / "missing/further",
        folder / "file/further",
        folder / "dangling",
        folder / "circle",
        folder / std::string(300, 'x'),
        (folder / "file").string() + '\0' + "x",
    };
    for (const std::string& path : missing) {
        FSRef reference = garbage();
        EXPECT_EQ(makeFileReference(path, &reference), fnfErr) << path;
        EXPECT_TRUE(isAllZero(reference)) << path;
    }
}

TEST(FileReference, IsNotMadeInAWorkingDirectoryThatIsGone)
{
    const TemporaryFolder folder;
    const std::string gone = folder.makeFolder("gone");
    const WorkingDirectory here(gone);
    std::filesystem::remove(gone);
    FSRef reference = garbage();
    EXPECT_EQ(makeFileReference(".", &reference), fnfErr);
    EXPECT_TRUE(isAllZero(reference));
}

TEST(FileReference, OfAnotherMakeHasNoPath)
{
    const TemporaryFolder folder;
    FSRef good;
    makeFileReference(folder.path(), &good);
    EXPECT_EQ(pathOf(nullptr), std::nullopt);
    const FSRef zero = {};
    EXPECT_EQ(pathOf(&zero), std::nullopt);
    const FSRef bad = garbage();
    EXPECT_EQ(pathOf(&bad), std::nullopt);
    for (UInt8& byte : good.hidden) {
        const UInt8 before = byte;
        for (unsigned value = 0; value < 256; ++value) {
            byte = static_cast<UInt8>(value);
            EXPECT_EQ(pathOf(&good) == folder.path(), byte == before) << "byte " << &byte - good.hidden;
        }
        byte = before;
    }
    EXPECT_EQ(pathOf(&good), folder.path());
}

TEST(FileError, IsTheFileManagersWordForTheSystems)
{
    const std::pair<int, OSErr> errors[] = {
        {ENOENT, fnfErr},
        {ENOTDIR, fnfErr},
        {ENAMETOOLONG, fnfErr},
        {ELOOP, fnfErr},
        {EACCES, permErr},
        {EPERM, permErr},
        {EMFILE, tmfoErr},
        {ENFILE, tmfoErr},
        {EIO, ioErr},
        {EISDIR, ioErr},
        {ENXIO, ioErr},
    };
    for (const auto& [error, code] : errors)
        EXPECT_EQ(Toolbox::fileError(error), code) << error;
}

TEST(InputFile, ReadsAnyPart)
{
    const TemporaryFolder folder;
    Toolbox::InputFile file;
    ASSERT_EQ(file.open(folder.write("file", "abcd")), noErr);
    EXPECT_EQ(file.length(), 4u);
    const std::vector<UInt8> whole = {'a', 'b', 'c', 'd'};
    for (std::size_t offset = 0; offset <= 5; ++offset) {
        for (std::size_t count = 0; count <= 5; ++count) {
            std::vector<UInt8> bytes = {'x', 'x', 'x', 'x', 'x', 'x', 'x'};
            EXPECT_EQ(file.read(offset, count, &bytes), noErr);
            const std::size_t start = std::min<std::size_t>(offset, 4);
            const std::size_t end = std::min<std::size_t>(offset + count, 4);
            const std::vector<UInt8> expected(
                whole.begin() + std::ptrdiff_t(start), whole.begin() + std::ptrdiff_t(std::max(start, end)));
            EXPECT_EQ(bytes, expected) << count << " from " << offset;
        }
    }
}

TEST(InputFile, IsARegularFile)
{
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const std::filesystem::path& path : {folder.path(), folder / "pipe", std::filesystem::path("/dev/null")})
        EXPECT_EQ(Toolbox::InputFile().open(path), ioErr) << path;
    EXPECT_EQ(Toolbox::InputFile().open(folder / "missing"), fnfErr);
}

TEST(InputFile, IsClosedWhenItGoes)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "");
    const int before = dup(0);
    close(before);
    for (int i = 0; i < 10; ++i) {
        Toolbox::InputFile().open(path);
        Toolbox::InputFile().open(folder.path());
    }
    const int after = dup(0);
    close(after);
    EXPECT_EQ(after, before) << "no descriptor is left open";
}

// Names no frameworks folder again when it ends.
class FindFolder : public testing::Test {
protected:
    ~FindFolder() override { Toolbox::SetFrameworksFolder(""); }
    const TemporaryFolder m_folder;
};

TEST_F(FindFolder, FindsTheFrameworksFolderUnderEitherDomainNumber)
{
    const std::string frameworks = m_folder.makeFolder("Frameworks");
    Toolbox::SetFrameworksFolder(frameworks);
    for (const int domain : {int(kSystemDomain), int(kOnAppropriateDisk), -32766, -32767}) {
        for (const bool create : {false, true}) {
            FSRef folder = garbage();
            EXPECT_EQ(FSFindFolder(SInt16(domain), kFrameworksFolderType, create, &folder), noErr);
            EXPECT_EQ(pathOf(&folder), frameworks);
        }
    }
}

struct FindFolderCase {
    const char* name;
    SInt16 domain;
    OSType type;
    OSErr result;
};

const FindFolderCase FIND_FOLDER_CASES[] = {
    {"OnSystemDisk", -32768, 'fram', nsvErr},
    {"LocalDomain", -32765, 'fram', nsvErr},
    {"UserDomain", -32763, 'fram', nsvErr},
    {"Volume0", 0, 'fram', nsvErr},
    {"Volume1", 1, 'fram', nsvErr},
    {"Volume32767", 32767, 'fram', nsvErr},
    {"Preferences", kSystemDomain, 'pref', invalidFolderTypeErr},
    {"TypeInUpperCase", kSystemDomain, 'FRAM', invalidFolderTypeErr},
    {"TypeZero", kOnAppropriateDisk, 0, invalidFolderTypeErr},
    {"BothWrong", 0, 0, nsvErr},
};

TEST_F(FindFolder, RefusesOtherDomainsAndTypes)
{
    Toolbox::SetFrameworksFolder(m_folder.path());
    for (const FindFolderCase& row : FIND_FOLDER_CASES) {
        FSRef folder = garbage();
        EXPECT_EQ(FSFindFolder(row.domain, row.type, kDontCreateFolder, &folder), row.result) << row.name;
        EXPECT_TRUE(isAllZero(folder)) << row.name;
    }
}

TEST_F(FindFolder, RefusesANullResult)
{
    Toolbox::SetFrameworksFolder(m_folder.path());
    EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kCreateFolder, nullptr), paramErr);
}

TEST_F(FindFolder, NeverCreatesTheFolder)
{
    const std::string absent = m_folder / "Frameworks";
    Toolbox::SetFrameworksFolder(absent);
    FSRef folder = garbage();
    EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kCreateFolder, &folder), fnfErr);
    EXPECT_TRUE(isAllZero(folder));
    EXPECT_FALSE(std::filesystem::exists(absent));
}

TEST_F(FindFolder, LooksWhenItIsAsked)
{
    Toolbox::SetFrameworksFolder(m_folder / "Frameworks");
    FSRef folder;
    EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kDontCreateFolder, &folder), fnfErr);
    m_folder.makeFolder("Frameworks");
    EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kDontCreateFolder, &folder), noErr);
}

TEST_F(FindFolder, TakesAFileForNoFolder)
{
    Toolbox::SetFrameworksFolder(m_folder.write("Frameworks", ""));
    FSRef folder;
    EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kDontCreateFolder, &folder), fnfErr);
}

TEST_F(FindFolder, FollowsALinkAsTheHostNamedIt)
{
    std::filesystem::create_symlink(m_folder.makeFolder("target"), m_folder / "Frameworks");
    Toolbox::SetFrameworksFolder(m_folder / "Frameworks");
    FSRef folder;
    EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kDontCreateFolder, &folder), noErr);
    EXPECT_EQ(pathOf(&folder), m_folder / "Frameworks");
}

TEST_F(FindFolder, KnowsNoFolderThatTheHostDidNotName)
{
    const WorkingDirectory here(m_folder.path());
    m_folder.makeFolder("Frameworks");
    for (const char* unnamed : {"", "\0"}) {
        Toolbox::SetFrameworksFolder(unnamed);
        FSRef folder = garbage();
        EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kCreateFolder, &folder), fnfErr);
        EXPECT_TRUE(isAllZero(folder));
    }
}

TEST_F(FindFolder, StaysWithTheFolderThatARelativePathNamed)
{
    const std::string frameworks = m_folder.makeFolder("Frameworks");
    {
        const WorkingDirectory here(m_folder.path());
        Toolbox::SetFrameworksFolder("Frameworks");
    }
    FSRef folder;
    EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kDontCreateFolder, &folder), noErr);
    EXPECT_EQ(pathOf(&folder), frameworks);
}

}  // namespace
