#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

struct CaseCase {
    const char* name;
    Bytes text;
    Bytes upper;
    Bytes lower;
};

// clang-format off
const CaseCase CASE_CASES[] = {
    // name               text                upper               lower
    {"Letters",           "aBcXyZ",           "ABCXYZ",           "abcxyz"},
    {"NoLetters",         "1 + 2 @[`{",       "1 + 2 @[`{",       "1 + 2 @[`{"},
    {"NullIsNull",        NULL_STRING,        NULL_STRING,        NULL_STRING},
    {"EmptyIsEmpty",      "",                 "",                 ""},
    {"SharpS",            "Stra\xDF" "e",     "STRA\xDF" "E",     "stra\xDF" "e"},
    {"AccentedLetters",   "\xC9t\xE9",        "\xC9T\xE9",        "\xC9t\xE9"},
    {"EndsAtAZeroByte",   "ab\0cd"sv,         "AB",               "ab"},
    {"ZeroByteFirst",     "\0ab"sv,           "",                 ""},
};
// clang-format on

class StringCase : public testing::TestWithParam<CaseCase> { };

TEST_P(StringCase, ToUpperAndToLowerMapTheText)
{
    const String text = stringOf(GetParam().text);
    EXPECT_EQ(contents(text.ToUpper()), GetParam().upper);
    EXPECT_EQ(contents(text.ToLower()), GetParam().lower);
    EXPECT_EQ(contents(text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringCase, testing::ValuesIn(CASE_CASES), RowName());

TEST(StringCase, EveryByteIsMappedAsItsCharIs)
{
    // In a text that is long enough for any vector instructions, and at every place of them.
    for (unsigned shift = 0; shift < 40; ++shift) {
        std::string bytes(shift, '.');
        std::string upper(bytes);
        std::string lower(bytes);
        for (int byte = 1; byte < 256; ++byte) {
            const Char c = static_cast<char>(byte);
            bytes += c;
            upper += c.ToUpper();
            lower += c.ToLower();
        }
        EXPECT_EQ(contents(String(bytes.c_str()).ToUpper()), upper);
        EXPECT_EQ(contents(String(bytes.c_str()).ToLower()), lower);
    }
}

TEST(StringCase, TextHasANewBufferEvenIfNothingChanges)
{
    const String upper("ABC");
    const String lower("abc");
    EXPECT_FALSE(shareBuffer(upper.ToUpper(), upper));
    EXPECT_FALSE(shareBuffer(lower.ToLower(), lower));
}

TEST(StringCase, ToUpperSharesAnEmptyBuffer)
{
    const String empty("");
    EXPECT_TRUE(shareBuffer(empty.ToUpper(), empty));
}

}  // namespace
