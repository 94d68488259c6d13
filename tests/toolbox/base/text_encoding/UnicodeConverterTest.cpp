#include <Carbon/UnicodeConverter.h>

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace {

const TextEncoding MAC_ROMAN =
    CreateTextEncoding(kTextEncodingMacRoman, kTextEncodingDefaultVariant, kTextEncodingDefaultFormat);

TextToUnicodeInfo textToUnicode()
{
    TextToUnicodeInfo converter = nullptr;
    EXPECT_EQ(CreateTextToUnicodeInfoByEncoding(MAC_ROMAN, &converter), noErr);
    return converter;
}

UnicodeToTextInfo unicodeToText()
{
    UnicodeToTextInfo converter = nullptr;
    EXPECT_EQ(CreateUnicodeToTextInfoByEncoding(MAC_ROMAN, &converter), noErr);
    return converter;
}

TEST(CreateTextEncoding, PutsTheThreePartsIntoOneNumber)
{
    EXPECT_EQ(CreateTextEncoding(0, 0, 0), 0u);
    EXPECT_EQ(CreateTextEncoding(0x0100, 0, 0), 0x0100u);
    EXPECT_EQ(CreateTextEncoding(0, 2, 0), 0x00020000u);
    EXPECT_EQ(CreateTextEncoding(0x0100, 0, 2), 0x08000100u);
    EXPECT_EQ(CreateTextEncoding(0xFFFF, 0x3FF, 0xF), 0x3FFFFFFFu);
    EXPECT_EQ(CreateTextEncoding(0x10000, 0x400, 0x10), 0u) << "each part is kept within its bits";
}

TEST(CreateConverter, HandsOutOneForEachDirection)
{
    ASSERT_NE(textToUnicode(), nullptr);
    ASSERT_NE(unicodeToText(), nullptr);
    EXPECT_EQ(textToUnicode(), textToUnicode());
    EXPECT_EQ(unicodeToText(), unicodeToText());
    EXPECT_NE(static_cast<void*>(textToUnicode()), static_cast<void*>(unicodeToText()));
    EXPECT_EQ(CreateTextToUnicodeInfoByEncoding(MAC_ROMAN, nullptr), paramErr);
    EXPECT_EQ(CreateUnicodeToTextInfoByEncoding(MAC_ROMAN, nullptr), paramErr);
}

TEST(CreateConverter, RefusesEveryOtherEncoding)
{
    for (const TextEncoding encoding : {1u, 0x0100u, 0x0600u, 0x00010000u, 0x04000000u, 0xFFFFFFFFu}) {
        TextToUnicodeInfo toUnicode = textToUnicode();
        EXPECT_EQ(CreateTextToUnicodeInfoByEncoding(encoding, &toUnicode), kTextUnsupportedEncodingErr) << encoding;
        EXPECT_EQ(toUnicode, nullptr);
        UnicodeToTextInfo toText = unicodeToText();
        EXPECT_EQ(CreateUnicodeToTextInfoByEncoding(encoding, &toText), kTextUnsupportedEncodingErr) << encoding;
        EXPECT_EQ(toText, nullptr);
    }
}

constexpr ByteCount UNTOUCHED = 0xABCD;

// One call: what it is given besides the text, and what it must answer. Lengths are in bytes.
// clang-format off
const struct {
    const char* name;
    std::string text;
    ByteCount bufferSize;
    OSStatus result;
    ByteCount read;
    std::vector<UniChar> unicode;
} TO_UNICODE_CASES[] = {
    // name                 text          size  result                        read  unicode
    {"NoText",              "",           0,    noErr,                         0,   {}},
    {"NoTextSomeRoom",      "",           8,    noErr,                         0,   {}},
    {"ExactFit",            "ab\x8A",     6,    noErr,                         3,   {'a', 'b', 0xE4}},
    {"RoomToSpare",         "ab",         100,  noErr,                         2,   {'a', 'b'}},
    {"ZeroByte",            {"a\0b", 3},  6,    noErr,                         3,   {'a', 0, 'b'}},
    {"UpperHalf",           "\x80\xF0\xFF", 6,  noErr,                         3,   {0xC4, 0xF8FF, 0x2C7}},
    {"NoRoom",              "a",          0,    kTECBufferBelowMinimumSizeErr, 0,   {}},
    {"RoomForHalfAUnit",    "a",          1,    kTECBufferBelowMinimumSizeErr, 0,   {}},
    {"OneUnitTooFew",       "ab",         2,    kTECOutputBufferFullStatus,    1,   {'a'}},
    {"ThreeOfFour",         "abcd",       7,    kTECOutputBufferFullStatus,    3,   {'a', 'b', 'c'}},
};
// clang-format on

TEST(TextToUnicode, ConvertsWhatFits)
{
    for (const auto& row : TO_UNICODE_CASES) {
        SCOPED_TRACE(row.name);
        std::vector<UniChar> buffer(row.unicode.size() + 1, 0x5555);
        ByteCount read = UNTOUCHED;
        ByteCount written = UNTOUCHED;
        EXPECT_EQ(ConvertFromTextToUnicode(textToUnicode(), static_cast<ByteCount>(row.text.size()), row.text.data(), 0,
                      0, nullptr, nullptr, nullptr, row.bufferSize, &read, &written, buffer.data()),
            row.result);
        EXPECT_EQ(read, row.read);
        EXPECT_EQ(written, row.unicode.size() * 2);
        EXPECT_EQ(buffer.back(), 0x5555) << "no terminator is written";
        buffer.pop_back();
        EXPECT_EQ(buffer, row.unicode);
    }
}

// clang-format off
const struct {
    const char* name;
    std::vector<UniChar> unicode;
    ByteCount unicodeLength;
    ByteCount bufferSize;
    OSStatus result;
    ByteCount read;
    std::string text;
} TO_TEXT_CASES[] = {
    // name                  unicode               length size  result                       read  text
    {"NoText",               {},                     0,   0,    noErr,                         0,  ""},
    {"NoTextSomeRoom",       {},                     0,   8,    noErr,                         0,  ""},
    {"ExactFit",             {'a', 0xE4, 0x20AC},    6,   3,    noErr,                         6,  "a\x8A\xDB"},
    {"RoomToSpare",          {'a', 'b'},             4,   100,  noErr,                         4,  "ab"},
    {"ZeroUnit",             {'a', 0, 'b'},          6,   3,    noErr,                         6,  {"a\0b", 3}},
    {"NoRoom",               {'a'},                  2,   0,    kTECBufferBelowMinimumSizeErr, 0,  ""},
    {"OneByteTooFew",        {'a', 'b'},             4,   1,    kTECOutputBufferFullStatus,    2,  "a"},
    {"UnmappableAtOnce",     {0x4E00, 'a'},          4,   2,    kTECUnmappableElementErr,      0,  ""},
    {"UnmappableLater",      {'a', 'b', 0x4E00},     6,   3,    kTECUnmappableElementErr,      4,  "ab"},
    {"UnmappableAtTheFull",  {'a', 'b', 0x4E00},     6,   2,    kTECOutputBufferFullStatus,    4,  "ab"},
    {"UnmappableWithNoRoom", {0x4E00},               2,   0,    kTECBufferBelowMinimumSizeErr, 0,  ""},
    {"LoneHighSurrogate",    {'a', 0xD83D},          4,   4,    kTECUnmappableElementErr,      2,  "a"},
    {"SurrogatePair",        {'a', 0xD83D, 0xDE00},  6,   6,    kTECUnmappableElementErr,      2,  "a"},
    {"LetterAndAccent",      {'e', 0x0301},          4,   4,    kTECUnmappableElementErr,      2,  "e"},
    {"LookAlikeOfMinus",     {0x2212},               2,   4,    kTECUnmappableElementErr,      0,  ""},
    {"HalfAUnit",            {'a'},                  1,   4,    kTECPartialCharErr,            0,  ""},
    {"HalfAUnitNoRoom",      {'a'},                  1,   0,    kTECPartialCharErr,            0,  ""},
    {"OneAndAHalf",          {'a', 'b'},             3,   4,    kTECPartialCharErr,            2,  "a"},
    {"OneAndAHalfJustFits",  {'a', 'b'},             3,   1,    kTECPartialCharErr,            2,  "a"},
    {"TwoAndAHalfTooFew",    {'a', 'b', 'c'},        5,   1,    kTECOutputBufferFullStatus,    2,  "a"},
    {"UnmappableThenHalf",   {0x4E00, 'b'},          3,   4,    kTECUnmappableElementErr,      0,  ""},
};
// clang-format on

TEST(UnicodeToText, ConvertsWhatFitsAndCanBeMapped)
{
    for (const auto& row : TO_TEXT_CASES) {
        SCOPED_TRACE(row.name);
        std::string buffer(row.text.size() + 1, '.');
        ByteCount read = UNTOUCHED;
        ByteCount written = UNTOUCHED;
        EXPECT_EQ(ConvertFromUnicodeToText(unicodeToText(), row.unicodeLength, row.unicode.data(), 0, 0, nullptr,
                      nullptr, nullptr, row.bufferSize, &read, &written, buffer.data()),
            row.result);
        EXPECT_EQ(read, row.read);
        EXPECT_EQ(written, row.text.size());
        EXPECT_EQ(buffer, row.text + ".") << "no terminator is written";
    }
}

// The arguments of one call in either direction, good ones but for what a row spoils.
struct Arguments {
    bool isForeign = false;  // the converter is one for the other direction
    bool hasConverter = true;
    ByteCount length = 2;
    bool hasSource = true;
    OptionBits flags = 0;
    ItemCount offsetCount = 0;
    ByteOffset* offsets = nullptr;
    ItemCount* offsetsUsed = nullptr;
    ByteOffset* resultOffsets = nullptr;
    ByteCount room = 4;
    ByteCount* read;
    ByteCount* written;
    bool hasBuffer = true;
};

ByteOffset anOffset = 0;
ItemCount anItemCount = 0;

const std::tuple<const char*, void (*)(Arguments&), OSStatus> ARGUMENTS_CASES[] = {
    {"AllGood", [](Arguments&) {}, noErr},
    {"NullConverter", [](Arguments& a) { a.hasConverter = false; }, paramErr},
    {"ForeignConverter", [](Arguments& a) { a.isForeign = true; }, kTECCorruptConverterErr},
    {"NullSource", [](Arguments& a) { a.hasSource = false; }, paramErr},
    {"NullBuffer", [](Arguments& a) { a.hasBuffer = false; }, paramErr},
    {"NullRead", [](Arguments& a) { a.read = nullptr; }, paramErr},
    {"NullWritten", [](Arguments& a) { a.written = nullptr; }, paramErr},
    {"Flags", [](Arguments& a) { a.flags = 1; }, paramErr},
    {"OffsetCount", [](Arguments& a) { a.offsetCount = 1; }, paramErr},
    {"Offsets", [](Arguments& a) { a.offsets = &anOffset; }, paramErr},
    {"OffsetsUsed", [](Arguments& a) { a.offsetsUsed = &anItemCount; }, paramErr},
    {"ResultOffsets", [](Arguments& a) { a.resultOffsets = &anOffset; }, paramErr},
    {"NullBufferOfNoSize", [](Arguments& a) { a.hasBuffer = false, a.room = 0; }, kTECBufferBelowMinimumSizeErr},
    {"NullSourceOfNoLength", [](Arguments& a) { a.hasSource = false, a.length = 0; }, noErr},
    {"NothingToConvertIntoNowhere", [](Arguments& a) { a.length = 0, a.hasBuffer = false; }, noErr},
};

template <typename Converter, typename Source, typename Buffer, typename Convert>
void expectArgumentsToBeJudged(Converter good, Converter foreign, Source* source, Buffer* buffer, Convert convert)
{
    for (const auto& [name, spoil, result] : ARGUMENTS_CASES) {
        SCOPED_TRACE(name);
        ByteCount read = UNTOUCHED;
        ByteCount written = UNTOUCHED;
        Arguments a;
        a.read = &read;
        a.written = &written;
        spoil(a);
        EXPECT_EQ(convert(a.isForeign      ? foreign
                          : a.hasConverter ? good
                                           : nullptr,
                      a.length, a.hasSource ? source : nullptr, a.flags, a.offsetCount, a.offsets, a.offsetsUsed,
                      a.resultOffsets, a.room, a.read, a.written, a.hasBuffer ? buffer : nullptr),
            result);
        if (result != noErr) {
            EXPECT_EQ(read, a.read == nullptr ? UNTOUCHED : 0);
            EXPECT_EQ(written, a.written == nullptr ? UNTOUCHED : 0);
        }
    }
}

TEST(ConverterArguments, AreJudgedInBothDirections)
{
    UniChar units[2] = {'a'};
    char text[] = "abc";
    expectArgumentsToBeJudged(textToUnicode(), reinterpret_cast<TextToUnicodeInfo>(unicodeToText()),
        static_cast<const char*>("ab"), units, ConvertFromTextToUnicode);
    expectArgumentsToBeJudged(unicodeToText(), reinterpret_cast<UnicodeToTextInfo>(textToUnicode()),
        static_cast<const UniChar*>(units), text, ConvertFromUnicodeToText);
}

// Every byte converts to Unicode and back to itself.
void convertAllBytes(int rounds, bool* allRight)
{
    UInt8 text[256];
    std::iota(std::begin(text), std::end(text), UInt8(0));
    *allRight = true;
    for (int round = 0; round < rounds; ++round) {
        UniChar unicode[256] = {};
        UInt8 back[256] = {};
        ByteCount read = 0;
        ByteCount written = 0;
        ConvertFromTextToUnicode(
            textToUnicode(), 256, text, 0, 0, nullptr, nullptr, nullptr, 512, &read, &written, unicode);
        ConvertFromUnicodeToText(
            unicodeToText(), 512, unicode, 0, 0, nullptr, nullptr, nullptr, 256, &read, &written, back);
        *allRight = *allRight && read == 512 && written == 256 && std::equal(text, text + 256, back);
    }
}

TEST(Converters, ServeSeveralThreadsAtOnce)
{
    bool allRight[4] = {};
    std::vector<std::thread> threads;
    for (bool& result : allRight)
        threads.emplace_back(convertAllBytes, 200, &result);
    for (std::thread& thread : threads)
        thread.join();
    for (const bool result : allRight)
        EXPECT_TRUE(result);
}

}  // namespace
