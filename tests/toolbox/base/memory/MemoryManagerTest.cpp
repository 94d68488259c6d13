#include "toolbox/base/memory/MemoryManager.h"

#include "tests/support/Allocations.h"

#include <Carbon/MacMemory.h>
#include <Toolbox/LiveObjects.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

namespace {

using Toolbox::freeHandle;
using Toolbox::HANDLE_SLACK;
using Toolbox::makeHandle;

std::size_t blocksAlive(const char* kind)
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
    DisposePtr(first);
    DisposePtr(second);
}

TEST(NewPtr, RefusesNegativeSizesAndWhatNoMachineHas)
{
    for (const Size size : {Size(-1), Size(-2), std::numeric_limits<Size>::min()})
        EXPECT_EQ(NewPtr(size), nullptr) << size;
    // The largest block may be had once where a Size has 32 bits, but the address space does not hold it three times.
    std::vector<Ptr> blocks;
    for (int i = 0; i < 3; ++i)
        blocks.push_back(NewPtr(std::numeric_limits<Size>::max()));
    EXPECT_EQ(blocks.back(), nullptr);
    for (const Ptr block : blocks)
        DisposePtr(block);
}

// Makes a block while each allocation fails in its turn.
template <typename Block> Block expectNullOrOneMore(const char* kind, Block (*make)())
{
    const std::size_t before = blocksAlive(kind);
    Block block = nullptr;
    allocations::refusingEach([&] { block = make(); },
        [&](bool refused) {
            EXPECT_EQ(block == nullptr, refused);
            EXPECT_EQ(blocksAlive(kind), before + (refused ? 0 : 1));
        });
    return block;
}

TEST(MemoryManager, GivesNullAndKeepsNothingWhicheverAllocationFails)
{
    DisposePtr(expectNullOrOneMore<Ptr>("pointer", [] { return NewPtr(8); }));
    freeHandle(expectNullOrOneMore<Handle>("handle", [] { return makeHandle("abc", 3); }));
}

TEST(DisposePtr, FreesABlockOnceAndNothingElse)
{
    const std::size_t before = blocksAlive("pointer");
    char local[4] = "abc";
    const Ptr block = NewPtr(12);
    for (const Ptr wrong : {Ptr(nullptr), Ptr(local), block + 1})
        DisposePtr(wrong);
    EXPECT_STREQ(local, "abc");
    EXPECT_EQ(blocksAlive("pointer"), before + 1);
    DisposePtr(block);
    EXPECT_EQ(blocksAlive("pointer"), before);
    DisposePtr(block);
    EXPECT_EQ(blocksAlive("pointer"), before);
}

TEST(Handle, HoldsACopyOfTheDataFollowedByZeroedSlack)
{
    for (const std::string& given : {std::string(), std::string("abc")}) {
        std::string data = given;
        const Handle handle = makeHandle(data.empty() ? nullptr : data.data(), data.size());
        data.assign(data.size(), 'x');
        ASSERT_NE(handle, nullptr);
        EXPECT_EQ(std::string(*handle, given.size()), given);
        EXPECT_TRUE(isAllZero(*handle + given.size(), HANDLE_SLACK));
        (*handle)[given.size() + HANDLE_SLACK - 1] = 'x';
        EXPECT_EQ(GetHandleSize(handle), Size(given.size())) << "the slack is not part of the data";
        freeHandle(handle);
    }
}

TEST(Handle, IsFreedOnce)
{
    const std::size_t before = blocksAlive("handle");
    const Handle handle = makeHandle("abc", 3);
    EXPECT_EQ(blocksAlive("handle"), before + 1);
    for (const Handle freed : {handle, handle, Handle(nullptr)}) {
        freeHandle(freed);
        EXPECT_EQ(blocksAlive("handle"), before);
    }
}

TEST(HLock, LeavesTheBlockWhereItIs)
{
    const Handle handle = makeHandle("abc", 3);
    const Ptr block = *handle;
    for (void (*const call)(Handle) : {HLock, HLock, HUnlock, HUnlock}) {
        call(handle);
        EXPECT_EQ(*handle, block);
    }
    freeHandle(handle);
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
    BlockMoveData(nullptr, nullptr, 0);
}

TEST(BitTst, CountsBitsFromTheMostSignificantOfEachByteAndIsClearForNullAndNegativeBits)
{
    const UInt8 bytes[] = {0x80, 0x01, 0x7F, 0x00, 0xA5};
    for (long bit = 0; bit < long(sizeof bytes) * 8; ++bit) {
        const int expected = bytes[bit / 8] >> (7 - bit % 8) & 1;
        EXPECT_EQ(BitTst(bytes, bit), expected) << bit;
    }
    EXPECT_EQ(BitTst(nullptr, 0), 0);
    EXPECT_EQ(BitTst(bytes + 2, -1), 0) << "though the bit before is set";
    EXPECT_EQ(BitTst(bytes + 2, std::numeric_limits<long>::min()), 0);
}

}  // namespace
