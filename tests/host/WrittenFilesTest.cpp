#include "host/WrittenFiles.h"
#include "host/Messages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
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

TEST(TraceFile, HasEachLineAtOnce)
{
    const TemporaryFolder folder;
    const auto file = folder / "calls";
    folder.write("calls", "of an earlier run, longer than this one");
    TraceFile trace(file);
    EXPECT_EQ(contents(folder / "calls"), "");
    trace.write("First()");
    EXPECT_EQ(contents(folder / "calls"), "First()\n");
    trace.write("Second() = 0");
    EXPECT_EQ(contents(folder / "calls"), "First()\nSecond() = 0\n");
    std::string problem;
    EXPECT_TRUE(trace.finish(&problem));
    EXPECT_EQ(problem, "");
}

TEST(TraceFile, KeepsACallInItsLine)
{
    const TemporaryFolder folder;
    TraceFile trace(folder / "calls");
    trace.write("a\nb\x1b");
    EXPECT_EQ(contents(folder / "calls"), "a\\nb\\x1b\n");
}

TEST(TraceFile, CannotBeMadeInAFolderThatIsNotThere)
{
    try {
        const TraceFile trace("/not there/calls");
        FAIL() << "it was made";
    } catch (const Problem& problem) {
        EXPECT_EQ(problem.status, ExitStatus::NotDone);
        EXPECT_STREQ(problem.what(), "cannot write the trace into '/not there/calls': No such file or directory");
    }
}

TEST(TraceFile, DoesNotWaitForAReaderOfAPipe)
{
    const TemporaryFolder folder;
    const std::string pipe = (folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW(TraceFile{pipe}, Problem);

    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    TraceFile trace(pipe);
    trace.write("First()");
    char read[16] = {};
    EXPECT_EQ(::read(reader, read, sizeof read), 8);
    EXPECT_STREQ(read, "First()\n");
    close(reader);
}

TEST(TraceFile, TellsWhenTheDeviceIsFull)
{
    TraceFile trace("/dev/full");
    trace.write("First()");
    trace.write("Second()");
    std::string problem;
    EXPECT_FALSE(trace.finish(&problem));
    EXPECT_EQ(problem, "cannot write the trace into '/dev/full': No space left on device");
}

// ---- Whole files

// What `write` says of the files that it writes.
std::string complaintsOf(const std::function<void()>& write)
{
    testing::internal::CaptureStderr();
    write();
    return testing::internal::GetCapturedStderr();
}

TEST(WrittenFile, HasTheModeOfANewFileOrOfTheOldOne)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "file";
    const mode_t mask = umask(027);
    EXPECT_EQ(complaintsOf([&] { writeFile("record", file, {1}); }), "");
    umask(mask);
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
    EXPECT_EQ(complaintsOf([&] { writeFile("record", file, {1}); }), "");
    EXPECT_EQ(owners(), std::make_pair(12345u, 23456u));

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
        try {
            checkWritable("record", file);
        } catch (const Problem& problem) {
            complain(problem.what());
        }
        _exit(0);
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
        try {
            checkWritable("record", file);
        } catch (const Problem& problem) {
            complain(problem.what());
        }
        _exit(0);
    };
    EXPECT_EXIT(checkAs(54321), testing::ExitedWithCode(0), ": its folder lets only the file's owner replace it\n$");
    ASSERT_EQ(chown(file.c_str(), 54321, 54321), 0);
    EXPECT_EXIT(checkAs(54321), testing::ExitedWithCode(0), "^$");
}

}  // namespace
