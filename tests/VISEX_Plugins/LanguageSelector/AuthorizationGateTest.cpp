#include "VISEX_Plugins/LanguageSelector/AuthorizationGate.h"

#include "tests/double/ToolboxTest.h"

#include <Carbon/Carbon.h>

#include <string>
#include <vector>

namespace {

using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

// The installer's resource, which ends with `flagByte`, at position 401, and has the opposite of it in every other
// byte.
void provideFlag(UInt8 flagByte)
{
    std::vector<UInt8> data(402, static_cast<UInt8>(~flagByte));
    data.back() = flagByte;
    ToolboxDouble::ProvideResource('CALL', 1000, data);
}

// ---- Whether the right is demanded

class AuthorizationFlag : public ToolboxTest { };

TEST_F(AuthorizationFlag, IsClearWhenOnlyOtherResourcesHoldIt)
{
    const std::vector<UInt8> set(402, 0xFF);
    ToolboxDouble::ProvideResource('CALL', 1001, set);
    ToolboxDouble::ProvideResource('CALM', 1000, set);
    EXPECT_TRUE(passAuthorizationGate());
}

TEST_F(AuthorizationFlag, ClearGoesOnAtOnce)
{
    provideFlag(0x7F);
    EXPECT_TRUE(passAuthorizationGate());
    EXPECT_EQ(Log(), R"(GetResource('CALL', 1000) = handle1
HLock(handle1)
BlockMoveData(handle1 + 401, 1) -> 7F
BitTst(7F, 0) = 0
HUnlock(handle1)
ReleaseResource(handle1)
)");
    EXPECT_EQ(LeftBehind(), "");
}

TEST_F(AuthorizationFlag, IsReadAnewEveryTime)
{
    provideFlag(0x80);
    EXPECT_TRUE(passAuthorizationGate());
    EXPECT_TRUE(passAuthorizationGate());
    EXPECT_EQ(LeftBehind(), "bundle1\nauthorization1\nbundle2\nauthorization2\n") << "each time, they stay";
}

TEST_F(AuthorizationFlag, IsTheMostSignificantBitOfTheByte)
{
    for (int flagByte = 0; flagByte <= 0xFF; ++flagByte) {
        ToolboxDouble::Reset();
        provideFlag(static_cast<UInt8>(flagByte));
        ToolboxDouble::FailCall("FSFindFolder", -43);
        EXPECT_EQ(passAuthorizationGate(), flagByte < 0x80) << "byte " << flagByte;
    }
}

// ---- How the two results are judged

const std::vector<long> GRANTED = {0, 0x10000, -0x10000, 0x7FFF0000, -0x7FFFFFFFL - 1};
const std::vector<long> REFUSED = {1, -1, -60005, -60006, -60007, -60008, -60008 & 0xFFFF, 0x7FFF, 0x8000, 0xFFFF,
    0x10001, -0xFFFF, 0x7FFFFFFF, 0x7FFF0001};

TEST_F(AuthorizationFlag, DemandsThatTheLow16BitsOfBothResultsAreZero)
{
    for (const bool isGranted : {true, false}) {
        for (const long status : isGranted ? GRANTED : REFUSED) {
            for (const char* const function : {"AuthorizationCreate", "AuthorizationCopyRights"}) {
                ToolboxDouble::Reset();
                provideFlag(0x80);
                ToolboxDouble::FailCall(function, status);
                EXPECT_EQ(passAuthorizationGate(), isGranted) << function << " gives " << status;
                const bool goesOn = isGranted || function != std::string("AuthorizationCreate");
                EXPECT_EQ(logged("AuthorizationCopyRights("), goesOn) << function << " gives " << status;
            }
        }
    }
}

}  // namespace
