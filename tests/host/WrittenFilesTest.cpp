#include "host/WrittenFiles.h"

#include "host/Messages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using namespace Host;
namespace fs = std::filesystem;

// What `write` says of the files that it writes.
std::string complaintsOf(const std::function<void()>& write)
{
    testing::internal::CaptureStderr();
    write();
    return testing::internal::GetCapturedStderr();
}

// Ends the process after a look at `file`, which says what is wrong with it.
[[noreturn]] void checkAndExit(const fs::path& file)
{
    try {
        checkWritable("record", file);
    } catch (const Problem& problem) {
        complain(problem.what());
    }
    _exit(0);
}

TEST(WrittenFile, HasTheModeOfANewFileOrOfTheOldOne)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "file";
    const mode_t mask = umask(027);
    EXPECT_EQ(complaintsOf([&] { writeFile("record", file, {1}); }), "");
    EXPECT_EQ(umask(mask), mode_t{027});
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    fs::permissions(file, fs::perms(0604));
    EXPECT_EQ(complaintsOf([&] { writeFile("record", file, {1}); }), "");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0604));
}

TEST(WrittenFile, SaysThatItHasLostItsOtherNames)
{
    const TemporaryFolder folder;
    const fs::path file = folder.write("file", std::string("old"));
    fs::create_hard_link(file, folder / "other");
    EXPECT_EQ(complaintsOf([&] {
        writeFile("record", file, {'n', 'e', 'w'});
    }),
        "visex-host: the record in '" + file.string() + "' has lost its other names, which keep the old contents\n");
    EXPECT_EQ(contents(file) + contents(folder / "other"), "newold");
}

TEST(WrittenFile, KeepsOwnerAndGroupOrSaysThatItCannot)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can have a file of another's";
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0777));
    const fs::path file = folder.write("file", std::string("old"));
    ASSERT_EQ(chown(file.c_str(), 12345, 23456), 0);
    const auto owners = [&] {
        struct stat facts;
        return stat(file.c_str(), &facts) == 0 ? std::make_pair(facts.st_uid, facts.st_gid) : std::make_pair(0u, 0u);
    };
    fs::permissions(file, fs::perms(06755));  // of which a change of the owner takes some
    EXPECT_EQ(complaintsOf([&] { writeFile("record", file, {1}); }), "");
    EXPECT_EQ(owners(), std::make_pair(12345u, 23456u));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(06755));
    fs::permissions(file, fs::perms(0644));

    const std::string lost = "visex-host: the record in '" + file.string() + "' has lost its ";
    const auto saveAsAnother = [&] {
        if (setegid(54321) != 0 || seteuid(54321) != 0)
            _exit(1);
        writeFile("record", file, {2});
        _exit(0);
    };
    EXPECT_EXIT(saveAsAnother(), testing::ExitedWithCode(0), lost + "group\n" + lost + "owner\n");
    EXPECT_EQ(owners(), std::make_pair(54321u, 54321u));
}

// Several hosts that save in one folder, as in containers, where process ids repeat.
TEST(WrittenFile, IsWholeHoweverManyWriteIt)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "file";
    folder.write("file." + std::to_string(getpid()), std::string("of an earlier run"));
    std::vector<std::thread> writers;
    for (std::uint8_t letter = 'a'; letter < 'i'; ++letter) {
        writers.emplace_back([&file, letter] {
            for (int times = 0; times < 20; ++times)
                writeFile("record", file, std::vector<std::uint8_t>(5000, letter));
        });
    }
    for (std::thread& each : writers)
        each.join();
    EXPECT_EQ(contents(file), std::string(5000, contents(file).at(0)));
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(CheckWritable, FindsOutWhatWouldNotBeStored)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "file";
    const auto checkOnAFullDisk = [&file] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{500, 500};  // room for the message, too little for a record
        setrlimit(RLIMIT_FSIZE, &limit);
        checkAndExit(file);
    };
    EXPECT_EXIT(
        checkOnAFullDisk(), testing::ExitedWithCode(0), "cannot save the record in '.*/file': File too large\n");
    EXPECT_EQ(folder.entries(), 0u);
}

TEST(CheckWritable, KnowsFoldersInWhichOnlyOwnersReplaceFiles)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can have a file of another's";
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(01777));
    const fs::path file = folder.write("file", std::string("old"));
    fs::permissions(file, fs::perms(0666));
    checkWritable("record", file);
    const auto checkAs = [&](uid_t user) {
        if (setresuid(user, user, user) != 0)
            _exit(1);
        checkAndExit(file);
    };
    EXPECT_EXIT(checkAs(54321), testing::ExitedWithCode(0), ": its folder lets only the file's owner replace it\n$");
    ASSERT_EQ(chown(file.c_str(), 54321, 54321), 0);
    EXPECT_EXIT(checkAs(54321), testing::ExitedWithCode(0), "^$");
    ASSERT_EQ(chown(file.c_str(), 12345, 12345) + chown(folder.path().c_str(), 54321, 54321), 0);
    EXPECT_EXIT(checkAs(54321), testing::ExitedWithCode(0), "^$") << "the folder's owner may, too";
    checkWritable("record", file);
}

}  // namespace
