#include "tests/support/RecordDifferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <tuple>

namespace {

constexpr std::size_t SIZE = 614;

// clang-format off
// written: there, in a record of zeros
const std::tuple<const char*, std::size_t, std::string, std::string> CASES[] = {
    {"None",                   0,   "",                            ""},
    {"SameByte",               100, std::string(1, '\0'),          ""},
    {"Message",                0,   "\x03\xE8",                    "message at 0: expected 0x0000, actual 0x03E8\n"},
    {"LastByteOfAField",       1,   "\x01",                        "message at 0: expected 0x0000, actual 0x0001\n"},
    {"FirstByteBehindAField",  2,   "\x01",                        "byte at 2: expected 0x00, actual 0x01\n"},
    {"ResultFlags",            8,   "\x80",                        "resultFlags at 8: expected 0x00000000, actual 0x80000000\n"},
    {"ChosenLanguage",         583, "\x0B",                        "chosenLanguage at 582: expected 0x0000, actual 0x000B\n"},
    {"CurrentLanguage",        613, "\x06",                        "currentLanguage at 610: expected 0x00000000, actual 0x00000006\n"},
    {"BytesApart",             20,  std::string("\xAB\0\x02", 3),  "byte at 20: expected 0x00, actual 0xAB\n"
                                                                   "byte at 22: expected 0x00, actual 0x02\n"},
};
// clang-format on

TEST(RecordDifferences, NameTheFieldsOrPositions)
{
    for (const auto& [name, position, written, differences] : CASES) {
        SCOPED_TRACE(name);
        const std::string expected(SIZE, '\0');
        std::string actual = expected;
        actual.replace(position, written.size(), written);
        EXPECT_EQ(recordDifferences(actual, expected), differences);

        ExternParmBlock record;
        std::memcpy(&record, actual.data(), SIZE);
        EXPECT_EQ(recordDifferences(record, ExternParmBlock{}), differences);
    }
}

TEST(RecordDifferences, TellTheSizesAndTheFirst16OfTheBytes)
{
    const std::string record(SIZE, '\0');
    EXPECT_EQ(recordDifferences(record + "x", record), "size: expected 614 bytes, actual 615\n");
    EXPECT_EQ(recordDifferences("\x01", record),
        "size: expected 614 bytes, actual 1\n"
        "message at 0: expected 0x0000, actual 0x01\n");
    EXPECT_EQ(recordDifferences(record + "xy", record + "xz"), "byte at 615: expected 0x7A, actual 0x79\n");
    std::string expected(SIZE, '\0');
    std::string actual = expected;
    actual.replace(100, 16, 16, '\x01');
    const std::string sixteen = recordDifferences(actual, expected);
    EXPECT_EQ(std::count(sixteen.begin(), sixteen.end(), '\n'), 16);
    actual[116] = '\x01';
    EXPECT_EQ(recordDifferences(actual, expected), sixteen + "and more\n");
}

}  // namespace
