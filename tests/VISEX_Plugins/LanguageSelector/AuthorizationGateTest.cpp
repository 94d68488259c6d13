#include "VISEX_Plugins/LanguageSelector/AuthorizationGate.h"

#include <string>
#include <vector>

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>

#include "tests/double/ToolboxDouble.h"

namespace {

using ToolboxDouble::EVERY_CALL;
using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

// The installer's resource, with `flagByte` at position 401 and the opposite of it in every other byte.
void provideFlag(UInt8 flagByte, std::size_t size = 800)
{
    std::vector<UInt8> data(size, static_cast<UInt8>(~flagByte));
    data.at(401) = flagByte;
    ToolboxDouble::ProvideResource('CALL', 1000, data);
}

// ---- Whether the right is demanded

class AuthorizationFlag : public testing::Test {
protected:
    AuthorizationFlag() { ToolboxDouble::Reset(); }
};

TEST_F(AuthorizationFlag, IsClearWithoutTheResource)
{
    EXPECT_TRUE(passAuthorizationGate());
    EXPECT_EQ(Log(), "GetResource('CALL', 1000) = null\n");
}

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

TEST_F(AuthorizationFlag, IsTheMostSignificantBitOfTheByte)
{
    for (int flagByte = 0; flagByte <= 0xFF; ++flagByte) {
        ToolboxDouble::Reset();
        provideFlag(static_cast<UInt8>(flagByte));
        ToolboxDouble::FailCall("FSFindFolder", -43);
        EXPECT_EQ(passAuthorizationGate(), flagByte < 0x80) << "byte " << flagByte;
    }
}

TEST_F(AuthorizationFlag, IsReadFromAResourceThatEndsWithIt)
{
    provideFlag(0x80, 402);
    ToolboxDouble::FailCall("FSFindFolder", -43);
    EXPECT_FALSE(passAuthorizationGate());
}

// ---- When it is demanded

// The log of a gate whose flag is set.
const char FLAG_LOG[] = R"(GetResource('CALL', 1000) = handle1
HLock(handle1)
BlockMoveData(handle1 + 401, 1) -> 80
BitTst(80, 0) = 1
HUnlock(handle1)
ReleaseResource(handle1)
)";

struct GateCase {
    const char* name;
    const char* function;  // which fails
    int occurrence;
    long result;
    bool goes;
    const char* log;  // after the flag
    const char* leftBehind;
};

// clang-format off
const GateCase GATE_CASES[] = {
    {"Granted", "", EVERY_CALL, 0, true,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = url2
CFBundleCreate(system default, url2) = bundle1
CFBundleLoadExecutable(bundle1) = 1
CFRelease(url2)
CFRelease(url1)
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCreate") = given
AuthorizationCreate(null, null, 0) = 0 -> authorization1
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCopyRights") = given
AuthorizationCopyRights(authorization1, {"system.privilege.admin" 0 null 0}, null, 0, null) = 0
)", "bundle1\nauthorization1\n"},

    {"FolderNotFound", "FSFindFolder", EVERY_CALL, -43, false,
R"(FSFindFolder(-32767, 'fram', 1) = -43
)", ""},

    {"FolderURLNotMade", "CFURLCreateFromFSRef", EVERY_CALL, 0, false,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = null
)", ""},

    {"FrameworkURLNotMade", "CFURLCreateCopyAppendingPathComponent", EVERY_CALL, 0, false,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = null
CFRelease(url1)
)", ""},

    {"BundleNotMade", "CFBundleCreate", EVERY_CALL, 0, false,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = url2
CFBundleCreate(system default, url2) = null
CFRelease(url2)
CFRelease(url1)
)", ""},

    {"CodeNotLoaded", "CFBundleLoadExecutable", EVERY_CALL, 0, false,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = url2
CFBundleCreate(system default, url2) = bundle1
CFBundleLoadExecutable(bundle1) = 0
CFRelease(bundle1)
CFRelease(url2)
CFRelease(url1)
)", ""},

    {"FirstFunctionMissing", "CFBundleGetFunctionPointerForName", 1, 0, false,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = url2
CFBundleCreate(system default, url2) = bundle1
CFBundleLoadExecutable(bundle1) = 1
CFRelease(url2)
CFRelease(url1)
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCreate") = null
)", "bundle1\n"},

    {"SecondFunctionMissing", "CFBundleGetFunctionPointerForName", 2, 0, false,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = url2
CFBundleCreate(system default, url2) = bundle1
CFBundleLoadExecutable(bundle1) = 1
CFRelease(url2)
CFRelease(url1)
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCreate") = given
AuthorizationCreate(null, null, 0) = 0 -> authorization1
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCopyRights") = null
)", "bundle1\nauthorization1\n"},

    // The second function is looked up even so.
    {"CreateFails", "AuthorizationCreate", EVERY_CALL, -60008, false,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = url2
CFBundleCreate(system default, url2) = bundle1
CFBundleLoadExecutable(bundle1) = 1
CFRelease(url2)
CFRelease(url1)
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCreate") = given
AuthorizationCreate(null, null, 0) = -60008
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCopyRights") = given
)", "bundle1\n"},

    {"RightDenied", "AuthorizationCopyRights", EVERY_CALL, -60005, false,
R"(FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = url2
CFBundleCreate(system default, url2) = bundle1
CFBundleLoadExecutable(bundle1) = 1
CFRelease(url2)
CFRelease(url1)
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCreate") = given
AuthorizationCreate(null, null, 0) = 0 -> authorization1
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCopyRights") = given
AuthorizationCopyRights(authorization1, {"system.privilege.admin" 0 null 0}, null, 0, null) = -60005
)", "bundle1\nauthorization1\n"},
};
// clang-format on

class AuthorizationGate : public testing::TestWithParam<GateCase> {
protected:
    AuthorizationGate() { ToolboxDouble::Reset(); }
};

TEST_P(AuthorizationGate, MakesItsCallsInOrder)
{
    provideFlag(0x80);
    ToolboxDouble::FailCall(GetParam().function, GetParam().result, GetParam().occurrence);
    EXPECT_EQ(passAuthorizationGate(), GetParam().goes);
    EXPECT_EQ(Log(), std::string(FLAG_LOG) + GetParam().log);
    EXPECT_EQ(LeftBehind(), GetParam().leftBehind);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, AuthorizationGate, testing::ValuesIn(GATE_CASES), [](const auto& row) { return row.param.name; });

// ---- How the two results are judged

struct StatusCase {
    const char* name;
    long status;
    bool goes;
};

// clang-format off
const StatusCase STATUS_CASES[] = {
    {"Zero",                  0,            true},
    {"One",                   1,            false},
    {"MinusOne",              -1,           false},
    {"Denied",                -60005,       false},
    {"Canceled",              -60006,       false},
    {"InteractionNotAllowed", -60007,       false},
    {"Internal",              -60008,       false},
    {"InternalIn16Bits",      -60008 & 0xFFFF, false},
    {"Largest16Bits",         0x7FFF,       false},
    {"TopOf16Bits",           0x8000,       false},
    {"All16Bits",             0xFFFF,       false},
    {"No16BitsSet",           0x10000,      true},
    {"No16BitsSetNegative",   -0x10000,     true},
    {"One16BitSet",           0x10001,      false},
    {"One16BitSetNegative",   -0xFFFF,      false},
    {"LargestWithNo16Bits",   0x7FFF0000,   true},
    {"Smallest",              -0x7FFFFFFFL - 1, true},
    {"Largest",               0x7FFFFFFF,   false},
};
// clang-format on

class AuthorizationStatus : public testing::TestWithParam<StatusCase> {
protected:
    AuthorizationStatus()
    {
        ToolboxDouble::Reset();
        provideFlag(0x80);
    }
};

TEST_P(AuthorizationStatus, OfCreateIsJudgedByItsLow16Bits)
{
    ToolboxDouble::FailCall("AuthorizationCreate", GetParam().status);
    EXPECT_EQ(passAuthorizationGate(), GetParam().goes);
    EXPECT_EQ(Log().find("AuthorizationCopyRights(") != std::string::npos, GetParam().goes) << Log();
}

TEST_P(AuthorizationStatus, OfCopyRightsIsJudgedByItsLow16Bits)
{
    ToolboxDouble::FailCall("AuthorizationCopyRights", GetParam().status);
    EXPECT_EQ(passAuthorizationGate(), GetParam().goes);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, AuthorizationStatus, testing::ValuesIn(STATUS_CASES), [](const auto& row) { return row.param.name; });

TEST_F(AuthorizationFlag, FolderErrorOfAnyKindStops)
{
    for (const long error : {-43, -35, -120, -4273, -5000, -1, 1, 0x7FFF, -0x8000}) {
        ToolboxDouble::Reset();
        provideFlag(0xFF);
        ToolboxDouble::FailCall("FSFindFolder", error);
        EXPECT_FALSE(passAuthorizationGate()) << "error " << error;
        EXPECT_EQ(Log().find("CFURLCreateFromFSRef"), std::string::npos) << "error " << error;
    }
}

TEST_F(AuthorizationFlag, IsReadAnewEveryTime)
{
    provideFlag(0x80);
    EXPECT_TRUE(passAuthorizationGate());
    EXPECT_TRUE(passAuthorizationGate());
    EXPECT_EQ(LeftBehind(), "bundle1\nauthorization1\nbundle2\nauthorization2\n") << "each time, they stay";
}

}  // namespace
