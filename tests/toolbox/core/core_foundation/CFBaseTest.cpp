#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"
#include "toolbox/core/core_foundation/CFObject.h"

namespace {

using CFBase = CoreFoundationTest;

CFStringRef makeString(const char* text)
{
    return CFStringCreateWithCString(nullptr, text, kCFStringEncodingASCII);
}

TEST_F(CFBase, AnObjectLivesUntilItsLastOwnerReleasesIt)
{
    const std::size_t before = liveObjects();
    const CFStringRef string = makeString("a");
    EXPECT_EQ(liveObjects(), before + 1);
    Toolbox::CFObject::find(string)->retain();
    CFRelease(string);
    EXPECT_EQ(liveObjects(), before + 1);
    EXPECT_TRUE(CFEqual(string, string));
    CFRelease(string);
    EXPECT_EQ(liveObjects(), before);
    EXPECT_FALSE(CFEqual(string, string)) << "a dead reference equals nothing";
}

TEST_F(CFBase, ADeadReferenceIsNeverGivenToANewObject)
{
    const CFStringRef dead = deadString();
    const CFStringRef string = makeString("a");
    EXPECT_NE(string, dead);
    CFRelease(dead);
    EXPECT_TRUE(CFEqual(string, string)) << "releasing the dead one again did not touch the new one";
    CFRelease(string);
}

TEST_F(CFBase, WrongReferencesAreLeftAsTheyAre)
{
    const CFStringRef string = makeString("a");
    for (const CFTypeRef wrong : WRONG_REFERENCES) {
        CFRelease(wrong);
        EXPECT_FALSE(CFEqual(wrong, string));
        EXPECT_FALSE(CFEqual(string, wrong));
        EXPECT_FALSE(CFEqual(wrong, wrong));
    }
    CFRelease(deadString());
    CFRelease(string);
}

TEST_F(CFBase, ObjectsOfDifferentTypesAreNotEqual)
{
    const CFUUIDRef uuid = CFUUIDCreateFromUUIDBytes(nullptr, CFUUIDBytes{});
    const auto* const path = reinterpret_cast<const UInt8*>("/a");
    const CFURLRef url = CFURLCreateFromFileSystemRepresentation(nullptr, path, 2, false);
    const CFStringRef string = makeString("/a");
    EXPECT_FALSE(CFEqual(uuid, string));
    EXPECT_FALSE(CFEqual(url, string));
    EXPECT_FALSE(CFEqual(string, url));
    EXPECT_FALSE(CFEqual(url, uuid));
    CFRelease(uuid);
    CFRelease(url);
    CFRelease(string);
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
