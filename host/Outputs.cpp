#include "host/Outputs.h"

#include "host/Files.h"
#include "host/Problem.h"

#include <filesystem>
#include <system_error>

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

// Whether both names lead to one file, be it there or not.
bool areOne(const std::string& one, const std::string& other)
{
    std::error_code error;
    return fs::equivalent(one, other, error) || fs::weakly_canonical(one, error) == fs::weakly_canonical(other, error);
}

}  // namespace

void checkOutputs(const Options& options)
{
    for (const auto& [written, other] : DIFFERENT) {
        const auto& file = options.*written.name;
        const auto& otherFile = options.*other.name;
        if (file && otherFile && areOne(*file, *otherFile))
            throw Problem(ExitStatus::NotDone,
                std::string(written.option) + " and " + other.option + " name the same file, '" + *file
                    + "'; give each its own");
    }
    if (options.writeRecord)
        checkWritable("record", *options.writeRecord);
    if (options.picture)
        checkWritable("picture", *options.picture);
}

}  // namespace Host
