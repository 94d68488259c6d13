#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"
#include "toolbox/core/core_foundation/CFObject.h"

namespace {

using CFBase = CoreFoundationTest;

TEST_F(CFBase, AnObjectLivesUntilItsLastOwnerReleasesIt)
{
    const std::size_t before = liveReferences();
    const CFStringRef string = makeString("a");
    EXPECT_EQ(liveReferences(), before + 1);
    Toolbox::CFObject::find(string)->retain();
    CFRelease(string);
    EXPECT_EQ(liveReferences(), before + 1);
    EXPECT_TRUE(CFEqual(string, string));
    CFRelease(string);
    EXPECT_EQ(liveReferences(), before);
    EXPECT_FALSE(CFEqual(string, string)) << "a dead reference equals nothing";
}

TEST_F(CFBase, ADeadReferenceIsNeverGivenToANewObject)
{
    const CFStringRef dead = deadString();
    const Owned string = makeString("a");
    EXPECT_NE(string, dead);
    CFRelease(dead);
    EXPECT_TRUE(CFEqual(string, string)) << "releasing the dead one again did not touch the new one";
}

TEST_F(CFBase, ObjectsOfDifferentTypesAreNotEqual)
{
    const Owned uuid = CFUUIDCreateFromUUIDBytes(nullptr, CFUUIDBytes{});
    const Owned url = makeURL("/a");
    const Owned string = makeString("/a");
    EXPECT_FALSE(CFEqual(uuid, string));
    EXPECT_FALSE(CFEqual(url, string));
    EXPECT_FALSE(CFEqual(string, url));
    EXPECT_FALSE(CFEqual(url, uuid));
}

TEST_F(CFBase, TheDefaultAllocatorIsNullAndTheSystemsIsAnObject)
{
    EXPECT_EQ(kCFAllocatorDefault, nullptr);
    ASSERT_NE(kCFAllocatorSystemDefault, nullptr);
    CFRelease(kCFAllocatorSystemDefault);
    CFRelease(kCFAllocatorSystemDefault);
    EXPECT_TRUE(CFEqual(kCFAllocatorSystemDefault, kCFAllocatorSystemDefault)) << "it never ends";
}

}  // namespace
