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

// Long enough for several blocks, with something to simplify at every place of them.
TEST(CaseAndWhiteSpaceProperty, AgreesOnWhiteSpaceAtEveryPlaceOfALongText)
{
    std::string simple;
    while (simple.size() < 300)
        simple += "some words ";
    for (const std::string_view space : {" "sv, "\t"sv, "\xA0"sv, "  "sv, " \n "sv, "\0"sv}) {
        for (std::size_t i = 0; i <= simple.size() && !HasFailure(); ++i)
            checkWhiteSpace(twinOf(std::string(simple).insert(i, space)));
    }
}

// Long enough for any vector instructions.
TEST(CaseAndWhiteSpaceProperty, AgreesOnEveryByteAtEveryPlaceOfALongText)
{
    std::string bytes;
    for (int code = 1; code < 256; ++code)
        (bytes += static_cast<char>(code)) += code % 2 == 0 ? "x" : "xyz";
    for (std::size_t shift = 0; shift < 40; ++shift) {
        checkCase(twinOf(std::string(shift, '.') + bytes));
        checkWhiteSpace(twinOf(std::string(shift, '.') + bytes));
    }
}

}  // namespace
