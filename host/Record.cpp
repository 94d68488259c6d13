#include "host/Record.h"

#include "host/Languages.h"
#include "host/Messages.h"
#include "host/WrittenFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>

namespace Host {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t LARGEST = 1024 * 1024;

// What the field for the chosen language holds during a call.
constexpr UInt16 NO_LANGUAGE = 0xFFFF;

Problem notRead(const fs::path& file, const std::string& reason)
{
    return Problem(ExitStatus::NotDone, "cannot read the record '" + file.string() + "': " + reason);
}

// A regular file, open; else null, with the reason. First opened and then looked at: something else may stand there by
// the time that it is opened. Without O_NONBLOCK, opening a pipe would wait until somebody writes into it.
std::unique_ptr<std::FILE, int (*)(std::FILE*)> openRegular(const fs::path& file, std::string* reason)
{
    const int descriptor = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat facts;
    std::FILE* stream = nullptr;
    if (descriptor < 0 || fstat(descriptor, &facts) != 0)
        *reason = lastError();
    else if (!S_ISREG(facts.st_mode))
        *reason = S_ISDIR(facts.st_mode) ? "it is a folder" : "it is not a regular file";
    else if ((stream = fdopen(descriptor, "rb")) == nullptr)
        *reason = lastError();
    if (stream == nullptr && descriptor >= 0)
        close(descriptor);
    return {stream, std::fclose};
}

// The bytes of the record `file`. Throws Problem when it cannot be read, is not a regular file, or is too large.
std::vector<std::uint8_t> read(const fs::path& file)
{
    std::string reason;
    const auto stream = openRegular(file, &reason);
    if (!stream)
        throw notRead(file, reason);
    std::vector<std::uint8_t> bytes;
    std::array<std::uint8_t, 4096> piece;
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), stream.get())) {
        bytes.insert(bytes.end(), piece.begin(), piece.begin() + count);
        if (bytes.size() > LARGEST)
            throw notRead(file, "it has more than " + std::to_string(LARGEST) + " bytes");
    }
    if (std::ferror(stream.get()) != 0)
        throw notRead(file, lastError());
    return bytes;
}

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
    std::vector<std::uint8_t> bytes = read(file);
    if (bytes.size() < sizeof(ExternParmBlock))
        throw Problem(ExitStatus::NotDone,
            "the record '" + file.string() + "' has " + std::to_string(bytes.size())
                + " bytes, and a record has at least " + std::to_string(sizeof(ExternParmBlock)));
    return Record(std::move(bytes));
}

void Record::checkThatItReplaces(const std::filesystem::path& file)
{
    std::error_code isNone;
    const std::uintmax_t size = std::filesystem::file_size(file, isNone);
    if (isNone || size == 0)
        return;
    if (size < sizeof(ExternParmBlock) || size > LARGEST || !isLanguageCode(load(file).block().currentLanguage))
        throw Problem(ExitStatus::NotDone,
            notWritten("record", file, "what is there is no record; name another file, or remove this one"));
}

void Record::save(const std::filesystem::path& file) const
{
    checkThatItReplaces(file);
    writeFile("record", file, m_bytes);
}

ChosenLanguage::ChosenLanguage(ExternParmBlock& block)
    : m_block(block)
    , m_own(block.chosenLanguage)
{
    block.chosenLanguage = NO_LANGUAGE;
}

std::optional<UInt16> ChosenLanguage::settle()
{
    const UInt16 written = m_block.chosenLanguage;
    if (written != NO_LANGUAGE)
        return written;
    m_block.chosenLanguage = m_own;
    return std::nullopt;
}

}  // namespace Host
