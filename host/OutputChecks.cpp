#include "host/OutputChecks.h"

#include "host/Messages.h"
#include "host/Paths.h"
#include "host/Record.h"
#include "host/WrittenFiles.h"

#include <unistd.h>

#include <filesystem>
#include <utility>

namespace Host {

namespace {

namespace fs = std::filesystem;

struct NamedFile {
    const char* option;
    std::optional<std::string> Options::*name;
};

const NamedFile RECORD = {"--record", &Options::record};
const NamedFile WRITTEN_RECORD = {"--write-record", &Options::writeRecord};
const NamedFile PICTURE = {"--picture", &Options::picture};
const NamedFile TRACE = {"--trace-file", &Options::traceFile};
const NamedFile RESOURCES = {"--resources", &Options::resources};
const NamedFile APPLICATION = {"--app", &Options::application};
const NamedFile EXTERNAL = {"BUNDLE", &Options::external};

// What is written, and what it must not be.
const struct {
    NamedFile written;
    NamedFile other;
} DIFFERENT[] = {
    {WRITTEN_RECORD, PICTURE},
    {WRITTEN_RECORD, TRACE},
    {WRITTEN_RECORD, RESOURCES},
    {PICTURE, TRACE},
    {PICTURE, RECORD},
    {PICTURE, RESOURCES},
    {TRACE, RECORD},
    {TRACE, RESOURCES},
};

void checkThatFilesDiffer(const Options& options)
{
    for (const auto& [written, other] : DIFFERENT) {
        const auto& file = options.*written.name;
        const auto& otherFile = options.*other.name;
        if (file && otherFile && areOne(*file, *otherFile))
            throw Problem(ExitStatus::NotDone,
                std::string(written.option) + " and " + other.option + " name the same file, '" + *file
                    + "'; give each its own");
    }
}

// A file that the answer or the errors go to would be replaced, and they with it.
void checkThatStreamsStay(const std::string& option, const std::string& file)
{
    std::error_code isNone;
    if (!fs::is_regular_file(file, isNone))
        return;
    for (const auto& [stream, name] : {std::pair("/dev/stdout", "output"), std::pair("/dev/stderr", "error")})
        if (fs::equivalent(file, stream, isNone))
            throw Problem(ExitStatus::NotDone,
                option + " names the file that standard " + name + " goes to, '" + file + "'; give each its own");
}

// What is read, loaded or called must not be spoiled by the call. The host's own folder has the demo application in it.
void checkThatNothingIsSpoiled(const Options& options)
{
    for (const NamedFile& written : {WRITTEN_RECORD, PICTURE, TRACE}) {
        const auto& file = options.*written.name;
        if (!file)
            continue;
        checkThatStreamsStay(written.option, *file);
        const auto refuse = [&](const std::string& which) {
            throw Problem(ExitStatus::NotDone,
                std::string(written.option) + " names a file " + which + ", '" + *file + "'; nothing is written there");
        };
        for (const NamedFile& bundle : {APPLICATION, EXTERNAL}) {
            if (const auto& folder = options.*bundle.name; folder && holds(*folder, *file))
                refuse(std::string("inside ") + bundle.option);
        }
        if (holds(supportFolder(), *file))
            refuse("inside the host's own folders");
        if (isLoaded(*file))
            refuse("that the host has loaded");
    }
}

}  // namespace

void settleOutputs(Options& options)
{
    checkThatFilesDiffer(options);
    checkThatNothingIsSpoiled(options);
    if (options.writeRecord) {
        checkWritable("record", *options.writeRecord);
        Record::checkThatItReplaces(*options.writeRecord);
    }
    if (options.picture)
        checkWritable("picture", *options.picture);
    for (const NamedFile& written : {WRITTEN_RECORD, PICTURE, TRACE}) {
        auto& file = options.*written.name;
        if (file)
            file = fs::absolute(*file).string();
    }
    if (options.traceFile && access((fs::path(*options.traceFile).parent_path() / "").c_str(), X_OK) != 0)
        throw Problem(ExitStatus::NotDone, notWritten("trace", *options.traceFile, lastError()));
}

}  // namespace Host
