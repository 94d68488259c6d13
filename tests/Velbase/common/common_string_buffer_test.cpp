#include "Velbase/common/common_string_buffer.h"

#include <gtest/gtest.h>

#include "allocations.h"

namespace {

using namespace std::literals;

// `length` characters that are not all alike, so that one out of place shows.
std::string textOf(std::size_t length, char first = 'a')
{
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        text += static_cast<char>(first + static_cast<char>(i % 23));
    return text;
}

TEST(UpToZero, EndsAtTheZeroByteOrTheMaximum)
{
    EXPECT_EQ(upToZero("abc", 5), "abc");
    EXPECT_EQ(upToZero("abc", 3), "abc");
    EXPECT_EQ(upToZero("abc", 2), "ab");
    EXPECT_EQ(upToZero("abc", 0), "");
    EXPECT_EQ(upToZero("", 5), "");
    EXPECT_EQ(upToZero("a\0c", 3), "a");
}

TEST(NewBuffer, HasTheTextZeroBytesIncluded)
{
    EXPECT_EQ(*newBuffer("a\0b"sv), "a\0b"sv);
    EXPECT_EQ(*newBuffer(""sv), "");
    EXPECT_EQ(*newBuffer(std::string_view()), "");
}

TEST(NewBuffer, HasThePiecesOneBehindTheOther)
{
    EXPECT_EQ(*newBuffer({"ab", "", "c", "\0d"sv}), "abc\0d"sv);
    EXPECT_EQ(*newBuffer({std::string_view(), std::string_view()}), "");
    const std::string text = textOf(1000);
    const std::string_view all(text);
    EXPECT_EQ(*newBuffer({all.substr(0, 1), all.substr(1, 500), all.substr(501)}), text);
}

TEST(NewZeroBuffer, HasZeroBytes)
{
    EXPECT_EQ(*newZeroBuffer(0), "");
    EXPECT_EQ(*newZeroBuffer(100), std::string(100, '\0'));
}

TEST(CheckedLength, IsTheLengthUpToTheLongest)
{
    const std::uint64_t longest = std::min<std::uint64_t>(0xFFFFFFFF, std::string().max_size());
    for (const std::uint64_t length : {std::uint64_t{0}, std::uint64_t{1}, longest - 1, longest})
        EXPECT_EQ(checkedLength(length), length);
    EXPECT_THROW(checkedLength(longest + 1), std::bad_alloc);
}

TEST(NewZeroBuffer, LengthBeyond32BitsIsAFailedAllocation)
{
    EXPECT_THROW(newZeroBuffer(0x100000000), std::bad_alloc);
    EXPECT_THROW(newZeroBuffer(0xFFFFFFFFFFFFFFFF), std::bad_alloc);
    EXPECT_THROW(BufferWriter(0x100000000), std::bad_alloc);
}

TEST(BufferWriter, PutsPiecesOfEveryLengthTogether)
{
    for (std::size_t length = 0; length <= 600; ++length) {
        const std::string text = textOf(length);
        for (const std::size_t pieceLength : {1u, 2u, 3u, 4u, 5u, 7u, 8u, 9u, 15u, 16u, 17u, 31u, 255u, 256u, 257u}) {
            BufferWriter writer(length);
            for (std::size_t i = 0; i < length; i += pieceLength)
                writer.write(std::string_view(text).substr(i, pieceLength));
            EXPECT_EQ(*writer.finish(), text) << length << " characters in pieces of " << pieceLength;
        }
    }
}

TEST(BufferWriter, PutsShortAndLongPiecesTogether)
{
    const std::string shortPiece = textOf(100, 'A');
    for (const std::size_t longLength : {155u, 156u, 157u, 255u, 256u, 257u, 1000u}) {
        const std::string longPiece = textOf(longLength);
        const std::string expected = shortPiece + longPiece + shortPiece + longPiece;
        BufferWriter writer(expected.size());
        for (const std::string& piece : {shortPiece, longPiece, shortPiece, longPiece})
            writer.write(piece);
        EXPECT_EQ(*writer.finish(), expected) << longLength;
    }
}

TEST(BufferWriter, AllocatesTheCharactersOnceAndNoMoreThanTheyTake)
{
    for (std::size_t length = 0; length <= 600; ++length) {
        const std::string text = textOf(length);
        const std::vector<std::size_t> sizes = allocations::sizesIn([&] {
            BufferWriter writer(length);
            writer.write(std::string_view(text).substr(0, length / 2));
            writer.write(std::string_view(text).substr(length / 2));
            writer.finish();
        });
        const bool fitsInside = length <= std::string().capacity();
        EXPECT_EQ(sizes.front(), sizeof(std::string));
        EXPECT_EQ(sizes.back(), fitsInside ? sizeof(std::string) : length + 1);
        EXPECT_EQ(sizes.size(), fitsInside ? 1u : 2u);
    }
}

}  // namespace
