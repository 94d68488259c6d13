#include "host/Outputs.h"

#include "host/Messages.h"
#include "host/Paths.h"
#include "host/WrittenFiles.h"

#include <filesystem>

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
const NamedFile PLUG_IN = {"BUNDLE", &Options::plugIn};

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

// What is called or read during the call must not be spoiled by it.
void checkThatBundlesStayWhole(const Options& options)
{
    for (const NamedFile& written : {WRITTEN_RECORD, PICTURE, TRACE}) {
        for (const NamedFile& bundle : {APPLICATION, PLUG_IN}) {
            const auto& file = options.*written.name;
            const auto& folder = options.*bundle.name;
            if (file && folder && isInside(*folder, placeOf(*file).parent_path()))
                throw Problem(ExitStatus::NotDone,
                    std::string(written.option) + " names a file inside " + bundle.option + ", '" + *file
                        + "'; nothing is written there");
        }
    }
}

}  // namespace

void settleOutputs(Options& options)
{
    checkThatFilesDiffer(options);
    checkThatBundlesStayWhole(options);
    if (options.writeRecord)
        checkWritable("record", *options.writeRecord);
    if (options.picture)
        checkWritable("picture", *options.picture);
    for (const NamedFile& written : {WRITTEN_RECORD, PICTURE, TRACE}) {
        auto& file = options.*written.name;
        if (file)
            file = fs::absolute(*file).string();
    }
}

}  // namespace Host
