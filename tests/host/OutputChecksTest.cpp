#include "host/OutputChecks.h"

#include "host/Record.h"
#include "tests/host/ProblemOf.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <gnu/libc-version.h>

#include <tuple>
#include <utility>

namespace {

using namespace Host;
namespace fs = std::filesystem;

std::string problemWith(Options options)
{
    return problemOf([&] { settleOutputs(options); });
}

const std::string RECORD(614, '\0');

// The file of the C library.
const char* loadedLibrary()
{
    Dl_info info{};
    return dladdr(reinterpret_cast<const void*>(&gnu_get_libc_version), &info) == 0 ? "" : info.dli_fname;
}

using Option = std::optional<std::string> Options::*;

// clang-format off
const std::tuple<Option, Option, const char*> PAIRS[] = {
    {&Options::writeRecord, &Options::picture,   "--write-record and --picture"},
    {&Options::writeRecord, &Options::traceFile, "--write-record and --trace-file"},
    {&Options::writeRecord, &Options::resources, "--write-record and --resources"},
    {&Options::picture,     &Options::traceFile, "--picture and --trace-file"},
    {&Options::picture,     &Options::record,    "--picture and --record"},
    {&Options::picture,     &Options::resources, "--picture and --resources"},
    {&Options::traceFile,   &Options::record,    "--trace-file and --record"},
    {&Options::traceFile,   &Options::resources, "--trace-file and --resources"},
};
// clang-format on

TEST(OutputPair, MayNotBeOneFile)
{
    for (const auto& [written, other, names] : PAIRS) {
        const auto problemOf = [written = written, other = other](const fs::path& one, const fs::path& another) {
            Options options;
            options.*written = one.string();
            options.*other = another.string();
            return problemWith(options);
        };
        const auto refusalOf = [names = names](const fs::path& file) {
            return std::string(names) + " name the same file, '" + file.string() + "'; give each its own";
        };
        const TemporaryFolder folder;
        const fs::path file = folder / "file";
        EXPECT_EQ(problemOf(file, file), refusalOf(file)) << "not there yet";
        EXPECT_EQ(problemOf(file, folder / "." / "file"), refusalOf(file)) << "in another spelling";
        folder.write("file", RECORD);
        EXPECT_EQ(problemOf(file, file), refusalOf(file)) << "there";
        const fs::path link = folder / "link";
        fs::create_hard_link(file, link);
        EXPECT_EQ(problemOf(link, file), refusalOf(link)) << "under another name";
        EXPECT_EQ(problemOf(folder / "file", folder / "other"), "none") << names;
        EXPECT_EQ(problemOf("not here", "./not here"), refusalOf("not here"));
        EXPECT_EQ(problemOf("not here", fs::current_path() / "not here"), refusalOf("not here"));
    }
}

TEST(Outputs, AreNamedFromTheRootAndMayWriteTheRecordOver)
{
    const TemporaryFolder folder;
    folder.write("a record", RECORD);
    const WorkingFolder here(folder.path());  // none of the host's own
    Options options;
    options.record = options.writeRecord = "a record";
    options.picture = "a picture";
    options.traceFile = "a trace";
    settleOutputs(options);
    EXPECT_EQ(options.writeRecord, folder / "a record");
    EXPECT_EQ(options.picture, folder / "a picture");
    EXPECT_EQ(options.traceFile, folder / "a trace");
    EXPECT_EQ(options.record, "a record") << "it is read before the call";
    options.traceFile = "missing/trace";
    EXPECT_EQ(problemWith(options),
        "cannot save the trace in '" + (folder / *options.traceFile).string() + "': No such file or directory");
}

TEST(Outputs, ReplaceNothingByARecordThatCanBeNone)
{
    const TemporaryFolder folder;
    const auto zeros = [](std::size_t size) { return std::string(size, '\0'); };
    const std::string upToTheLanguage = zeros(612);
    for (const auto& [contents, isTaken] :
        {std::pair(zeros(0), true), {zeros(1), false}, {zeros(613), false}, {zeros(614), true},
            {zeros(1024 * 1024), true}, {zeros(1024 * 1024 + 1), false}, {upToTheLanguage + "\x7F\xFF", true},
            {upToTheLanguage + "\x80" + zeros(1), false}, {std::string(700, 'x'), false}}) {
        Options options;
        options.writeRecord = folder.write("file", contents).string();
        const std::string problem = isTaken ? "none"
                                            : "cannot save the record in '" + *options.writeRecord
                + "': what is there is no record; name another file, or remove this one";
        EXPECT_EQ(problemWith(options), problem);
        EXPECT_EQ(problemOf([&] { Record().save(*options.writeRecord); }), problem) << "it may have come there since";
    }
}

// What is read or loaded may not be written over under another name either.
TEST(Outputs, AreNothingOfTheHostsOwn)
{
    const TemporaryFolder folder;
    const fs::path own = fs::read_symlink("/proc/self/exe");
    const fs::path library = fs::canonical("/proc/self/root" + std::string(loadedLibrary()));
    fs::create_symlink(own.parent_path(), folder / "link");
    const std::string inside = "inside the host's own folders";
    for (const auto& [file, what] : {std::pair(own, inside), {own.parent_path() / "new", inside},
             {folder / "link/new", inside}, {library, "that the host has loaded"}}) {
        for (const auto output : {&Options::writeRecord, &Options::picture, &Options::traceFile}) {
            Options options;
            options.*output = file.string();
            EXPECT_NE(
                problemWith(options).find(" names a file " + what + ", '" + file.string() + "'; nothing is written"),
                std::string::npos);
        }
    }
}

TEST(OutputFile, IsRefusedWithTheReasonAndNeitherMadeNorChanged)
{
    for (const auto& [what, option] : {std::pair("record", &Options::writeRecord), {"picture", &Options::picture}}) {
        const auto problemOf = [option = option](const fs::path& file) {
            Options options;
            options.*option = file.string();
            return problemWith(options);
        };
        const TemporaryFolder folder;
        folder.write("no folder", "x");
        fs::create_symlink("nowhere", folder / "link");
        fs::create_symlink("loop", folder / "loop");
        const std::pair<fs::path, const char*> refused[] = {
            {folder / "missing/file", "there is no such folder"},
            {folder / "no folder/file", "there is no such folder"},
            {folder / "", "it is a folder"},
            {"/dev/null", "it is not a regular file"},
            {folder / "link", "it is a link that leads nowhere"},
            {folder / "loop", "Too many levels of symbolic links"},
            {folder / std::string(249, 'n'), "its name is longer than 248 bytes"},
        };
        for (const auto& [file, reason] : refused)
            EXPECT_EQ(
                problemOf(file), std::string("cannot save the ") + what + " in '" + file.string() + "': " + reason);

        folder.write("nowhere", RECORD);
        folder.write("old", RECORD);
        for (const std::string& name :
            {std::string("link"), std::string("new"), std::string("old"), std::string(248, 'n')})
            EXPECT_EQ(problemOf(folder / name), "none") << name;
        EXPECT_FALSE(fs::exists(folder / "new"));
        EXPECT_EQ(contents(folder / "old"), RECORD);
    }
}

TEST(Outputs, AreNotInsideABundle)
{
    const std::pair<const char*, Option> outputs[] = {{"--write-record", &Options::writeRecord},
        {"--picture", &Options::picture}, {"--trace-file", &Options::traceFile}};
    const std::pair<const char*, Option> bundles[] = {{"--app", &Options::application}, {"BUNDLE", &Options::external}};
    const TemporaryFolder folder;
    folder.makeFolder("bundle/Contents");
    fs::create_hard_link(folder.write("bundle/Contents/data", RECORD), folder / "data");
    for (const auto& [output, outputOption] : outputs) {
        for (const auto& [bundle, bundleOption] : bundles) {
            Options options;
            options.*bundleOption = (folder / "bundle").string();
            for (const char* const name : {"bundle/file", "bundle/Contents/file", "bundle/../bundle/file"}) {
                options.*outputOption = (folder / name).string();
                EXPECT_EQ(problemWith(options),
                    std::string(output) + " names a file inside " + bundle + ", '" + (folder / name).string()
                        + "'; nothing is written there");
            }
            options.*outputOption = (folder / "data").string();
            EXPECT_NE(problemWith(options), "none") << "a file that is in the bundle under another name";
            for (const char* const name : {"file", "bundle.png", "bundle/../file"}) {
                options.*outputOption = (folder / name).string();
                EXPECT_EQ(problemWith(options), "none");
            }
        }
    }
}

}  // namespace
