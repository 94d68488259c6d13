// The UTF-16 members with a converter in the platform's place that does what a test tells it, and notes how it was
// called.

#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/Allocations.h"

#include <Carbon/Carbon.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

// What the converter is to do, and the arguments of the calls so far.
struct ConverterDouble {
    TextEncoding encoding = 0x1234;
    OSStatus createStatus = noErr;
    OSStatus convertStatus = noErr;
    ByteCount written = 0;             // what it says that it wrote
    std::vector<unsigned char> bytes;  // what it writes

    std::vector<TextEncoding> created;
    std::vector<ByteCount> sourceLengths;
    std::vector<ByteCount> bufferSizes;
    int disposed = 0;
};

ConverterDouble converter;

// The conversion either way, which has to be a plain one: no flags and no offsets.
template <typename Info>
OSStatus convert(Info info, ByteCount sourceLength, OptionBits flags, ItemCount offsetCount, const ByteOffset offsets[],
    const ItemCount* offsetsUsed, const ByteOffset resultOffsets[], ByteCount bufferSize, ByteCount* read,
    ByteCount* written, void* buffer)
{
    EXPECT_EQ(reinterpret_cast<ConverterDouble*>(info), &converter);
    EXPECT_TRUE(flags == 0 && offsetCount == 0);
    EXPECT_TRUE(offsets == nullptr && offsetsUsed == nullptr && resultOffsets == nullptr);
    converter.sourceLengths.push_back(sourceLength);
    converter.bufferSizes.push_back(bufferSize);
    std::copy(converter.bytes.begin(), converter.bytes.end(), static_cast<unsigned char*>(buffer));
    *read = sourceLength;
    *written = converter.written;
    return converter.convertStatus;
}

template <typename Info> OSStatus create(TextEncoding encoding, Info* info)
{
    converter.created.push_back(encoding);
    *info = reinterpret_cast<Info>(&converter);
    return converter.createStatus;
}

}  // namespace

extern "C" {

TextEncoding CreateTextEncoding(TextEncodingBase base, TextEncodingVariant variant, TextEncodingFormat format)
{
    EXPECT_EQ(base, 0u);
    EXPECT_EQ(variant, 0u);
    EXPECT_EQ(format, 0u);
    return converter.encoding;
}

OSStatus CreateTextToUnicodeInfoByEncoding(TextEncoding encoding, TextToUnicodeInfo* info)
{
    return create(encoding, info);
}

OSStatus CreateUnicodeToTextInfoByEncoding(TextEncoding encoding, UnicodeToTextInfo* info)
{
    return create(encoding, info);
}

OSStatus ConvertFromTextToUnicode(TextToUnicodeInfo info, ByteCount sourceLength, ConstLogicalAddress, OptionBits flags,
    ItemCount offsetCount, const ByteOffset offsets[], ItemCount* offsetsUsed, ByteOffset resultOffsets[],
    ByteCount bufferSize, ByteCount* read, ByteCount* written, UniChar unicode[])
{
    return convert(info, sourceLength, flags, offsetCount, offsets, offsetsUsed, resultOffsets, bufferSize, read,
        written, unicode);
}

OSStatus ConvertFromUnicodeToText(UnicodeToTextInfo info, ByteCount unicodeLength, const UniChar[], OptionBits flags,
    ItemCount offsetCount, const ByteOffset offsets[], ItemCount* offsetsUsed, ByteOffset resultOffsets[],
    ByteCount bufferSize, ByteCount* read, ByteCount* written, LogicalAddress text)
{
    return convert(
        info, unicodeLength, flags, offsetCount, offsets, offsetsUsed, resultOffsets, bufferSize, read, written, text);
}

OSStatus DisposeTextToUnicodeInfo(TextToUnicodeInfo*)
{
    ++converter.disposed;
    return noErr;
}

OSStatus DisposeUnicodeToTextInfo(UnicodeToTextInfo*)
{
    ++converter.disposed;
    return noErr;
}
}

namespace {

class StringUnicodeCalls : public testing::Test {
protected:
    void SetUp() override { converter = ConverterDouble(); }
    void TearDown() override { EXPECT_EQ(converter.disposed, 0) << "the converter is never disposed of"; }

    const unsigned short m_units[4] = {'a', 'b', 'c', 0};
};

TEST_F(StringUnicodeCalls, FromUnicodeAsksForBytesAndRoomForTheTerminatorUnlessTheTextIsNullOrEmpty)
{
    EXPECT_EQ(contents(String(m_units + 3)), "");
    EXPECT_TRUE(String(static_cast<const unsigned short*>(nullptr)).IsNull());
    EXPECT_TRUE(converter.created.empty());
    converter.bytes = {'x', 'y', 'z'};
    converter.written = 3;
    EXPECT_EQ(contents(String(m_units)), "xyz");
    EXPECT_EQ(converter.created, std::vector<TextEncoding>{0x1234});
    EXPECT_EQ(converter.sourceLengths, std::vector<ByteCount>{6});
    EXPECT_EQ(converter.bufferSizes, std::vector<ByteCount>{4});
    EXPECT_EQ(contents(String(m_units)), "xyz");
    EXPECT_EQ(converter.created.size(), 2u) << "a converter every time";
}

TEST_F(StringUnicodeCalls, FromUnicodeEndsAtTheFirstZeroByteThatComesOutOrAtTheCount)
{
    converter.bytes = {'x', 0, 'z'};
    converter.written = 3;
    EXPECT_EQ(contents(String(m_units)), "x");
    converter.bytes = {0, 'y', 'z'};
    EXPECT_EQ(contents(String(m_units)), "");
    converter.bytes = {'w', 'x', 'y', 'z'};
    converter.written = 4;
    EXPECT_EQ(contents(String(m_units)), "wxy");
}

TEST_F(StringUnicodeCalls, ToUnicodeAsksForUnitsWithoutTheTerminator)
{
    converter.written = 6;
    const shared_array<unsigned short> units = stringOf(std::string("abc\0d", 5)).Unicode();
    ASSERT_NE(units.get(), nullptr);
    EXPECT_EQ(units[3], 0);
    converter.written = 0;
    const shared_array<unsigned short> none = String().Unicode();
    ASSERT_NE(none.get(), nullptr);
    EXPECT_EQ(none[0], 0);
    EXPECT_EQ(converter.created, std::vector<TextEncoding>(2, 0x1234));
    EXPECT_EQ(converter.sourceLengths, (std::vector<ByteCount>{3, 0}));
    EXPECT_EQ(converter.bufferSizes, (std::vector<ByteCount>{6, 0}));
}

TEST_F(StringUnicodeCalls, ToUnicodeEndsBehindWhatWasWrittenAndIsNullIfThatIsTooMuch)
{
    converter.bytes = {1, 1, 1, 1, 1, 1};
    for (const ByteCount written : {0u, 2u, 3u, 4u, 6u, 7u}) {
        converter.written = written;
        const shared_array<unsigned short> units = String("abc").Unicode();
        ASSERT_NE(units.get(), nullptr);
        EXPECT_EQ(units[written / 2], 0) << written;
        for (unsigned i = 0; i < written / 2; ++i)
            EXPECT_EQ(units[i], 0x0101);
    }
    converter.written = 8;
    EXPECT_EQ(String("abc").Unicode().get(), nullptr);
}

TEST_F(StringUnicodeCalls, AreNullWithoutAConverterOrWhenItFails)
{
    converter.createStatus = paramErr;
    EXPECT_TRUE(String(m_units).IsNull());
    EXPECT_EQ(String("abc").Unicode().get(), nullptr);
    EXPECT_TRUE(converter.sourceLengths.empty());
    converter.createStatus = noErr;
    for (const OSStatus status : {kTECUnmappableElementErr, kTECOutputBufferFullStatus}) {
        converter.convertStatus = status;
        EXPECT_TRUE(String(m_units).IsNull());
        EXPECT_EQ(String("abc").Unicode().get(), nullptr);
    }
}

// Refuses each allocation of `action` in turn. The double has room for its notes, so that only the library's own are
// refused.
template <typename Action> void refuseEach(OSStatus createStatus, Action action)
{
    int refused = -1;
    do {
        ++refused;
        converter = ConverterDouble();
        converter.createStatus = createStatus;
        converter.bytes = {'x', 'y', 'z'};
        converter.written = 3;
        converter.created.reserve(1);
        converter.sourceLengths.reserve(1);
        converter.bufferSizes.reserve(1);
    } while (allocations::refusing(refused, action));
    EXPECT_GT(refused, 0);
}

TEST_F(StringUnicodeCalls, ThrowWithoutALeakWhicheverAllocationFails)
{
    const String text("abc");
    refuseEach(noErr, [&] { const String made(m_units); });
    refuseEach(noErr, [&] { const String made(m_units + 3); });
    refuseEach(noErr, [&] { text.Unicode(); });
    refuseEach(paramErr, [&] { text.Unicode(); });
}

}  // namespace
