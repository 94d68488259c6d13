// Case mapping and white space against the model.

#include "drivers.h"

using namespace std::string_view_literals;

namespace {

void checkCase(const Twin& text)
{
    ASSERT_TRUE(agrees(text.string.ToUpper(), reference::toUpper(text.text), {text})) << call(text, "ToUpper");
    ASSERT_TRUE(agrees(text.string.ToLower(), reference::toLower(text.text), {text})) << call(text, "ToLower");
}

void checkWhiteSpace(const Twin& text)
{
    ASSERT_TRUE(agrees(text.string.StripWhiteSpace(), reference::stripWhiteSpace(text.text), {text}))
        << call(text, "StripWhiteSpace");
    ASSERT_TRUE(agrees(text.string.SimplifyWhiteSpace(), reference::simplifyWhiteSpace(text.text), {text}))
        << call(text, "SimplifyWhiteSpace");
}

const TextOperation OPERATIONS[] = {
    {"Case", "zZ\0"sv, checkCase},
    {"CaseBeyondAscii", "\xE9\xC9\xFF"sv, checkCase},
    {"CaseBesideTheLetters", "@[`"sv, checkCase},
    {"WhiteSpace", "x \0"sv, checkWhiteSpace},
    {"WhiteSpaceBeyondAscii", "\x85\xA0 "sv, checkWhiteSpace},
    {"WhiteSpaceControls", "\t\r\x1F"sv, checkWhiteSpace},
};

INSTANTIATE_TEST_SUITE_P(CaseAndWhiteSpace, TextProperty, testing::ValuesIn(OPERATIONS), RowName());

TEST(CaseAndWhiteSpaceProperty, AgreesOnEveryByteBetweenLetters)
{
    for (int code = 0; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        for (const std::string& bytes : {byte, "x" + byte, byte + "x", "x" + byte + "Y" + byte}) {
            checkCase(twinOf(bytes));
            checkWhiteSpace(twinOf(bytes));
        }
        ASSERT_FALSE(HasFailure());
    }
}

}  // namespace
