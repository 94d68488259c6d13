#include "tests/support/Allocations.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/base/resources/ResourceFork.h"
#include "toolbox/base/files/FileReferences.h"

#include <Carbon/MacMemory.h>
#include <Carbon/Resources.h>
#include <Toolbox/LiveObjects.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace {

// Opens files, and closes those that a test left open.
class ResourceManager : public testing::Test {
protected:
    ~ResourceManager() override
    {
        for (const SInt16 refNum : m_open)
            CloseResFile(refNum);
        for (const char* kind : {"handle", "resource file"})
            EXPECT_EQ(alive(kind), 0u) << kind;
    }

    FSRef write(const Bytes& bytes)
    {
        FSRef reference;
        const std::string name = "file" + std::to_string(m_files++);
        EXPECT_EQ(Toolbox::makeFileReference(m_folder.write(name, bytes), &reference), noErr);
        return reference;
    }

    FSRef write(const std::vector<TestResource>& resources) { return write(makeFork(resources).bytes()); }

    // Whether the file can be opened; it must have a number then.
    OSErr tryToOpen(const FSRef* file, int permissions = fsRdPerm)
    {
        m_last = 0;
        const OSErr result = FSOpenResourceFile(file, 0, nullptr, SInt8(permissions), &m_last);
        EXPECT_EQ(m_last == kResFileNotOpened, result != noErr);
        if (result == noErr)
            m_open.insert(m_last);
        return result;
    }

    SInt16 open(const FSRef& file)
    {
        EXPECT_EQ(tryToOpen(&file), noErr);
        return m_last;
    }

    SInt16 open(const std::vector<TestResource>& resources) { return open(write(resources)); }

    // How many there are that were not there before the test.
    std::size_t alive(const char* kind) { return Toolbox::CountLiveObjects()[kind] - m_before[kind]; }

    static std::string dataOf(Handle handle)
    {
        return handle == nullptr ? "(null)" : std::string(*handle, std::size_t(GetHandleSize(handle)));
    }

    const TemporaryFolder m_folder;

private:
    std::map<std::string, std::size_t> m_before = Toolbox::CountLiveObjects();
    int m_files = 0;
    SInt16 m_last = 0;
    std::set<SInt16> m_open;
};

TEST_F(ResourceManager, GetsTheDataOfAResource)
{
    open({{'CALL', 1000, "data"}, {'CALL', -5, ""}, {'ALRT', 1000, {"a\0b", 3}}});
    EXPECT_EQ(dataOf(GetResource('CALL', 1000)), "data");
    EXPECT_EQ(dataOf(GetResource('ALRT', 1000)), std::string("a\0b", 3));
    EXPECT_EQ(dataOf(GetResource('CALL', -5)), "");
}

TEST_F(ResourceManager, GivesTheSameHandleUntilItIsReleased)
{
    open({{'CALL', 1, "below"}});
    open({{'CALL', 1, "one"}, {'CALL', 2, "two"}});
    const Handle first = GetResource('CALL', 1);
    (*first)[0] = 'O';
    EXPECT_EQ(GetResource('CALL', 1), first);
    EXPECT_EQ(dataOf(GetResource('CALL', 1)), "One") << "what was written stays while the handle lives";
    EXPECT_NE(GetResource('CALL', 2), first);

    EXPECT_EQ(alive("handle"), 2u);
    ReleaseResource(first);
    EXPECT_EQ(alive("handle"), 1u);
    EXPECT_EQ(GetHandleSize(first), 0) << "the handle is dead";
    ReleaseResource(first);
    EXPECT_EQ(dataOf(GetResource('CALL', 1)), "one") << "read anew";
}

TEST_F(ResourceManager, KeepsAChangedResource)
{
    open({{'CALL', 1, "below"}});
    open({{'CALL', 1, "one"}});
    const Handle handle = GetResource('CALL', 1);
    (*handle)[0] = 'O';
    (*handle)[401] = '\x80';
    ChangedResource(handle);
    for (int round = 0; round < 2; ++round) {
        ReleaseResource(handle);
        EXPECT_EQ(GetResource('CALL', 1), handle);
        EXPECT_EQ(dataOf(handle), "One");
        EXPECT_EQ((*handle)[401], '\x80');
    }
}

TEST_F(ResourceManager, ForgetsChangesWhenTheFileIsClosed)
{
    const FSRef file = write({{'CALL', 1, "one"}});
    const SInt16 refNum = open(file);
    const Handle handle = GetResource('CALL', 1);
    (*handle)[0] = 'O';
    ChangedResource(handle);
    CloseResFile(refNum);
    EXPECT_EQ(GetHandleSize(handle), 0) << "closing frees the handles";
    open(file);
    EXPECT_EQ(dataOf(GetResource('CALL', 1)), "one") << "files are only ever read";
}

TEST_F(ResourceManager, FindsNothingOfAnotherTypeOrId)
{
    open({{'ALRT', 1, "alert"}});
    open({{'CALL', 1, "call"}});
    for (const int id : {2, 0, -32768})
        EXPECT_EQ(GetResource('CALL', SInt16(id)), nullptr) << id;
    for (const ResType type : {ResType('DITL'), ResType('call'), ResType(0), ResType(0xFFFFFFFF)})
        EXPECT_EQ(GetResource(type, 1), nullptr) << type;
    EXPECT_EQ(GetResource('ALRT', 2), nullptr);
}

TEST_F(ResourceManager, DoesNotGiveACompressedResource)
{
    open({{'CALL', 1, "below"}});
    open({{'CALL', 1, "packed", 1}, {'CALL', 2, "plain", 0xFE}});
    EXPECT_EQ(GetResource('CALL', 1), nullptr) << "nor one from the file below in its place";
    EXPECT_EQ(dataOf(GetResource('CALL', 2)), "plain");
}

TEST_F(ResourceManager, SearchesTheNewestFileFirst)
{
    const SInt16 first = open({{'CALL', 1, "first 1"}, {'CALL', 2, "first 2"}, {'CALL', 3, "first 3"}});
    const SInt16 second = open({{'CALL', 1, "second 1"}, {'CALL', 2, "second 2"}});
    const SInt16 third = open({{'CALL', 1, "third 1"}});
    EXPECT_EQ(dataOf(GetResource('CALL', 1)), "third 1");
    EXPECT_EQ(dataOf(GetResource('CALL', 2)), "second 2");
    EXPECT_EQ(dataOf(GetResource('CALL', 3)), "first 3");

    CloseResFile(second);
    EXPECT_EQ(dataOf(GetResource('CALL', 1)), "third 1") << "the current file is still the newest";
    EXPECT_EQ(dataOf(GetResource('CALL', 2)), "first 2");
    CloseResFile(third);
    EXPECT_EQ(dataOf(GetResource('CALL', 1)), "first 1") << "the one opened before it is current now";
    CloseResFile(first);
    EXPECT_EQ(GetResource('CALL', 1), nullptr);
}

TEST_F(ResourceManager, KeepsTheHandlesOfEachOpeningApart)
{
    const FSRef file = write({{'CALL', 1, "one"}});
    const SInt16 first = open(file);
    const Handle lower = GetResource('CALL', 1);
    const SInt16 second = open(file);
    EXPECT_NE(first, second);
    EXPECT_NE(GetResource('CALL', 1), lower);
    CloseResFile(second);
    EXPECT_EQ(GetResource('CALL', 1), lower);
    open(file);
    ReleaseResource(lower);
    EXPECT_EQ(alive("handle"), 0u) << "a handle is known whichever file is current";
}

TEST_F(ResourceManager, ClosesAFileOnceAndNoOther)
{
    const SInt16 refNum = open({{'CALL', 1, "one"}});
    for (const int wrong : {-32768, -1, 0, refNum - 1, refNum + 1, 32767})
        CloseResFile(SInt16(wrong));
    EXPECT_EQ(dataOf(GetResource('CALL', 1)), "one");
    EXPECT_EQ(alive("resource file"), 1u);
    CloseResFile(refNum);
    EXPECT_EQ(alive("resource file"), 0u);
    EXPECT_EQ(alive("handle"), 0u);
    CloseResFile(refNum);
}

TEST_F(ResourceManager, GivesTheNumberOfAClosedFileAgainWhenAllOthersWereGiven)
{
    const FSRef file = write({{'CALL', 1, "one"}});
    const SInt16 kept = open(file);
    SInt16 last = kept;
    for (int i = 0; i < 33000; ++i) {
        const SInt16 refNum = open(file);
        ASSERT_GT(refNum, 0);
        ASSERT_NE(refNum, kept);
        ASSERT_NE(refNum, last);
        last = refNum;
        CloseResFile(refNum);
    }
}

TEST_F(ResourceManager, OpensNoMoreThan256Files)
{
    const FSRef file = write({{'CALL', 1, "one"}});
    for (int i = 0; i < 256; ++i)
        open(file);
    EXPECT_EQ(tryToOpen(&file), tmfoErr);
}

TEST_F(ResourceManager, KnowsNoForkByName)
{
    const FSRef file = write({{'CALL', 1, "one"}});
    const std::u16string name = u"RESOURCE_FORK";
    SInt16 refNum = 0;
    EXPECT_EQ(FSOpenResourceFile(&file, 1, reinterpret_cast<const UniChar*>(name.data()), fsRdPerm, &refNum),
        errFSBadForkName);
    EXPECT_EQ(FSOpenResourceFile(&file, 13, nullptr, fsRdPerm, &refNum), errFSBadForkName);
    EXPECT_EQ(refNum, kResFileNotOpened);
}

TEST_F(ResourceManager, OpensFilesForReadingOnly)
{
    const FSRef file = write({{'CALL', 1, "one"}});
    for (int permissions = -128; permissions <= 127; ++permissions) {
        const bool isReading = permissions == fsCurPerm || permissions == fsRdPerm;
        EXPECT_EQ(tryToOpen(&file, permissions), isReading ? int(noErr) : int(permErr)) << permissions;
    }
}

TEST_F(ResourceManager, TellsWhyAFileCannotBeOpened)
{
    open({{'CALL', 1, "one"}});
    FSRef zero = {};
    FSRef folder;
    Toolbox::makeFileReference(m_folder.path(), &folder);
    const FSRef gone = write({{'CALL', 1, "one"}});
    std::filesystem::remove(m_folder / "file1");
    const FSRef empty = write(Bytes());
    const FSRef fifteen = write(Bytes(15));
    const FSRef sixteen = write(Bytes(16));
    const FSRef noFork = write(makeAppleDouble(APPLE_SINGLE, {{DATA_FORK_ENTRY, {'x'}}}));
    const std::pair<const FSRef*, OSErr> files[] = {{nullptr, paramErr}, {&zero, errFSBadFSRef}, {&folder, ioErr},
        {&gone, fnfErr}, {&empty, eofErr}, {&fifteen, eofErr}, {&sixteen, mapReadErr}, {&noFork, errFSForkNotFound}};
    for (const auto& [file, result] : files)
        EXPECT_EQ(tryToOpen(file), result);
    const FSRef good = write({{'CALL', 1, "two"}});
    EXPECT_EQ(FSOpenResourceFile(&good, 0, nullptr, fsRdPerm, nullptr), paramErr);
    EXPECT_EQ(alive("resource file"), 1u) << "nothing more was opened";
    EXPECT_EQ(dataOf(GetResource('CALL', 1)), "one");
}

TEST_F(ResourceManager, OpensNothingWhicheverAllocationFails)
{
    const FSRef file = write({{'CALL', 1, "one"}, {'ALRT', 1, "two"}});
    SInt16 refNum = 0;
    allocations::refusingEach([&] { FSOpenResourceFile(&file, 0, nullptr, fsRdPerm, &refNum); },
        [&](bool refused) {
            EXPECT_EQ(refNum == kResFileNotOpened, refused);
            EXPECT_EQ(alive("resource file"), refused ? 0u : 1u);
        });
    CloseResFile(refNum);
}

TEST_F(ResourceManager, GetsNothingWhicheverAllocationFails)
{
    open({{'CALL', 1, "one"}});
    Handle handle = nullptr;
    allocations::refusingEach([&] { handle = GetResource('CALL', 1); },
        [&](bool refused) {
            EXPECT_EQ(handle == nullptr, refused);
            EXPECT_EQ(alive("handle"), refused ? 0u : 1u);
        });
    EXPECT_EQ(dataOf(handle), "one");
}

}  // namespace
