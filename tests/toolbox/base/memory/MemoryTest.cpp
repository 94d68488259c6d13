#include "tests/toolbox/base/RefusingAllocations.h"
#include "toolbox/base/memory/Handles.h"

#include <Carbon/MacMemory.h>
#include <Toolbox/LiveObjects.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Toolbox::freeHandle;
using Toolbox::HANDLE_SLACK;
using Toolbox::makeHandle;

std::size_t alive(const char* kind)
{
    return Toolbox::CountLiveObjects()[kind];
}

bool isAllZero(const char* block, std::size_t size)
{
    return std::all_of(block, block + size, [](char byte) { return byte == 0; });
}

TEST(NewPtr, GivesZeroedMemoryEvenWhereOtherDataLay)
{
    for (int round = 0; round < 100; ++round) {
        const Ptr block = NewPtr(48);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(MemError(), noErr);
        EXPECT_TRUE(isAllZero(block, 48));
        std::fill_n(block, 48, '\xA5');
        DisposePtr(block);
    }
}

TEST(NewPtr, SizeZeroIsABlockOfItsOwn)
{
    const Ptr first = NewPtr(0);
    const Ptr second = NewPtr(0);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(MemError(), noErr);
    DisposePtr(first);
    DisposePtr(second);
    EXPECT_EQ(MemError(), noErr);
}

TEST(NewPtr, RefusesNegativeSizes)
{
    for (const Size size : {Size(-1), Size(-2), std::numeric_limits<Size>::min()}) {
        EXPECT_EQ(NewPtr(size), nullptr) << size;
        EXPECT_EQ(MemError(), memFullErr) << size;
    }
}

TEST(NewPtr, RefusesWhatNoMachineHas)
{
    // The largest block may be had once where a Size has 32 bits, but the address space does not hold it three times.
    std::vector<Ptr> blocks;
    for (int i = 0; i < 3; ++i)
        blocks.push_back(NewPtr(std::numeric_limits<Size>::max()));
    EXPECT_EQ(MemError(), memFullErr);
    EXPECT_EQ(blocks.back(), nullptr);
    for (const Ptr block : blocks)
        DisposePtr(block);
}

TEST(NewPtr, GivesMemFullAndKeepsNothingWhicheverAllocationFails)
{
    const std::size_t before = alive("pointer");
    Ptr block = nullptr;
    const int allocations = refuseEachAllocation([&] { block = NewPtr(8); },
        [&](bool refused) {
            EXPECT_EQ(block == nullptr, refused);
            EXPECT_EQ(MemError(), refused ? int(memFullErr) : int(noErr));
            EXPECT_EQ(alive("pointer"), before + (refused ? 0 : 1));
        });
    EXPECT_GT(allocations, 0) << "nothing was allocated, so nothing was tested";
    DisposePtr(block);
}

TEST(DisposePtr, FreesABlockOnce)
{
    const std::size_t before = alive("pointer");
    const Ptr block = NewPtr(12);
    EXPECT_EQ(alive("pointer"), before + 1);
    DisposePtr(block);
    EXPECT_EQ(MemError(), noErr);
    EXPECT_EQ(alive("pointer"), before);
    DisposePtr(block);
    EXPECT_EQ(MemError(), memWZErr);
    EXPECT_EQ(alive("pointer"), before);
}

TEST(DisposePtr, IgnoresNullAndForeignPointers)
{
    char local[4] = "abc";
    const Ptr block = NewPtr(12);
    for (const Ptr wrong : {Ptr(nullptr), Ptr(local), block + 1}) {
        DisposePtr(wrong);
        EXPECT_EQ(MemError(), memWZErr);
    }
    EXPECT_STREQ(local, "abc");
    DisposePtr(block);
    EXPECT_EQ(MemError(), noErr);
}

TEST(MemError, TellsOfTheLastCallOnly)
{
    NewPtr(-1);
    EXPECT_EQ(MemError(), memFullErr);
    EXPECT_EQ(MemError(), memFullErr) << "asking changes nothing";
    DisposePtr(NewPtr(1));
    EXPECT_EQ(MemError(), noErr);
}

TEST(Handle, HoldsACopyOfTheData)
{
    std::string data = "abc";
    const Handle handle = makeHandle(data.data(), data.size());
    data = "xyz";
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(std::string(*handle, 3), "abc");
    EXPECT_EQ(GetHandleSize(handle), 3);
    EXPECT_EQ(MemError(), noErr);
    freeHandle(handle);
}

TEST(Handle, IsFollowedByZeroedSlackThatCanBeWritten)
{
    const Handle handle = makeHandle("abc", 3);
    EXPECT_TRUE(isAllZero(*handle + 3, HANDLE_SLACK));
    (*handle)[3 + HANDLE_SLACK - 1] = 'x';
    EXPECT_EQ(GetHandleSize(handle), 3) << "the slack is not part of the data";
    freeHandle(handle);
}

TEST(Handle, MayBeEmpty)
{
    const Handle handle = makeHandle(nullptr, 0);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(GetHandleSize(handle), 0);
    EXPECT_EQ(MemError(), noErr);
    EXPECT_TRUE(isAllZero(*handle, HANDLE_SLACK));
    freeHandle(handle);
}

TEST(Handle, IsCountedWhileItLives)
{
    const std::size_t before = alive("handle");
    const Handle handle = makeHandle("abc", 3);
    EXPECT_EQ(alive("handle"), before + 1);
    freeHandle(handle);
    EXPECT_EQ(alive("handle"), before);
    freeHandle(handle);
    freeHandle(nullptr);
    EXPECT_EQ(alive("handle"), before);
}

TEST(Handle, IsNullAndKeepsNothingWhicheverAllocationFails)
{
    const std::size_t before = alive("handle");
    Handle handle = nullptr;
    const int allocations = refuseEachAllocation([&] { handle = makeHandle("abc", 3); },
        [&](bool refused) {
            EXPECT_EQ(handle == nullptr, refused);
            EXPECT_EQ(alive("handle"), before + (refused ? 0 : 1));
        });
    EXPECT_GT(allocations, 0) << "nothing was allocated, so nothing was tested";
    freeHandle(handle);
}

struct WrongHandle {
    const char* name;
    Handle handle;
    OSErr error;
};

std::vector<WrongHandle> wrongHandles()
{
    static Ptr foreignMaster = nullptr;
    const Handle dead = makeHandle("abc", 3);
    freeHandle(dead);
    return {
        {"null", nullptr, nilHandleErr},
        {"dead", dead, memWZErr},
        {"foreign", &foreignMaster, memWZErr},
        {"no address at all", reinterpret_cast<Handle>(std::uintptr_t(3)), memWZErr},
    };
}

TEST(WrongHandle, HasTheSizeZeroAndAnError)
{
    for (const WrongHandle& wrong : wrongHandles()) {
        EXPECT_EQ(GetHandleSize(wrong.handle), 0) << wrong.name;
        EXPECT_EQ(MemError(), wrong.error) << wrong.name;
    }
}

TEST(WrongHandle, CannotBeLockedOrUnlocked)
{
    for (const WrongHandle& wrong : wrongHandles()) {
        DisposePtr(NewPtr(1));
        HLock(wrong.handle);
        EXPECT_EQ(MemError(), wrong.error) << wrong.name;
        DisposePtr(NewPtr(1));
        HUnlock(wrong.handle);
        EXPECT_EQ(MemError(), wrong.error) << wrong.name;
    }
}

TEST(HLock, LeavesTheBlockWhereItIs)
{
    const Handle handle = makeHandle("abc", 3);
    const Ptr block = *handle;
    using Call = void (*)(Handle);
    for (const Call call : {Call(HLock), Call(HLock), Call(HUnlock), Call(HUnlock)}) {
        NewPtr(-1);
        call(handle);
        EXPECT_EQ(MemError(), noErr);
        EXPECT_EQ(*handle, block);
    }
    freeHandle(handle);
}

TEST(BlockMoveData, CopiesFromTheFirstToTheSecond)
{
    const char source[] = "abcdef";
    char destination[] = "......";
    BlockMoveData(source + 1, destination + 2, 3);
    EXPECT_STREQ(destination, "..bcd.");
    EXPECT_EQ(MemError(), noErr);
}

TEST(BlockMoveData, CopiesBlocksThatOverlap)
{
    for (int from = 0; from <= 16; ++from) {
        for (int to = 0; to <= 16; ++to) {
            std::vector<char> bytes(32);
            std::iota(bytes.begin(), bytes.end(), char(0));
            std::vector<char> expected = bytes;
            for (int i = 0; i < 16; ++i)
                expected[std::size_t(to + i)] = bytes[std::size_t(from + i)];
            BlockMoveData(&bytes[std::size_t(from)], &bytes[std::size_t(to)], 16);
            EXPECT_EQ(bytes, expected) << from << " to " << to;
        }
    }
}

TEST(BlockMoveData, CopiesNothingForNoBytesOrNoBlock)
{
    char text[] = "abc";
    for (const Size count : {Size(0), Size(-1), std::numeric_limits<Size>::min()})
        BlockMoveData("xyz", text, count);
    BlockMoveData(nullptr, text, 2);
    BlockMoveData(text, nullptr, 2);
    EXPECT_STREQ(text, "abc");
    NewPtr(-1);
    BlockMoveData(nullptr, nullptr, 0);
    EXPECT_EQ(MemError(), noErr);
}

TEST(BitTst, CountsBitsFromTheMostSignificantOfEachByte)
{
    const UInt8 bytes[] = {0x80, 0x01, 0x7F, 0x00, 0xA5};
    for (long bit = 0; bit < long(sizeof bytes) * 8; ++bit) {
        const int expected = bytes[bit / 8] >> (7 - bit % 8) & 1;
        EXPECT_EQ(BitTst(bytes, bit), expected) << bit;
    }
}

TEST(BitTst, IsClearForNullAndNegativeBits)
{
    const UInt8 bytes[] = {0xFF, 0xFF, 0xFF};
    EXPECT_EQ(BitTst(nullptr, 0), 0);
    EXPECT_EQ(BitTst(bytes + 1, -1), 0);
    EXPECT_EQ(BitTst(bytes + 1, std::numeric_limits<long>::min()), 0);
}

TEST(BitTst, LeavesMemErrorAlone)
{
    const UInt8 byte = 0;
    NewPtr(-1);
    BitTst(&byte, 0);
    EXPECT_EQ(MemError(), memFullErr);
}

}  // namespace
