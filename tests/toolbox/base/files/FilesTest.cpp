#include "tests/support/TemporaryFolder.h"
#include "toolbox/base/files/FileReferences.h"
#include "toolbox/base/files/InputFile.h"

#include <Carbon/Folders.h>
#include <Toolbox/Application.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

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

TEST(FileReference, GivesItsPathBack)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("a file", "");
    const std::string longer = folder.makeFolder(std::string(200, 'x') + "/" + std::string(200, 'y'));
    const std::string link = folder / "link";
    std::filesystem::create_symlink(file, link);
    for (const std::string& path : {folder.path().string(), std::string("/"), longer, link, file}) {
        FSRef reference = garbage();
        EXPECT_EQ(makeFileReference(path, &reference), noErr);
        if (path == file)
            std::filesystem::remove(path);
        const FSRef copy = reference;
        reference = garbage();
        EXPECT_EQ(pathOf(&copy), path);
    }
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

TEST(FileReference, ToARelativePathStaysWhereItWas)
{
    const TemporaryFolder folder;
    folder.write("file", "");
    FSRef reference;
    {
        const WorkingFolder here(folder.path());
        EXPECT_EQ(makeFileReference("file", &reference), noErr);
    }
    EXPECT_EQ(pathOf(&reference), folder / "file");
}

TEST(FileReference, IsNotMadeOfWhatIsNotThereNorInAWorkingDirectoryThatIsGone)
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
        ".",
    };
    const WorkingFolder gone(folder.makeFolder("gone"));
    std::filesystem::remove(folder / "gone");
    for (const std::string& path : missing) {
        FSRef reference = garbage();
        EXPECT_EQ(makeFileReference(path, &reference), fnfErr) << path;
        EXPECT_TRUE(isAllZero(reference)) << path;
        EXPECT_EQ(makeFileReference(folder / "file", &reference), noErr) << "this is there";
    }
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
    const std::pair<int, OSErr> errors[] = {{ENOENT, fnfErr}, {ENOTDIR, fnfErr}, {ENAMETOOLONG, fnfErr},
        {ELOOP, fnfErr}, {EACCES, permErr}, {EPERM, permErr}, {EMFILE, tmfoErr}, {ENFILE, tmfoErr}, {EIO, ioErr},
        {EISDIR, ioErr}, {ENXIO, ioErr}};
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

using Found = std::pair<OSErr, std::optional<std::string>>;

// Names no frameworks folder again when it ends.
class FindFolder : public testing::Test {
protected:
    ~FindFolder() override { Toolbox::SetFrameworksFolder(""); }

    // What FSFindFolder says, and the path of the folder that it gives; if none, it must give zeros.
    static Found find(int domain = kSystemDomain, OSType type = kFrameworksFolderType, bool create = false)
    {
        FSRef folder = garbage();
        const OSErr result = FSFindFolder(SInt16(domain), type, create, &folder);
        EXPECT_EQ(isAllZero(folder), result != noErr);
        return {result, pathOf(&folder)};
    }

    const TemporaryFolder m_folder;
};

TEST_F(FindFolder, FindsTheFrameworksFolderUnderEitherDomainNumber)
{
    const std::string frameworks = m_folder.makeFolder("Frameworks");
    Toolbox::SetFrameworksFolder(frameworks);
    for (const int domain : {int(kSystemDomain), int(kOnAppropriateDisk), -32766, -32767}) {
        for (const bool create : {false, true})
            EXPECT_EQ(find(domain, kFrameworksFolderType, create), Found(noErr, frameworks));
    }
}

TEST_F(FindFolder, RefusesOtherDomainsAndTypes)
{
    Toolbox::SetFrameworksFolder(m_folder.path());
    for (const int domain : {-32768, -32765, -32763, 0, 1, 32767}) {
        EXPECT_EQ(find(domain).first, nsvErr) << domain;
        EXPECT_EQ(find(domain, 0).first, nsvErr) << domain;
    }
    for (const OSType type : {OSType('pref'), OSType('FRAM'), OSType(0)})
        EXPECT_EQ(find(kSystemDomain, type).first, invalidFolderTypeErr) << type;
    EXPECT_EQ(FSFindFolder(kSystemDomain, kFrameworksFolderType, kCreateFolder, nullptr), paramErr);
}

TEST_F(FindFolder, NeverCreatesTheFolderAndLooksWhenItIsAsked)
{
    const std::string frameworks = m_folder / "Frameworks";
    Toolbox::SetFrameworksFolder(frameworks);
    EXPECT_EQ(find(kSystemDomain, kFrameworksFolderType, kCreateFolder).first, fnfErr);
    EXPECT_FALSE(std::filesystem::exists(frameworks));
    m_folder.write("Frameworks", "");
    EXPECT_EQ(find().first, fnfErr) << "a file is no folder";
    std::filesystem::remove(frameworks);
    std::filesystem::create_symlink(m_folder.makeFolder("target"), frameworks);
    EXPECT_EQ(find(), Found(noErr, frameworks)) << "the link as it was named";
}

TEST_F(FindFolder, KnowsNoFolderThatTheHostDidNotName)
{
    const WorkingFolder here(m_folder.path());
    m_folder.makeFolder("Frameworks");
    for (const char* unnamed : {"", "\0"}) {
        Toolbox::SetFrameworksFolder(unnamed);
        EXPECT_EQ(find().first, fnfErr);
    }
}

TEST_F(FindFolder, StaysWithTheFolderThatARelativePathNamed)
{
    const std::string frameworks = m_folder.makeFolder("Frameworks");
    {
        const WorkingFolder here(m_folder.path());
        Toolbox::SetFrameworksFolder("Frameworks");
    }
    EXPECT_EQ(find(), Found(noErr, frameworks));
}

}  // namespace
