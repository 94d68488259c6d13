#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"

namespace {

using CFUUID = CoreFoundationTest;

// Sixteen bytes from `first` on, each one more than the one before.
CFUUIDBytes bytesFrom(UInt8 first)
{
    CFUUIDBytes bytes;
    UInt8* const all = &bytes.byte0;
    for (UInt8 index = 0; index < 16; ++index)
        all[index] = static_cast<UInt8>(first + index);
    return bytes;
}

CFUUIDRef create(const CFUUIDBytes& bytes)
{
    return CFUUIDCreateFromUUIDBytes(nullptr, bytes);
}

CFUUIDRef constant(const CFUUIDBytes& b)
{
    return CFUUIDGetConstantUUIDWithBytes(nullptr, b.byte0, b.byte1, b.byte2, b.byte3, b.byte4, b.byte5, b.byte6,
        b.byte7, b.byte8, b.byte9, b.byte10, b.byte11, b.byte12, b.byte13, b.byte14, b.byte15);
}

TEST_F(CFUUID, EqualBytesAreOneObjectWithAnOwnerForEachCreation)
{
    const std::size_t before = liveReferences();
    const CFUUIDRef first = create(bytesFrom(10));
    EXPECT_EQ(create(bytesFrom(10)), first);
    EXPECT_EQ(liveReferences(), before + 1);
    CFRelease(first);
    EXPECT_TRUE(CFEqual(first, first));
    CFRelease(first);
    EXPECT_FALSE(CFEqual(first, first));
    const CFUUIDRef ended = create(bytesFrom(60));
    CFRelease(ended);
    const Owned made = create(bytesFrom(60));
    EXPECT_NE(made, ended);
    EXPECT_TRUE(CFEqual(made, made));
}

TEST_F(CFUUID, EveryByteCounts)
{
    const Owned uuid = create(bytesFrom(20));
    for (std::size_t index = 0; index < 16; ++index) {
        CFUUIDBytes bytes = bytesFrom(20);
        (&bytes.byte0)[index] ^= 0x80;
        const Owned other = create(bytes);
        EXPECT_NE(other, uuid) << "byte " << index;
        EXPECT_FALSE(CFEqual(other, uuid)) << "byte " << index;
    }
}

TEST_F(CFUUID, AConstantIsTheObjectThatIsCreatedOfItsBytesAndSurvivesEveryRelease)
{
    const std::size_t constants = liveConstants();
    const CFUUIDBytes bytes = bytesFrom(static_cast<UInt8>(100 + constants));  // new each time
    const CFUUIDRef immortal = constant(bytes);
    EXPECT_EQ(constant(bytes), immortal);
    EXPECT_EQ(create(bytes), immortal);
    for (int time = 0; time < 3; ++time)
        CFRelease(immortal);
    EXPECT_TRUE(CFEqual(immortal, immortal));
    EXPECT_EQ(constant(bytes), immortal);
    EXPECT_EQ(liveConstants(), constants + 1);
}

TEST_F(CFUUID, ACreatedOneThatIsAskedForAsAConstantBecomesOne)
{
    const std::size_t before = liveReferences();
    const CFUUIDRef created = create(bytesFrom(50));
    EXPECT_EQ(constant(bytesFrom(50)), created);
    EXPECT_EQ(liveReferences(), before) << "it is nobody's to release any more";
    CFRelease(created);
    CFRelease(created);
    EXPECT_TRUE(CFEqual(created, created));
}

}  // namespace
