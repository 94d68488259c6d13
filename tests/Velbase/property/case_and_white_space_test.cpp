// Case mapping and white space against the model.

#include "drivers.h"

using namespace std::string_view_literals;

namespace {

void checkCase(const Twin& text)
{
    expectSame("ToUpper", &String::ToUpper, reference::toUpper, text);
    expectSame("ToLower", &String::ToLower, reference::toLower, text);
}

void checkWhiteSpace(const Twin& text)
{
    expectSame("StripWhiteSpace", &String::StripWhiteSpace, reference::stripWhiteSpace, text);
    expectSame("SimplifyWhiteSpace", &String::SimplifyWhiteSpace, reference::simplifyWhiteSpace, text);
}

const TextOperation CASE_OPERATIONS[] = {
    {"Case", "zZ\0"sv, checkCase},
    {"CaseBeyondAscii", "\xE9\xC9\xFF"sv, checkCase},
    {"CaseBesideTheLetters", "@[`"sv, checkCase},
    {"WhiteSpace", "x \0"sv, checkWhiteSpace},
    {"WhiteSpaceBeyondAscii", "\x85\xA0 "sv, checkWhiteSpace},
    {"WhiteSpaceControls", "\t\r\x1F"sv, checkWhiteSpace},
};

INSTANTIATE_TEST_SUITE_P(CaseAndWhiteSpace, TextProperty, testing::ValuesIn(CASE_OPERATIONS), RowName());

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
