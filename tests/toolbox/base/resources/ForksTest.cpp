#include "toolbox/base/resources/Forks.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/base/resources/ResourceFork.h"
#include "toolbox/base/resources/AppleDouble.h"
#include "toolbox/base/resources/ResourceMap.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <tuple>

namespace {

using Toolbox::readFork;

const Bytes THE_FORK = {'t', 'h', 'e', ' ', 'f', 'o', 'r', 'k'};

class Forks : public testing::Test {
protected:
    // Writes a file "file" with these bytes and reads the resources in it.
    OSErr read(const Bytes& bytes) { return readFork(m_folder.write("file", bytes), &m_bytes); }

    const TemporaryFolder m_folder;
    Bytes m_bytes;
};

TEST_F(Forks, AreTheFileItself)
{
    const Bytes appleDouble = makeAppleDouble(APPLE_DOUBLE, {{RESOURCE_FORK_ENTRY, THE_FORK}});
    Bytes otherMagic = appleDouble;
    setNumber(otherMagic, 0, 4, 0x00051608);
    Bytes otherVersion = appleDouble;
    setNumber(otherVersion, 4, 4, 0x00010000);
    const Bytes cut(appleDouble.begin(), appleDouble.begin() + 25);
    for (const Bytes& bytes :
        {Bytes(), Bytes{'x'}, Bytes(26, 'z'), Bytes(100000, 'a'), otherMagic, otherVersion, cut}) {
        EXPECT_EQ(read(bytes), noErr);
        EXPECT_EQ(m_bytes, bytes);
    }
}

TEST_F(Forks, AreTheFirstOfTheirKindInAppleDoubleAndAppleSingle)
{
    for (const unsigned magic : {APPLE_SINGLE, APPLE_DOUBLE}) {
        const TestEntry info = {FINDER_INFO_ENTRY, Bytes(32, 'i')};
        const TestEntry fork = {RESOURCE_FORK_ENTRY, THE_FORK};
        const TestEntry other = {RESOURCE_FORK_ENTRY, {'o', 't', 'h', 'e', 'r'}};
        EXPECT_EQ(read(makeAppleDouble(magic, {info, fork, other})), noErr);
        EXPECT_EQ(m_bytes, THE_FORK);
    }
}

TEST_F(Forks, MayBeMissing)
{
    EXPECT_EQ(read(makeAppleDouble(APPLE_DOUBLE, {})), errFSForkNotFound);
    EXPECT_EQ(read(makeAppleDouble(APPLE_DOUBLE, {{FINDER_INFO_ENTRY, Bytes(32)}})), errFSForkNotFound);
    EXPECT_EQ(read(makeAppleDouble(APPLE_DOUBLE, {{RESOURCE_FORK_ENTRY, {}}})), errFSForkNotFound) << "empty";
    EXPECT_EQ(read(makeAppleDouble(APPLE_SINGLE, {{DATA_FORK_ENTRY, THE_FORK}})), errFSForkNotFound);
}

TEST_F(Forks, AppleDoubleIsRefusedWhereverItIsCut)
{
    const Bytes good = makeAppleDouble(APPLE_DOUBLE, {{FINDER_INFO_ENTRY, Bytes(32)}, {RESOURCE_FORK_ENTRY, THE_FORK}});
    for (std::size_t length = 26; length < good.size(); ++length) {
        const Bytes cut(good.begin(), good.begin() + std::ptrdiff_t(length));
        EXPECT_EQ(read(cut), mapReadErr) << length;
    }
}

constexpr unsigned FORK_AT = 26 + 12;

// position: in the file; the one entry begins at 26
const std::tuple<const char*, std::size_t, std::size_t, unsigned, OSErr> ENTRY_CASES[] = {
    {"EntryCountZero", 24, 2, 0, errFSForkNotFound},
    {"EntryCountTooLarge", 24, 2, 2, mapReadErr},
    {"EntryCountMax", 24, 2, 0xFFFF, mapReadErr},
    {"OtherId", 26, 4, 0x80000002, errFSForkNotFound},
    {"OffsetOneLess", 30, 4, FORK_AT - 1, noErr},
    {"OffsetOneMore", 30, 4, FORK_AT + 1, mapReadErr},
    {"OffsetMax", 30, 4, 0xFFFFFFFF, mapReadErr},
    {"OffsetWrapsAround", 30, 4, 0xFFFFFFFC, mapReadErr},
    {"LengthOneLess", 34, 4, 7, noErr},
    {"LengthOneMore", 34, 4, 9, mapReadErr},
    {"LengthMax", 34, 4, 0xFFFFFFFF, mapReadErr},
    {"LengthWrapsAround", 34, 4, 0xFFFFFFE0, mapReadErr},
};

TEST_F(Forks, EntryMustLieInTheFile)
{
    for (const auto& [name, position, width, value, result] : ENTRY_CASES) {
        Bytes file = makeAppleDouble(APPLE_DOUBLE, {{RESOURCE_FORK_ENTRY, THE_FORK}});
        setNumber(file, position, width, value);
        EXPECT_EQ(read(file), result) << name;
    }
}

// A file of that length without contents on the disk; reading it all would take its time and memory.
std::string writeHole(const TemporaryFolder& folder, std::uintmax_t length)
{
    const std::string path = folder.write("hole", "");
    std::filesystem::resize_file(path, length);
    return path;
}

TEST_F(Forks, ForkMayBeAsLargeAsTheFormatCanBeAndIsElseRefusedUnread)
{
    EXPECT_EQ(Toolbox::MAX_FORK_LENGTH, 0x100u + 0x1000000u + 0x100000u);
    EXPECT_EQ(readFork(writeHole(m_folder, Toolbox::MAX_FORK_LENGTH), &m_bytes), noErr);
    EXPECT_EQ(m_bytes.size(), Toolbox::MAX_FORK_LENGTH);
    for (const std::uintmax_t length : {std::uintmax_t(Toolbox::MAX_FORK_LENGTH) + 1, std::uintmax_t(1) << 31,
             std::uintmax_t(1) << 32, std::uintmax_t(1) << 40}) {
        m_bytes.clear();
        EXPECT_EQ(readFork(writeHole(m_folder, length), &m_bytes), mapReadErr) << length;
        EXPECT_TRUE(m_bytes.empty()) << length;
    }
}

TEST_F(Forks, ForkInALargeFileMayNotBeLargerThanTheFormatCanBe)
{
    const std::pair<std::size_t, OSErr> lengths[] = {
        {THE_FORK.size(), noErr}, {Toolbox::MAX_FORK_LENGTH, noErr}, {Toolbox::MAX_FORK_LENGTH + 1, mapReadErr}};
    for (const auto& [length, result] : lengths) {
        Bytes file = makeAppleDouble(APPLE_DOUBLE, {{RESOURCE_FORK_ENTRY, THE_FORK}});
        setNumber(file, 34, 4, length);
        const std::string path = m_folder.write("large", file);
        std::filesystem::resize_file(path, std::uintmax_t(1) << 33);
        ASSERT_EQ(readFork(path, &m_bytes), result) << length;
        EXPECT_TRUE(result != noErr || m_bytes.size() == length) << length;
        EXPECT_TRUE(result != noErr || std::equal(THE_FORK.begin(), THE_FORK.end(), m_bytes.begin())) << length;
    }
}

TEST_F(Forks, OnlyRegularFilesThatCanBeReadHaveForks)
{
    const std::string folder = m_folder.makeFolder("folder");
    const std::string pipe = m_folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string unreadable = "/proc/self/mem";  // looks like a regular file and cannot be read at 0
    for (const std::string& wrong : {folder, pipe, std::string("/dev/zero"), unreadable})
        EXPECT_EQ(readFork(wrong, &m_bytes), ioErr);
    EXPECT_EQ(readFork(m_folder / "missing", &m_bytes), fnfErr);
}

// The superuser may read everything, so that the process becomes nobody while this lives.
class OrdinaryUser {
public:
    OrdinaryUser() { m_changed = geteuid() == 0 && seteuid(NOBODY) == 0; }
    ~OrdinaryUser()
    {
        if (m_changed && seteuid(0) != 0)
            std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t NOBODY = 65534;
    bool m_changed = false;
};

TEST_F(Forks, UnreadableFileIsNotPermitted)
{
    const std::string secret = m_folder.write("secret", THE_FORK);
    const std::string file = m_folder.write("file", THE_FORK);
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    const OrdinaryUser user;
    EXPECT_EQ(readFork(file, &m_bytes), noErr);
    EXPECT_EQ(readFork(secret, &m_bytes), permErr);
}

}  // namespace
