#include "util/CFString.h"

#include "tests/double/ToolboxTest.h"

#include <cstring>
#include <new>
#include <string>
#include <type_traits>

namespace {

using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;
using Util::CFString;

static_assert(!std::is_copy_constructible<CFString>::value, "one string has one owner");
static_assert(!std::is_copy_assignable<CFString>::value, "one string has one owner");
static_assert(CFString::ReleaseBehavior(0) == CFString::Release, "value 0 releases");

class CFStringTest : public ToolboxTest { };

TEST_F(CFStringTest, TextIsMacOSRomanAndUnitsAreTakenByCountAndEitherIsReleasedAtTheEnd)
{
    const unsigned short units[] = {'c', 'a', 'f', 0xE9, 0, 'x'};
    {
        const CFString fromText("caf\x8E", CFString::Release);
        const CFString fromUnits(units, 5, CFString::Release);
        const CFString fromNoUnits(nullptr, 0, CFString::Release);
        EXPECT_NE(fromText.Get(), nullptr);
        EXPECT_NE(fromUnits.Get(), nullptr);
    }
    EXPECT_EQ(Log(), R"(CFStringCreateWithCString(null, "caf\x8E", 0) = string1
CFStringCreateWithCharacters(null, "caf\u00E9\u0000", 5) = string2
CFStringCreateWithCharacters(null, "", 0) = string3
CFRelease(string3)
CFRelease(string2)
CFRelease(string1)
)");
    EXPECT_EQ(LeftBehind(), "");
}

TEST_F(CFStringTest, StringOutlivesItsOwnerUnlessThatReleases)
{
    const unsigned short units[] = {'a'};
    {
        const CFString fromText("a", CFString::Keep);
        const CFString fromUnits(units, 1, CFString::Keep);
    }
    EXPECT_EQ(LeftBehind(), "string1\nstring2\n");
    for (const int behavior : {1, 2, -1, 0x100}) {
        const CFString fromText("a", CFString::ReleaseBehavior(behavior));
        const CFString fromUnits(units, 1, CFString::ReleaseBehavior(behavior));
    }
    EXPECT_EQ(Log().find("CFRelease"), std::string::npos) << Log();
}

// Looked at in storage that outlives the owner, as whoever finds it by mistake would.
TEST_F(CFStringTest, OwnerWhoseLifeHasEndedNamesNoString)
{
    alignas(CFString) unsigned char storage[sizeof(CFString)];
    for (const CFString::ReleaseBehavior behavior : {CFString::Release, CFString::Keep}) {
        CFString* const owner = new (storage) CFString("a", behavior);
        EXPECT_NE(owner->Get(), nullptr);
        owner->~CFString();

        CFStringRef left = nullptr;
        std::memcpy(&left, storage + sizeof(CFString) - sizeof left, sizeof left);
        EXPECT_EQ(left, nullptr) << "behavior " << behavior;
    }
}

TEST_F(CFStringTest, StringThatCouldNotBeMadeIsNullAndNotReleased)
{
    ToolboxDouble::FailCall("CFStringCreateWithCString");
    ToolboxDouble::FailCall("CFStringCreateWithCharacters");
    const unsigned short units[] = {'a'};
    {
        const CFString fromText("a", CFString::Release);
        const CFString fromUnits(units, 1, CFString::Release);
        EXPECT_EQ(fromText.Get(), nullptr);
        EXPECT_EQ(fromUnits.Get(), nullptr);
    }
    EXPECT_EQ(Log(), R"(CFStringCreateWithCString(null, "a", 0) = null
CFStringCreateWithCharacters(null, "a", 1) = null
)");
}

}  // namespace
