#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"
#include "toolbox/core/core_foundation/ArrayObject.h"

#include <vector>

namespace {

using CFArray = CoreFoundationTest;

CFArrayRef makeArray(const std::vector<CFTypeRef>& elements)
{
    return Toolbox::referenceTo<CFArrayRef>(*new Toolbox::ArrayObject(elements));
}

TEST_F(CFArray, HasItsElementsInOrderAndNothingOutOfRange)
{
    const CFStringRef first = makeString("first");
    const CFStringRef second = makeString("second");
    const Owned array = makeArray({first, second});
    EXPECT_EQ(CFArrayGetCount(array), 2);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 0), first);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 1), second);
    for (const CFIndex index : {CFIndex(-1), CFIndex(2), CFIndex(3), CFIndex(1) << 31})
        EXPECT_EQ(CFArrayGetValueAtIndex(array, index), nullptr) << index;
    const Owned empty = makeArray({});
    EXPECT_EQ(CFArrayGetCount(empty), 0);
    EXPECT_EQ(CFArrayGetValueAtIndex(empty, 0), nullptr);
}

TEST_F(CFArray, OwnsItsElementsAndBearsOneThatWasReleasedTooOften)
{
    const CFStringRef string = makeString("kept");
    Toolbox::CFObject::find(string)->retain();
    CFRelease(makeArray({string}));
    EXPECT_TRUE(CFEqual(string, string)) << "one owner is left";
    const Owned array = makeArray({string});
    CFRelease(string);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 0), string);
    EXPECT_FALSE(CFEqual(string, string));
}

TEST_F(CFArray, IsEqualToAnotherOfEqualElements)
{
    const Owned array = makeArray({makeString("a"), makeString("b")});
    const Owned same = makeArray({makeString("a"), makeString("b")});
    const Owned turned = makeArray({makeString("b"), makeString("a")});
    const Owned shorter = makeArray({makeString("a")});
    EXPECT_TRUE(CFEqual(array, same));
    EXPECT_FALSE(CFEqual(array, turned));
    EXPECT_FALSE(CFEqual(array, shorter));
    EXPECT_FALSE(CFEqual(shorter, array));
}

}  // namespace
