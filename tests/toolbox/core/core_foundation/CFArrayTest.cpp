#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"
#include "toolbox/core/core_foundation/ArrayObject.h"

#include <vector>

namespace {

using CFArray = CoreFoundationTest;

CFStringRef makeString(const char* text)
{
    return CFStringCreateWithCString(nullptr, text, kCFStringEncodingASCII);
}

CFArrayRef makeArray(const std::vector<CFTypeRef>& elements)
{
    return Toolbox::referenceTo<CFArrayRef>(*new Toolbox::ArrayObject(elements));
}

TEST_F(CFArray, HasItsElementsInOrder)
{
    const CFStringRef first = makeString("first");
    const CFStringRef second = makeString("second");
    const CFArrayRef array = makeArray({first, second});
    EXPECT_EQ(CFArrayGetCount(array), 2);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 0), first);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 1), second);
    CFRelease(array);
}

TEST_F(CFArray, HasNothingOutOfRange)
{
    const CFArrayRef array = makeArray({makeString("only")});
    for (const CFIndex index : {CFIndex(-1), CFIndex(1), CFIndex(2), CFIndex(1) << 31})
        EXPECT_EQ(CFArrayGetValueAtIndex(array, index), nullptr) << index;
    CFRelease(array);

    const CFArrayRef empty = makeArray({});
    EXPECT_EQ(CFArrayGetCount(empty), 0);
    EXPECT_EQ(CFArrayGetValueAtIndex(empty, 0), nullptr);
    CFRelease(empty);
}

TEST_F(CFArray, OwnsItsElements)
{
    const CFStringRef string = makeString("kept");
    Toolbox::CFObject::find(string)->retain();
    CFRelease(makeArray({string}));
    EXPECT_TRUE(CFEqual(string, string)) << "one owner is left";
    CFRelease(string);
}

TEST_F(CFArray, BearsAnElementThatWasReleasedTooOften)
{
    const CFStringRef string = makeString("gone");
    const CFArrayRef array = makeArray({string});
    CFRelease(string);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 0), string);
    EXPECT_FALSE(CFEqual(CFArrayGetValueAtIndex(array, 0), string));
    CFRelease(array);
}

TEST_F(CFArray, IsEqualToAnotherOfEqualElements)
{
    const CFArrayRef array = makeArray({makeString("a"), makeString("b")});
    const CFArrayRef same = makeArray({makeString("a"), makeString("b")});
    const CFArrayRef turned = makeArray({makeString("b"), makeString("a")});
    const CFArrayRef shorter = makeArray({makeString("a")});
    EXPECT_TRUE(CFEqual(array, same));
    EXPECT_FALSE(CFEqual(array, turned));
    EXPECT_FALSE(CFEqual(array, shorter));
    EXPECT_FALSE(CFEqual(shorter, array));
    for (const CFArrayRef made : {array, same, turned, shorter})
        CFRelease(made);
}

TEST_F(CFArray, AWrongReferenceIsEmpty)
{
    for (const CFTypeRef wrong : WRONG_REFERENCES) {
        EXPECT_EQ(CFArrayGetCount(static_cast<CFArrayRef>(wrong)), 0);
        EXPECT_EQ(CFArrayGetValueAtIndex(static_cast<CFArrayRef>(wrong), 0), nullptr);
    }
    const auto string = reinterpret_cast<CFArrayRef>(CFSTR("a string"));
    EXPECT_EQ(CFArrayGetCount(string), 0);
    EXPECT_EQ(CFArrayGetValueAtIndex(string, 0), nullptr);
}

}  // namespace
