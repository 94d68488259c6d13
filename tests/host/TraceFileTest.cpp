#include "host/TraceFile.h"

#include "host/Messages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <thread>

namespace {

using namespace Host;
namespace fs = std::filesystem;

TEST(TraceFile, HasEachLineAtOnce)
{
    const TemporaryFolder folder;
    const auto file = folder.write("calls", "of an earlier run, longer than this one");
    TraceFile trace(file);
    EXPECT_EQ(contents(file), "");
    trace.write("First()");
    EXPECT_EQ(contents(file), "First()\n");
    trace.write("a\nb\x1b");
    EXPECT_EQ(contents(file), "First()\na\\nb\\x1b\n") << "a line for each call";
    trace.finish();
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

TEST(TraceFile, WaitsForASlowReaderOfAPipe)
{
    const TemporaryFolder folder;
    const std::string pipe = (folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    fcntl(reader, F_SETFL, 0);
    TraceFile trace(pipe);
    ssize_t read = 0;
    std::thread slow([&] {
        usleep(50'000);
        char piece[4096];
        for (ssize_t count = 0; (count = ::read(reader, piece, sizeof piece)) > 0;)
            read += count;
    });
    for (int lines = 0; lines < 200; ++lines)  // more than a pipe holds
        trace.write(std::string(4999, 'x'));
    trace.finish();
    slow.join();
    EXPECT_EQ(read, 1'000'000);
    close(reader);
}

}  // namespace
