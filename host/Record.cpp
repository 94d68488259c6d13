#include "host/Record.h"

#include "host/WrittenFiles.h"
#include "host/Problem.h"

#include <utility>

namespace Host {

namespace {

constexpr std::size_t LARGEST = 1024 * 1024;

}  // namespace

Record::Record()
    : m_bytes(sizeof(ExternParmBlock))
{
}

Record::Record(std::vector<std::uint8_t> bytes)
    : m_bytes(std::move(bytes))
{
}

Record Record::load(const std::filesystem::path& file)
{
    std::vector<std::uint8_t> bytes = readFile("record", file, LARGEST);
    if (bytes.size() < sizeof(ExternParmBlock))
        throw Problem(ExitStatus::NotDone,
            "the record '" + file.string() + "' has " + std::to_string(bytes.size())
                + " bytes, and a record has at least " + std::to_string(sizeof(ExternParmBlock)));
    return Record(std::move(bytes));
}

void Record::save(const std::filesystem::path& file) const
{
    writeFile("record", file, m_bytes);
}

}  // namespace Host
