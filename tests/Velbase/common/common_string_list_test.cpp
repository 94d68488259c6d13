// Lists by example. tests/Velbase/property tries them on every short text, with whose buffer each result has.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

namespace {

typedef std::vector<std::optional<std::string>> Fields;

// The fields of `text`, in a list that held others.
std::vector<String> split(const String& text, char separator)
{
    std::vector<String> fields(7, "old");
    text.Split(separator, fields);
    return fields;
}

Fields fieldsOf(const String& text, char separator)
{
    Fields all;
    for (const String& field : split(text, separator))
        all.push_back(contents(field));
    return all;
}

TEST(StringSplit, GivesTheTextsBetweenTheSeparatorsOfWhichTheLastMayBeNull)
{
    EXPECT_EQ(fieldsOf("a,b,c", ','), (Fields{"a", "b", "c"}));
    EXPECT_EQ(fieldsOf("a,,b", ','), (Fields{"a", "", "b"}));
    EXPECT_EQ(fieldsOf(",a", ','), (Fields{"", "a"}));
    EXPECT_EQ(fieldsOf("a,", ','), (Fields{"a", std::nullopt}));
    EXPECT_EQ(fieldsOf(",", ','), (Fields{"", std::nullopt}));
    for (const String& text : {String("abc"), String("")})
        EXPECT_TRUE(shareBuffer(split(text, ';').at(0), text));
    EXPECT_EQ(fieldsOf("abc", ';'), Fields{"abc"});
    EXPECT_EQ(fieldsOf("", ','), Fields{""});
    EXPECT_EQ(fieldsOf(String(), ','), Fields{std::nullopt});
}

TEST(StringJoin, PutsThePartsTogether)
{
    EXPECT_EQ(contents(String::Join(",", {"a", "b", "c"})), "a,b,c");
    EXPECT_EQ(contents(String::Join(", and ", {"ab", "cd"})), "ab, and cd");
    EXPECT_EQ(contents(String::Join(",", {"a"})), "a");
    EXPECT_EQ(contents(String::Join(",", {"a", "", "c"})), "a,,c");
    EXPECT_EQ(contents(String::Join(",", {"a", String()})), "a,");
    EXPECT_EQ(contents(String::Join(",", {})), NULL_STRING);
    EXPECT_EQ(contents(String::Join("", {"", ""})), NULL_STRING);
}

}  // namespace
