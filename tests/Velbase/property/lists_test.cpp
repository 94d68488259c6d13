// Split and Join against the model.

#include "drivers.h"

using namespace std::string_view_literals;

namespace {

testing::AssertionResult agree(
    const std::vector<String>& fields, const std::vector<reference::Text>& expected, const Twins& others)
{
    if (fields.size() != expected.size())
        return testing::AssertionFailure() << "  expected " << expected.size() << " fields, came " << fields.size();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const testing::AssertionResult result = agrees(fields[i], expected[i], others);
        if (!result)
            return testing::AssertionFailure() << result.message() << "  in field " << i << "\n";
    }
    return testing::AssertionSuccess();
}

void checkSplit(const Twin& text)
{
    for (const char separator : "a, \xE9\0"sv) {
        const std::vector<reference::Text> expected = reference::split(text.text, separator);
        std::vector<String> fields = {String("from before"), String()};
        text.string.Split(separator, fields);
        ASSERT_TRUE(agree(fields, expected, {text})) << call(text, "Split", separator);

        fields = {String("from before"), text.string};
        fields[1].Split(separator, fields);
        ASSERT_TRUE(agree(fields, expected, {text})) << call(text, "Split", separator) << " into its own list";
    }
}

void checkJoin(const Twin& separator, const std::vector<Twin>& parts)
{
    std::vector<String> strings;
    std::vector<reference::Text> texts;
    Twins others = {separator};
    for (const Twin& part : parts) {
        strings.push_back(part.string);
        texts.push_back(part.text);
        others.push_back(part);
    }
    ASSERT_TRUE(agrees(String::Join(separator.string, strings), reference::join(separator.text, texts), others))
        << "Join(" << shown(separator) << ", " << shown(parts) << ")";
    if (parts.empty())
        return;
    ASSERT_TRUE(agrees(String::Join(strings.back(), strings), reference::join(texts.back(), texts), others))
        << "Join(the last one, " << shown(parts) << ")";
    for (std::size_t i = 0; i < parts.size(); ++i)
        ASSERT_EQ(strings[i].Latin1(), parts[i].string.Latin1()) << "part " << i << " of " << shown(parts);
}

void checkJoinOfTwo(const Twin& part, const Twin& separator)
{
    const Twin null = nullTwin();
    const Twin empty = twinOf("");
    const std::vector<Twin> lists[] = {
        {}, {part}, {part, part}, {null, part}, {part, empty}, {empty, null, part}, {null, separator, part}};
    for (const std::vector<Twin>& parts : lists) {
        checkJoin(separator, parts);
        if (testing::Test::HasFailure())
            return;
    }
}

const TextOperation LIST_TEXT_OPERATIONS[] = {
    {"Split", "a,\0"sv, checkSplit},
    {"SplitOfOtherLetters", "a,b"sv, checkSplit},
};

INSTANTIATE_TEST_SUITE_P(Lists, TextProperty, testing::ValuesIn(LIST_TEXT_OPERATIONS), RowName());
INSTANTIATE_TEST_SUITE_P(
    Lists, PairProperty, testing::Values(PairOperation{"Join", "a,\0"sv, checkJoinOfTwo}), RowName());

TEST(JoinProperty, AgreesOnRandomLists)
{
    Random random(11);
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        const Twin separator = random.text(2);
        std::vector<Twin> parts;
        for (std::uint32_t left = random.below(6); left > 0; --left)
            parts.push_back(random.once(4) && !parts.empty() ? parts.front() : random.text(3));
        checkJoin(separator, parts);
    }
}

}  // namespace
