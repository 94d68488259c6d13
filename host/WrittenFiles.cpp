#include "host/WrittenFiles.h"

#include "host/Problem.h"

#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <memory>
#include <system_error>

namespace Host {

namespace {

namespace fs = std::filesystem;

const char* const NOT_REGULAR = "it is not a regular file";

// Behind its name stand a dot and some more, while it is being written beside what it replaces.
constexpr std::size_t LONGEST_NAME = NAME_MAX - sizeof ".1234567";

std::string lastError()
{
    return std::generic_category().message(errno);
}

Problem notRead(const std::string& name, const fs::path& file, const std::string& reason)
{
    return Problem(ExitStatus::NotDone, "cannot read the " + name + " '" + file.string() + "': " + reason);
}

Problem saveFailure(const std::string& name, const fs::path& file, const std::string& reason)
{
    return Problem(ExitStatus::NotDone, notWritten(name, file, reason));
}

// The file that `file` leads to, there or not. Throws Problem when it is something that a file must not replace.
fs::path targetOf(const std::string& name, const fs::path& file)
{
    std::error_code error;
    const fs::path target = fs::weakly_canonical(fs::absolute(file, error), error);
    if (error)
        throw saveFailure(name, file, error.message());
    if (fs::is_symlink(target, error))  // the others were followed
        throw saveFailure(name, file, "it is a link that leads nowhere");
    if (fs::exists(target, error) && !fs::is_regular_file(target, error))
        throw saveFailure(name, file, NOT_REGULAR);
    if (target.filename().native().size() > LONGEST_NAME)
        throw saveFailure(name, file, "its name is longer than " + std::to_string(LONGEST_NAME) + " bytes");
    return target;
}

// Makes the new file `file` with these bytes. False, with the reason in errno and no new file, when it cannot be made.
bool makeFile(const fs::path& file, const std::vector<std::uint8_t>& bytes)
{
    std::FILE* const stream = std::fopen(file.c_str(), "wbx");  // x: only if there is none yet
    if (stream == nullptr)
        return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() && std::fflush(stream) == 0
        && fsync(fileno(stream)) == 0;
    if (std::fclose(stream) == 0 && written)
        return true;
    const int reason = errno;
    std::remove(file.c_str());
    errno = reason;
    return false;
}

// Gives the file `temporary` the name `target`, and the permissions of the file that has it now.
std::error_code moveInto(const fs::path& target, const fs::path& temporary)
{
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    error.clear();  // there need not be one
    if (fs::exists(status))
        fs::permissions(temporary, status.permissions(), error);
    if (!error)
        fs::rename(temporary, target, error);
    return error;
}

}  // namespace

std::vector<std::uint8_t> readFile(const std::string& name, const fs::path& file, std::size_t largest)
{
    // Asked before it is opened: opening a pipe waits until somebody writes into it.
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (error)
        throw notRead(name, file, error.message());
    if (!fs::is_regular_file(status))
        throw notRead(name, file, NOT_REGULAR);

    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "rb"), std::fclose);
    if (!stream)
        throw notRead(name, file, lastError());
    std::vector<std::uint8_t> bytes;
    std::uint8_t piece[4096];
    std::size_t count = 0;
    while (bytes.size() <= largest && (count = std::fread(piece, 1, sizeof piece, stream.get())) > 0)
        bytes.insert(bytes.end(), piece, piece + count);
    if (std::ferror(stream.get()) != 0)
        throw notRead(name, file, lastError());
    if (bytes.size() > largest)
        throw notRead(name, file, "it has more than " + std::to_string(largest) + " bytes");
    return bytes;
}

std::string notWritten(const std::string& name, const fs::path& file, const std::string& reason)
{
    return "cannot save the " + name + " in '" + file.string() + "': " + reason;
}

void checkWritable(const std::string& name, const fs::path& file)
{
    const fs::path target = targetOf(name, file);
    if (access(target.c_str(), F_OK) == 0 && access(target.c_str(), W_OK) != 0)
        throw saveFailure(name, file, lastError());
    // What is written takes the place of what is there, so the folder has to take it.
    if (access(target.parent_path().c_str(), W_OK | X_OK) != 0)
        throw saveFailure(name, file, "its folder takes no new file: " + lastError());
}

void writeFile(const std::string& name, const fs::path& file, const std::vector<std::uint8_t>& bytes)
{
    const fs::path target = targetOf(name, file);
    fs::path temporary = target;
    temporary += "." + std::to_string(getpid());
    if (!makeFile(temporary, bytes))
        throw saveFailure(name, file, lastError());
    const std::error_code error = moveInto(target, temporary);
    if (error) {
        std::error_code ignored;  // what went wrong first is what counts
        fs::remove(temporary, ignored);
        throw saveFailure(name, file, error.message());
    }
}

}  // namespace Host
