#include "host/Record.h"

#include "tests/host/ProblemOf.h"
#include "tests/support/RecordDifferences.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace {

using namespace Host;
namespace fs = std::filesystem;

// Bytes that are all different from their neighbours.
std::string bytes(std::size_t size)
{
    std::string made(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        made[i] = static_cast<char>(i * 7 % 251);
    return made;
}

TEST(Record, BeginsAsZerosAndIsSavedAndLoadedWithItsFields)
{
    const TemporaryFolder folder;
    Record record;
    EXPECT_EQ(recordDifferences(record.block(), ExternParmBlock{}), "");
    record.block().message = -2;
    record.block().currentLanguage = 0x01020304;
    record.save(folder / "record");

    std::string expected(614, '\0');
    expected.replace(0, 2, "\xFF\xFE");
    expected.replace(610, 4, "\x01\x02\x03\x04");
    EXPECT_EQ(recordDifferences(contents(folder / "record"), expected), "");
    EXPECT_EQ(recordDifferences(Record::load(folder / "record").block(), record.block()), "");
}

TEST(Record, ComesBackByteForByteWithItsTail)
{
    const TemporaryFolder folder;
    for (const std::size_t size : {std::size_t{614}, std::size_t{615}, std::size_t{1000}, std::size_t{1024 * 1024}}) {
        const fs::path file = folder.write("record", bytes(size));
        const fs::path copy = folder / std::to_string(size);
        Record::load(file).save(copy);
        EXPECT_EQ(recordDifferences(contents(copy), bytes(size)), "") << size;
    }
}

TEST(RecordFile, IsRefusedWithTheReason)
{
    const TemporaryFolder folder;
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<fs::path, const char*> unreadable[] = {
        {folder.write("huge", bytes(1024 * 1024 + 1)), "it has more than 1048576 bytes"},
        {folder / "none", "No such file or directory"},
        {folder.path(), "it is a folder"},
        {pipe, "it is not a regular file"},
        {"/dev/zero", "it is not a regular file"},
        {"/proc/self/mem", "Input/output error"},
    };
    for (const auto& [file, reason] : unreadable)
        EXPECT_EQ(problemOf([file = file] { Record::load(file); }),
            "cannot read the record '" + file.string() + "': " + reason);
    for (const std::size_t size : {0u, 1u, 613u}) {
        const fs::path file = folder.write("short", bytes(size));
        EXPECT_EQ(problemOf([&] { Record::load(file); }),
            "the record '" + file.string() + "' has " + std::to_string(size) + " bytes, and a record has at least 614");
    }
}

TEST(RecordFile, IsNotLeftOpen)
{
    const TemporaryFolder folder;
    const auto lowestFree = [] {
        const int file = dup(STDERR_FILENO);
        close(file);
        return file;
    };
    const int before = lowestFree();
    Record().save(folder / "record");
    Record::load(folder / "record");
    EXPECT_THROW(Record::load(folder.path()), Problem);
    EXPECT_EQ(lowestFree(), before);
}

TEST(SavingARecord, WritesTheFileThatALinkLeadsTo)
{
    const TemporaryFolder folder;
    const fs::path file = folder.write("record", std::string(700, '\0'));
    fs::create_symlink(file, folder / "link");
    Record().save(folder / "link");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(contents(file).size(), 614u);
}

TEST(SavingARecord, ReplacesNothingButRegularFilesAndSaysWhyItCannot)
{
    const TemporaryFolder folder;
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<fs::path, const char*> impossible[] = {
        {pipe, "it is not a regular file"},
        {folder.makeFolder("folder"), "it is a folder"},
        {folder / "none/record", "No such file or directory"},
    };
    for (const auto& [file, reason] : impossible)
        EXPECT_EQ(problemOf([file = file] { Record().save(file); }),
            "cannot save the record in '" + file.string() + "': " + reason);
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(ChosenLanguage, IsWhatWasWrittenOrNone)
{
    for (const UInt16 language : std::initializer_list<UInt16>{0, 1, 2, 3, 6, 11, 0x0102}) {
        for (const bool isWritten : {true, false}) {
            Record record;
            auto& field = record.block().chosenLanguage;
            field = language;
            ChosenLanguage chosen(record.block());
            EXPECT_NE(field, language) << "the field must not look like a language that was chosen";
            if (isWritten)
                field = language;  // the one that was there already
            EXPECT_EQ(chosen.settle(), isWritten ? std::optional(language) : std::nullopt);
            EXPECT_EQ(field, language) << "the field has its own value again";
        }
    }
}

}  // namespace
