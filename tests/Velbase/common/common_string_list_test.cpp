#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

typedef std::vector<std::optional<std::string>> Contents;

Contents contentsOf(const std::vector<String>& list)
{
    Contents all;
    for (const String& text : list)
        all.push_back(contents(text));
    return all;
}

std::vector<String> listOf(const std::vector<Bytes>& texts)
{
    std::vector<String> list;
    for (const Bytes& text : texts)
        list.push_back(stringOf(text));
    return list;
}

struct SplitCase {
    const char* name;
    Bytes text;
    char separator;
    std::vector<Bytes> fields;
};

// clang-format off
const SplitCase SPLIT_CASES[] = {
    // name                    text         separator fields
    {"ThreeFields",            "a,b,c",     ',',      {"a", "b", "c"}},
    {"InnerFieldIsEmpty",      "a,,b",      ',',      {"a", "", "b"}},
    {"FirstFieldIsEmpty",      ",a",        ',',      {"", "a"}},
    {"LastFieldIsNull",        "a,",        ',',      {"a", NULL_STRING}},
    {"SeparatorAlone",         ",",         ',',      {"", NULL_STRING}},
    {"NoSeparator",            "abc",       ';',      {"abc"}},
    {"CaseCounts",             "axA",       'a',      {"", "xA"}},
    {"EmptyText",              "",          ',',      {""}},
    {"NullText",               NULL_STRING, ',',      {NULL_STRING}},
    {"HighByte",               "a\xE9z",    '\xE9',   {"a", "z"}},
    {"ZeroByteSeparates",      "a\0b"sv,    '\0',     {"a", "b"}},
    {"ZeroBytesAreKept",       "a\0,\0b"sv, ',',      {"a\0"sv, "\0b"sv}},
};
// clang-format on

class StringSplit : public testing::TestWithParam<SplitCase> { };

TEST_P(StringSplit, GivesTheFieldsInAnyList)
{
    const String text = stringOf(GetParam().text);
    const Contents expected = contentsOf(listOf(GetParam().fields));
    std::vector<String> fields;
    text.Split(GetParam().separator, fields);
    EXPECT_EQ(contentsOf(fields), expected);
    EXPECT_EQ(contents(text), GetParam().text);

    fields.assign(7, "old");
    text.Split(GetParam().separator, fields);
    EXPECT_EQ(contentsOf(fields), expected);
}

TEST_P(StringSplit, TakesAnElementOfTheListItself)
{
    std::vector<String> list = {"old", stringOf(GetParam().text), "old"};
    list[1].Split(GetParam().separator, list);
    EXPECT_EQ(contentsOf(list), contentsOf(listOf(GetParam().fields)));
}

INSTANTIATE_TEST_SUITE_P(Cases, StringSplit, testing::ValuesIn(SPLIT_CASES), RowName());

TEST(StringSplit, FieldWithoutASeparatorSharesTheBuffer)
{
    for (const String& text : {String("abc"), String("")}) {
        std::vector<String> fields;
        text.Split(';', fields);
        ASSERT_EQ(fields.size(), 1u);
        EXPECT_TRUE(shareBuffer(fields[0], text));
    }
}

TEST(StringSplit, OtherFieldsHaveBuffersOfTheirOwn)
{
    const String text("a,b");
    std::vector<String> fields;
    text.Split(',', fields);
    ASSERT_EQ(fields.size(), 2u);
    EXPECT_FALSE(shareBuffer(fields[0], text));
    EXPECT_FALSE(shareBuffer(fields[1], text));
}

const int NOBODY = -1;
const int SEPARATOR = -2;

struct JoinCase {
    const char* name;
    Bytes separator;
    std::vector<Bytes> parts;
    Bytes joined;
    int shared;  // the part whose buffer the result has, or SEPARATOR or NOBODY
};

// clang-format off
const JoinCase JOIN_CASES[] = {
    // name                   separator    parts                            joined       shared
    {"ThreeParts",            ",",         {"a", "b", "c"},                 "a,b,c",     NOBODY},
    {"LongSeparator",         ", and ",    {"ab", "cd"},                    "ab, and cd", NOBODY},
    {"OnePart",               ",",         {"a"},                           "a",         0},
    {"NoPartsIsNull",         ",",         {},                              NULL_STRING, NOBODY},
    {"EmptyPartInside",       ",",         {"a", "", "c"},                  "a,,c",      NOBODY},
    {"NullPartInside",        ",",         {"a", NULL_STRING, "c"},         "a,,c",      NOBODY},
    {"EmptyPartLast",         ",",         {"a", NULL_STRING},              "a,",        NOBODY},
    {"OneEmptyPartIsNull",    ",",         {""},                            NULL_STRING, NOBODY},
    {"OneNullPartIsNull",     ",",         {NULL_STRING},                   NULL_STRING, NOBODY},
    {"OneSeparatorIsShared",  ",",         {"", ""},                        ",",         SEPARATOR},
    {"NoTextAtAllIsNull",     "",          {"", ""},                        NULL_STRING, NOBODY},
    {"NullSeparator",         NULL_STRING, {"a", "b"},                      "ab",        NOBODY},
    {"OnlyTextIsTheSecond",   "",          {"", "b", NULL_STRING},          "b",         1},
    {"KeepsZeroBytes",        "\0"sv,      {"a\0"sv, "b"},                  "a\0\0b"sv,  NOBODY},
};
// clang-format on

class StringJoin : public testing::TestWithParam<JoinCase> { };

TEST_P(StringJoin, PutsThePartsTogether)
{
    const String separator = stringOf(GetParam().separator);
    const std::vector<String> parts = listOf(GetParam().parts);
    const String joined = String::Join(separator, parts);
    EXPECT_EQ(contents(joined), GetParam().joined);
    EXPECT_EQ(shareBuffer(joined, separator), GetParam().shared == SEPARATOR);
    for (std::size_t i = 0; i < parts.size(); ++i)
        EXPECT_EQ(shareBuffer(joined, parts[i]), GetParam().shared == static_cast<int>(i));
    EXPECT_EQ(contentsOf(parts), contentsOf(listOf(GetParam().parts)));
}

INSTANTIATE_TEST_SUITE_P(Cases, StringJoin, testing::ValuesIn(JOIN_CASES), RowName());

TEST(StringJoin, TakesAnElementOfTheListAsSeparator)
{
    std::vector<String> parts = {"a", "b", "c"};
    EXPECT_EQ(contents(String::Join(parts[0], parts)), "aabac");
    parts[0] = String::Join(parts[0], parts);
    EXPECT_EQ(contents(parts[0]), "aabac");
}

}  // namespace
