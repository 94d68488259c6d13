#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"
#include "toolbox/core/core_foundation/StringObject.h"

#include <tuple>
#include <vector>

namespace {

using CFString = CoreFoundationTest;
using Toolbox::textOf;

constexpr CFStringEncoding MAC_ROMAN = kCFStringEncodingMacRoman;
constexpr CFStringEncoding ASCII = kCFStringEncodingASCII;
constexpr CFStringEncoding UTF8 = kCFStringEncodingUTF8;

// The bytes that a Pascal string counts.
std::string bytesOf(ConstStringPtr pascalString)
{
    return std::string(reinterpret_cast<const char*>(pascalString + 1), pascalString[0]);
}

// clang-format off
const std::tuple<const char*, std::string, CFStringEncoding, const char16_t*> DECODING_CASES[] = {
    // name                    bytes                                       encoding    text
    {"ASCII",                  "Hello",                                    ASCII,      u"Hello"},
    {"LastOfASCII",            "\x7F",                                     ASCII,      u"\x7F"},
    {"FirstPastASCII",         "a\x80",                                    ASCII,      nullptr},
    {"EmptyASCII",             "",                                         ASCII,      u""},
    {"MacRoman",               "\x80 \xCA \xDB \xFF",                      MAC_ROMAN,  u"\u00C4 \u00A0 \u20AC \u02C7"},
    {"EmptyMacRoman",          "",                                         MAC_ROMAN,  u""},
    {"UTF8",                   "\x7F\xC2\x80\xE2\x82\xAC\xF0\x9F\x98\x80", UTF8,       u"\x7F\x80\u20AC\xD83D\xDE00"},
    {"UTF8ByteOrderMarkStays", "\xEF\xBB\xBF!",                            UTF8,       u"\uFEFF!"},
    {"EmptyUTF8",              "",                                         UTF8,       u""},
    {"UTF8LoneContinuation",   "a\x80",                                    UTF8,       nullptr},
    {"UTF8CutShort",           "a\xE2\x82",                                UTF8,       nullptr},
    {"UTF8Overlong",           "\xC0\x80",                                 UTF8,       nullptr},
    {"UTF8Surrogate",          "\xED\xA0\x80",                             UTF8,       nullptr},
    {"UTF8PastUnicode",        "\xF4\x90\x80\x80",                         UTF8,       nullptr},
    {"UTF8NoSuchByte",         "\xFF",                                     UTF8,       nullptr},
    {"OtherEncoding",          "a",                                        0x0201,     nullptr},
    {"UnknownEncoding",        "a",                                        0xFFFFFFFF, nullptr},
};
// clang-format on

TEST_F(CFString, IsTheTextOfValidBytes)
{
    for (const auto& [name, bytes, encoding, text] : DECODING_CASES) {
        SCOPED_TRACE(name);
        const Owned string = CFStringCreateWithCString(nullptr, bytes.c_str(), encoding);
        EXPECT_EQ(string == nullptr, text == nullptr);
        EXPECT_EQ(textOf(string).isNull(), text == nullptr) << "the empty text is not null";
        EXPECT_EQ(textOf(string), QStringView(text).toString());
    }
}

TEST_F(CFString, CharactersOfAWrongCountOrANullTextAreNoString)
{
    EXPECT_EQ(CFStringCreateWithCString(nullptr, nullptr, MAC_ROMAN), nullptr);
    const UniChar unit = 'a';
    EXPECT_EQ(CFStringCreateWithCharacters(nullptr, &unit, -1), nullptr);
    EXPECT_EQ(CFStringCreateWithCharacters(nullptr, nullptr, 1), nullptr);
    EXPECT_EQ(CFStringCreateWithCharacters(nullptr, nullptr, -1), nullptr);
}

TEST_F(CFString, EveryMacRomanByteIsOneCharacterAndComesBack)
{
    std::string all;
    for (int byte = 1; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const Owned string = CFStringCreateWithCString(nullptr, all.c_str(), MAC_ROMAN);
    EXPECT_EQ(textOf(string).size(), 255);
    const ConstStringPtr pascalString = CFStringGetPascalStringPtr(string, MAC_ROMAN);
    ASSERT_NE(pascalString, nullptr);
    EXPECT_EQ(bytesOf(pascalString), all);
}

TEST_F(CFString, CharactersAreTakenAsTheyAre)
{
    const UniChar units[] = {'a', 0, 0xD800, 0xFFFF, 0xDC00};
    const Owned string = CFStringCreateWithCharacters(nullptr, units, 5);
    EXPECT_EQ(textOf(string), QString(reinterpret_cast<const QChar*>(units), 5));
}

TEST_F(CFString, NoCharactersAreTheEmptyStringWhateverThePointer)
{
    for (const auto* units : {static_cast<const UniChar*>(nullptr), reinterpret_cast<const UniChar*>(1)}) {
        const CFStringRef string = CFStringCreateWithCharacters(nullptr, units, 0);
        ASSERT_NE(string, nullptr);
        EXPECT_FALSE(textOf(string).isNull());
        EXPECT_EQ(textOf(string).size(), 0);
        CFRelease(string);
    }
}

TEST_F(CFString, IsEqualToAnotherOfTheSameTextHoweverMade)
{
    const UniChar units[] = {'a', 0xC4};
    const Owned unicode = CFStringCreateWithCharacters(nullptr, units, 2);
    const Owned macRoman = CFStringCreateWithCString(nullptr, "a\x80", MAC_ROMAN);
    const Owned other = CFStringCreateWithCString(nullptr, "a", MAC_ROMAN);
    EXPECT_NE(unicode, macRoman);
    EXPECT_TRUE(CFEqual(unicode, macRoman));
    EXPECT_FALSE(CFEqual(unicode, other));
}

// What a string was made of decides whether it has a Pascal form, and in which encodings.
// clang-format off
const std::tuple<const char*, std::string, CFStringEncoding, bool, bool> PASCAL_CASES[] = {
    // name                bytes                  made from  in Mac OS Roman  in ASCII
    {"Empty",              "",                    MAC_ROMAN, true,            true},
    {"EmptyASCII",         "",                    ASCII,     true,            true},
    {"EmptyUTF8",          "",                    UTF8,      true,            true},
    {"ASCII",              "a",                   ASCII,     true,            true},
    {"ASCIIInUTF8",        "a",                   UTF8,      true,            true},
    {"MacRoman",           "a\x80",               MAC_ROMAN, true,            false},
    {"MacRomanTextInUTF8", "a\xC3\x84",           UTF8,      false,           false},
    {"Bytes255",           std::string(255, 'a'),    MAC_ROMAN, true,            true},
    {"Bytes256",           std::string(256, 'a'),    MAC_ROMAN, false,           false},
    {"HighBytes255",       std::string(255, '\xFF'), MAC_ROMAN, true,            false},
    {"HighBytes256",       std::string(256, '\xFF'), MAC_ROMAN, false,           false},
    {"ASCIIBytes255",      std::string(255, 'a'),    ASCII,     true,            true},
    {"ASCIIBytes256",      std::string(256, 'a'),    ASCII,     false,           false},
};
// clang-format on

TEST_F(CFString, HasItsOwnBytesAsPascalStringInAnEncodingThatItHas)
{
    for (const auto& [name, bytes, madeFrom, inMacRoman, inASCII] : PASCAL_CASES) {
        SCOPED_TRACE(name);
        const Owned string = CFStringCreateWithCString(nullptr, bytes.c_str(), madeFrom);
        const ConstStringPtr macRoman = CFStringGetPascalStringPtr(string, MAC_ROMAN);
        const ConstStringPtr ascii = CFStringGetPascalStringPtr(string, ASCII);
        EXPECT_EQ(macRoman != nullptr, inMacRoman);
        EXPECT_EQ(ascii != nullptr, inASCII);
        EXPECT_EQ(macRoman == nullptr ? bytes : bytesOf(macRoman), bytes);
        EXPECT_EQ(ascii == nullptr ? bytes : bytesOf(ascii), bytes);
        EXPECT_EQ(CFStringGetPascalStringPtr(string, UTF8), nullptr);
        EXPECT_EQ(CFStringGetPascalStringPtr(string, 0xFFFFFFFF), nullptr);
    }
}

TEST_F(CFString, OfCharactersHasAPascalStringWhenAllIsASCII)
{
    const std::tuple<const char*, std::vector<UniChar>, bool> rows[] = {
        {"empty", {}, true},
        {"ASCII", {'a', 0x7F}, true},
        {"zero is a character", {'a', 0, 'b'}, true},
        {"the first past ASCII", {'a', 0x80}, false},
        {"a character of Mac OS Roman", {0xC4}, false},
        {"the low byte looks like ASCII", {0x0141}, false},
        {"255 characters", std::vector<UniChar>(255, 'a'), true},
        {"256 characters", std::vector<UniChar>(256, 'a'), false},
    };
    for (const auto& [name, units, hasForm] : rows) {
        SCOPED_TRACE(name);
        const Owned string = CFStringCreateWithCharacters(nullptr, units.data(), static_cast<CFIndex>(units.size()));
        const ConstStringPtr pascalString = CFStringGetPascalStringPtr(string, MAC_ROMAN);
        ASSERT_EQ(pascalString != nullptr, hasForm);
        const std::string text(units.begin(), units.end());
        EXPECT_EQ(pascalString == nullptr ? text : bytesOf(pascalString), text);
        EXPECT_EQ(CFStringGetPascalStringPtr(string, ASCII), pascalString);
    }
}

TEST_F(CFString, ThePascalStringStaysWhereItIsWhileTheStringLives)
{
    const Owned string = CFStringCreateWithCString(nullptr, "text", MAC_ROMAN);
    const ConstStringPtr first = CFStringGetPascalStringPtr(string, MAC_ROMAN);
    const Owned other = CFStringCreateWithCString(nullptr, "other", MAC_ROMAN);
    EXPECT_EQ(CFStringGetPascalStringPtr(string, MAC_ROMAN), first);
    EXPECT_EQ(bytesOf(first), "text");
}

TEST_F(CFString, AConstantIsOneObjectForEqualTextsOfASCII)
{
    const std::string sameText = "constant";
    const CFStringRef constant = CFSTR("constant");
    EXPECT_EQ(__CFStringMakeConstantString(sameText.c_str()), constant);
    EXPECT_NE(CFSTR("another constant"), constant);
    EXPECT_EQ(textOf(constant), "constant");
    const Owned string = CFStringCreateWithCString(nullptr, "constant", ASCII);
    EXPECT_NE(string, CFSTR("constant"));
    EXPECT_TRUE(CFEqual(string, CFSTR("constant")));
    EXPECT_EQ(__CFStringMakeConstantString(nullptr), nullptr);
    EXPECT_EQ(__CFStringMakeConstantString("\x80"), nullptr);
    EXPECT_EQ(__CFStringMakeConstantString("\x80"), nullptr) << "nor the second time";
    EXPECT_EQ(textOf(CFSTR("")).size(), 0);
}

TEST_F(CFString, AConstantNeverEndsAndIsNoLeak)
{
    const std::size_t objects = liveReferences();
    const std::size_t constants = liveConstants();
    const std::string text = "never released " + std::to_string(constants);  // new each time
    const CFStringRef constant = __CFStringMakeConstantString(text.c_str());
    CFRelease(constant);
    CFRelease(constant);
    EXPECT_EQ(__CFStringMakeConstantString(text.c_str()), constant);
    EXPECT_EQ(textOf(constant), text.c_str());
    EXPECT_EQ(liveReferences(), objects);
    EXPECT_EQ(liveConstants(), constants + 1);
}

}  // namespace
