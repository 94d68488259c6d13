#include "tests/support/RecordDifferences.h"

#include <algorithm>

namespace {

constexpr int MOST_LINES = 16;

struct Field {
    const char* name;
    std::size_t begin;
    std::size_t end;
};

const Field FIELDS[] = {
    {"message", offsetof(ExternParmBlock, message), offsetof(ExternParmBlock, hostBytes2)},
    {"resultFlags", offsetof(ExternParmBlock, resultFlags), offsetof(ExternParmBlock, hostBytes12)},
    {"chosenLanguage", offsetof(ExternParmBlock, chosenLanguage), offsetof(ExternParmBlock, hostBytes584)},
    {"currentLanguage", offsetof(ExternParmBlock, currentLanguage), sizeof(ExternParmBlock)},
};

// The field in which `position` is, or the one byte: among the installer's own bytes and behind the record.
Field placeOf(std::size_t position)
{
    for (const Field& field : FIELDS) {
        if (position >= field.begin && position < field.end)
            return field;
    }
    return {"byte", position, position + 1};
}

std::string_view bytesOf(const ExternParmBlock& record)
{
    return std::string_view(reinterpret_cast<const char*>(&record), sizeof record);
}

std::string inHex(std::string_view bytes)
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    std::string text = "0x";
    for (const char byte : bytes) {
        const unsigned value = static_cast<unsigned char>(byte);
        text += DIGITS[value >> 4];
        text += DIGITS[value & 15];
    }
    return text;
}

std::string line(const Field& place, std::string_view actual, std::string_view expected)
{
    const std::size_t length = place.end - place.begin;
    return std::string(place.name) + " at " + std::to_string(place.begin) + ": expected "
        + inHex(expected.substr(place.begin, length)) + ", actual " + inHex(actual.substr(place.begin, length)) + "\n";
}

}  // namespace

std::string recordDifferences(std::string_view actual, std::string_view expected)
{
    std::string text;
    if (actual.size() != expected.size()) {
        text = "size: expected " + std::to_string(expected.size()) + " bytes, actual " + std::to_string(actual.size())
            + "\n";
    }
    int lines = 0;
    const std::size_t common = std::min(actual.size(), expected.size());
    for (std::size_t position = 0; position < common;) {
        if (actual[position] == expected[position]) {
            ++position;
            continue;
        }
        if (lines++ == MOST_LINES)
            return text + "and more\n";
        const Field place = placeOf(position);
        text += line(place, actual, expected);
        position = place.end;
    }
    return text;
}

std::string recordDifferences(const ExternParmBlock& actual, const ExternParmBlock& expected)
{
    return recordDifferences(bytesOf(actual), bytesOf(expected));
}
