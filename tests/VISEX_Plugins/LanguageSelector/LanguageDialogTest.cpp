#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxDouble.h"
#include "tests/support/RecordDifferences.h"

namespace {

using ToolboxDouble::Choose;
using ToolboxDouble::Command;
using ToolboxDouble::CommandWithoutUserData;
using ToolboxDouble::Event;
using ToolboxDouble::EVERY_CALL;
using ToolboxDouble::InModalLoop;
using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

const UInt16 UNTOUCHED = 0xBEEF;

class LanguageDialog : public testing::Test {
protected:
    LanguageDialog() { ToolboxDouble::Reset(); }

    // Runs the dialog for `currentLanguage`; what is then the chosen one.
    static UInt16 run(UInt32 currentLanguage)
    {
        ExternParmBlock record = recordWith(1000, currentLanguage);
        record.chosenLanguage = UNTOUCHED;
        LanguageSelector(&record);
        return record.chosenLanguage;
    }

    static bool logged(const std::string& text) { return Log().find(text) != std::string::npos; }
};

// ---- The calls, in order

TEST_F(LanguageDialog, MakesItsCallsInOrder)
{
    InModalLoop({Choose(3), Command('ok  ')});
    EXPECT_EQ(run(11), 2);
    EXPECT_EQ(Log(), R"(CreateNibReference("LanguageSelector") = 0 -> nib1
CreateWindowFromNib(nib1, "Language_Selector") = 0 -> window1
DisposeNibReference(nib1)
GetControlByID(window1, 'lsel', 1) = 0 -> popup1
SetControl32BitValue(popup1, 2)
NewEventHandlerUPP(given) = upp1
GetWindowEventTarget(window1) = target1
InstallEventHandler(target1, upp1, 1, {'cmds' 1}, given, null) = 0
ShowWindow(window1)
RunAppModalLoopForWindow(window1) = 0
  handler('cmds', 1, 'ok  ', given) = 0
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = 0
    GetControlByID(window1, 'lsel', 1) = 0 -> popup1
    GetControl32BitValue(popup1) = 3
    QuitAppModalLoopForWindow(window1) = 0
HideWindow(window1)
DisposeWindow(window1)
DisposeEventHandlerUPP(upp1)
)");
    EXPECT_EQ(LeftBehind(), "");
}

TEST_F(LanguageDialog, CancelDoesNotLookAtThePopUp)
{
    InModalLoop({Choose(3), Command('not!')});
    EXPECT_EQ(run(11), UNTOUCHED);
    EXPECT_EQ(Log(), R"(CreateNibReference("LanguageSelector") = 0 -> nib1
CreateWindowFromNib(nib1, "Language_Selector") = 0 -> window1
DisposeNibReference(nib1)
GetControlByID(window1, 'lsel', 1) = 0 -> popup1
SetControl32BitValue(popup1, 2)
NewEventHandlerUPP(given) = upp1
GetWindowEventTarget(window1) = target1
InstallEventHandler(target1, upp1, 1, {'cmds' 1}, given, null) = 0
ShowWindow(window1)
RunAppModalLoopForWindow(window1) = 0
  handler('cmds', 1, 'not!', given) = 0
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = 0
    QuitAppModalLoopForWindow(window1) = 0
HideWindow(window1)
DisposeWindow(window1)
DisposeEventHandlerUPP(upp1)
)");
    EXPECT_EQ(LeftBehind(), "");
}

// ---- Failures

struct FailureCase {
    const char* name;
    const char* function;  // which fails
    long result;
    const char* message;
    const char* log;  // before the message box
    const char* leftBehind;
};

// clang-format off
const FailureCase FAILURE_CASES[] = {
    {"NoNib", "CreateNibReference", -10960, "Can't find Nib Reference",
R"(CreateNibReference("LanguageSelector") = -10960
)", ""},

    {"NoWindow", "CreateWindowFromNib", -10962, "Can't create windows from Nib",
R"(CreateNibReference("LanguageSelector") = 0 -> nib1
CreateWindowFromNib(nib1, "Language_Selector") = -10962
)", "nib1\n"},

    {"NullWindow", "CreateWindowFromNib", 0, "Can't create windows from Nib",
R"(CreateNibReference("LanguageSelector") = 0 -> nib1
CreateWindowFromNib(nib1, "Language_Selector") = 0
)", "nib1\n"},

    {"NoHandler", "InstallEventHandler", -9866, "Can't install window event handler",
R"(CreateNibReference("LanguageSelector") = 0 -> nib1
CreateWindowFromNib(nib1, "Language_Selector") = 0 -> window1
DisposeNibReference(nib1)
GetControlByID(window1, 'lsel', 1) = 0 -> popup1
SetControl32BitValue(popup1, 2)
NewEventHandlerUPP(given) = upp1
GetWindowEventTarget(window1) = target1
InstallEventHandler(target1, upp1, 1, {'cmds' 1}, given, null) = -9866
)", "window1 hidden\nupp1\n"},

    {"NoModalLoop", "RunAppModalLoopForWindow", -5617, "Can't run modal loop for window",
R"(CreateNibReference("LanguageSelector") = 0 -> nib1
CreateWindowFromNib(nib1, "Language_Selector") = 0 -> window1
DisposeNibReference(nib1)
GetControlByID(window1, 'lsel', 1) = 0 -> popup1
SetControl32BitValue(popup1, 2)
NewEventHandlerUPP(given) = upp1
GetWindowEventTarget(window1) = target1
InstallEventHandler(target1, upp1, 1, {'cmds' 1}, given, null) = 0
ShowWindow(window1)
RunAppModalLoopForWindow(window1) = -5617
)", "window1 shown\nupp1\nhandler1\n"},
};
// clang-format on

// The log of the message box that shows `message`.
std::string boxLog(const std::string& message)
{
    const std::string text = '"' + message + '"';
    std::string log;
    log += "CFStringCreateWithCString(null, " + text + ", 0) = string1\n";
    log += "CFStringGetPascalStringPtr(string1, 0) = " + text + "\n";
    log += "StandardAlert(1, " + text
        + ", null, {movable 1, help 0, filter null, default -1, cancel null, other null, default button 1, cancel "
          "button 0, position 0}) = 0 -> 1\n";
    log += "CFRelease(string1)\n";
    return log;
}

class LanguageDialogFailure : public testing::TestWithParam<FailureCase> {
protected:
    LanguageDialogFailure() { ToolboxDouble::Reset(); }
};

TEST_P(LanguageDialogFailure, IsShownAndEndsTheDialogWhereItStands)
{
    InModalLoop({Choose(3), Command('ok  ')});
    ToolboxDouble::FailCall(GetParam().function, GetParam().result);
    ExternParmBlock record = recordWith(1000, 11);
    const RecordBytes before = bytesOf(record);

    LanguageSelector(&record);
    EXPECT_EQ(Log(), GetParam().log + boxLog(GetParam().message));
    EXPECT_EQ(LeftBehind(), GetParam().leftBehind);
    EXPECT_EQ(recordDifferences(bytesOf(record), before), "");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LanguageDialogFailure, testing::ValuesIn(FAILURE_CASES), [](const auto& row) { return row.param.name; });

// A modal loop may fail when the person has pressed OK already.
TEST_F(LanguageDialog, LoopThatFailsAfterAnAnswerStoresNothing)
{
    ToolboxDouble::FailCall("QuitAppModalLoopForWindow", -5618);
    InModalLoop({Choose(3), Command('ok  ')});
    EXPECT_EQ(run(11), UNTOUCHED);
    EXPECT_TRUE(logged(boxLog("Can't run modal loop for window"))) << Log();
}

TEST_F(LanguageDialog, WithoutThePopUpShowsAndKeepsTheCurrentLanguage)
{
    ToolboxDouble::FailCall("GetControlByID", errUnknownControl);
    InModalLoop({Command('ok  ')});
    EXPECT_EQ(run(3), 3);
    EXPECT_TRUE(logged("GetControlByID(window1, 'lsel', 1) = -30584\nSetControl32BitValue(null, 5)\n")) << Log();
    EXPECT_TRUE(logged("= -30584\n    GetControl32BitValue(null) = 0\n")) << Log();
}

TEST_F(LanguageDialog, PopUpIsLookedForAgainAtTheEnd)
{
    ToolboxDouble::FailCall("GetControlByID", errUnknownControl, 2);
    InModalLoop({Choose(2), Command('ok  ')});
    EXPECT_EQ(run(3), 3);
    EXPECT_TRUE(logged("SetControl32BitValue(popup1, 5)\n")) << Log();
}

// ---- The languages

// The second way of telling them, by hand.
UInt16 known(UInt32 code)
{
    switch (code) {
    case 1:
    case 2:
    case 3:
    case 6:
    case 11:
        return static_cast<UInt16>(code);
    default:
        return 0;
    }
}

std::vector<UInt32> codesToTry()
{
    std::vector<UInt32> codes;
    for (UInt32 code = 0; code <= 0x400; ++code)
        codes.push_back(code);
    for (unsigned bit = 11; bit < 32; ++bit) {
        const UInt32 boundary = static_cast<UInt32>(1) << bit;
        for (const UInt32 low : {0u, 1u, 2u, 3u, 6u, 11u})
            codes.push_back(boundary + low);
        codes.push_back(boundary - 1);
    }
    // The codes in the other order of bytes, and what reads as negative.
    for (const UInt32 code :
        {0x01000000u, 0x02000000u, 0x03000000u, 0x06000000u, 0x0B000000u, 0xFFFFFFFFu, 0xFFFFFFFEu})
        codes.push_back(code);
    return codes;
}

struct LanguageCase {
    const char* name;
    UInt32 code;
    SInt32 item;
};

// clang-format off
const LanguageCase LANGUAGE_CASES[] = {
    {"English",  0,  1},
    {"Japanese", 11, 2},
    {"German",   2,  3},
    {"French",   1,  4},
    {"Italian",  3,  5},
    {"Spanish",  6,  6},
};
// clang-format on

class LanguageDialogLanguage : public testing::TestWithParam<LanguageCase> {
protected:
    LanguageDialogLanguage() { ToolboxDouble::Reset(); }
};

TEST_P(LanguageDialogLanguage, IsPreselectedAndConfirmed)
{
    InModalLoop({Command('ok  ')});
    ExternParmBlock record = recordWith(1000, GetParam().code);
    LanguageSelector(&record);
    EXPECT_EQ(ToolboxDouble::ItemShown(), GetParam().item);
    EXPECT_EQ(record.chosenLanguage, GetParam().code);
}

TEST_P(LanguageDialogLanguage, IsChosenWhateverTheCurrentOne)
{
    for (const LanguageCase& current : LANGUAGE_CASES) {
        ToolboxDouble::Reset();
        InModalLoop({Choose(GetParam().item), Command('ok  ')});
        ExternParmBlock record = recordWith(1000, current.code);
        RecordBytes expected = bytesOf(record);
        expected[582] = 0;
        expected[583] = static_cast<UInt8>(GetParam().code);

        LanguageSelector(&record);
        EXPECT_EQ(recordDifferences(bytesOf(record), expected), "") << "from " << current.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageDialogLanguage, testing::ValuesIn(LANGUAGE_CASES),
    [](const auto& row) { return row.param.name; });

TEST_F(LanguageDialog, CodeThatIsNoneOfTheSixShowsEnglishAndConfirmsIt)
{
    for (const UInt32 code : codesToTry()) {
        ToolboxDouble::Reset();
        InModalLoop({Command('ok  ')});
        EXPECT_EQ(run(code), known(code)) << "code " << code;
        EXPECT_EQ(ToolboxDouble::ItemShown() == 1, known(code) == 0) << "code " << code;
    }
}

TEST_F(LanguageDialog, ItemAfterTheSixthIsEnglish)
{
    std::vector<SInt32> items;
    for (SInt32 item = 7; item <= 0x400; ++item)
        items.push_back(item);
    for (unsigned bit = 11; bit < 31; ++bit) {
        for (SInt32 low = 0; low <= 7; ++low)
            items.push_back((static_cast<SInt32>(1) << bit) + low);
    }
    items.push_back(std::numeric_limits<SInt32>::max());
    for (const SInt32 item : items) {
        ToolboxDouble::Reset();
        InModalLoop({Choose(item), Command('ok  ')});
        EXPECT_EQ(run(11), 0) << "item " << item;
    }
}

TEST_F(LanguageDialog, NoItemKeepsThePreselectedOne)
{
    for (const SInt32 item : {0, -1, -2, -0x10000 + 3, std::numeric_limits<int>::min()}) {
        ToolboxDouble::Reset();
        InModalLoop({Choose(item), Command('ok  ')});
        EXPECT_EQ(run(11), 11) << "item " << item;
    }
}

TEST_F(LanguageDialog, FieldsAreReadIn32AndWrittenIn16Bits)
{
    InModalLoop({Command('ok  ')});
    ExternParmBlock record = recordWith(1000, 0);
    RecordBytes bytes = bytesOf(record);
    bytes[582] = 0x12;  // a current language where the chosen one goes: it must not be read
    bytes[583] = 0x06;
    bytes[610] = 0x00;
    bytes[611] = 0x00;
    bytes[612] = 0x00;
    bytes[613] = 0x0B;
    record = recordOf(bytes);
    bytes[582] = 0x00;
    bytes[583] = 0x0B;

    LanguageSelector(&record);
    EXPECT_EQ(recordDifferences(bytesOf(record), bytes), "");
}

// ---- Cancelling, and what is passed on

TEST_F(LanguageDialog, CancelChangesNoByteOfTheRecord)
{
    InModalLoop({Choose(3), Command('not!')});
    ExternParmBlock record = recordWith(1000, 11);
    const RecordBytes before = bytesOf(record);
    LanguageSelector(&record);
    EXPECT_EQ(recordDifferences(bytesOf(record), before), "");
}

TEST_F(LanguageDialog, LoopThatEndsWithoutAnAnswerStoresNothing)
{
    InModalLoop({Choose(3), ToolboxDouble::Quit()});
    EXPECT_EQ(run(11), UNTOUCHED);
    EXPECT_EQ(LeftBehind(), "");
}

struct PassedOnCase {
    const char* name;
    ToolboxDouble::Act act;
    const char* log;  // of the handler
};

// clang-format off
const PassedOnCase PASSED_ON_CASES[] = {
    {"OtherCommand", Command('othr'),
R"(  handler('cmds', 1, 'othr', given) = -9874
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = 0
)"},
    {"NoCommand", Command(0),
R"(  handler('cmds', 1, '\x00\x00\x00\x00', given) = -9874
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = 0
)"},
    {"OneBlankShort", Command('ok \0'),
R"(  handler('cmds', 1, 'ok \x00', given) = -9874
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = 0
)"},
    {"OtherClass", Event('wind', 1),
R"(  handler('wind', 1, 'ok  ', given) = -9874
    GetEventClass(event1) = 'wind'
)"},
    {"OtherKind", Event('cmds', 2),
R"(  handler('cmds', 2, 'ok  ', given) = -9874
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 2
)"},
    {"NoUserData", CommandWithoutUserData('ok  '),
R"(  handler('cmds', 1, 'ok  ', null) = -9874
)"},
};
// clang-format on

class LanguageDialogEvent : public testing::TestWithParam<PassedOnCase> {
protected:
    LanguageDialogEvent() { ToolboxDouble::Reset(); }
};

TEST_P(LanguageDialogEvent, IsPassedOnAndDoesNotEndTheLoop)
{
    InModalLoop({GetParam().act, Choose(6), Command('ok  ')});
    ExternParmBlock record = recordWith(1000, 0);
    LanguageSelector(&record);
    const std::string then = "  handler('cmds', 1, 'ok  ', given) = 0\n";
    EXPECT_NE(Log().find(GetParam().log + then), std::string::npos) << Log();
    EXPECT_EQ(record.chosenLanguage, 6);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LanguageDialogEvent, testing::ValuesIn(PASSED_ON_CASES), [](const auto& row) { return row.param.name; });

TEST_F(LanguageDialog, CommandWithoutItsParameterIsPassedOn)
{
    ToolboxDouble::FailCall("GetEventParameter", eventParameterNotFoundErr, 1);
    InModalLoop({Command('not!'), Choose(6), Command('ok  ')});
    EXPECT_EQ(run(0), 6);
    EXPECT_TRUE(logged(R"(  handler('cmds', 1, 'not!', given) = -9874
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = -9870
  handler('cmds', 1, 'ok  ', given) = 0
)")) << Log();
}

}  // namespace
