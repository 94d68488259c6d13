// The dialog: what it asks and what it stores.

#include "tests/VISEX_Plugins/LanguageSelector/Failures.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxTest.h"
#include "tests/support/RecordDifferences.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

namespace {

using ToolboxDouble::Act;
using ToolboxDouble::InModalLoop;
using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

class LanguageDialog : public ToolboxTest {
protected:
    // Runs the dialog for `currentLanguage`; what is then the chosen one.
    static UInt16 run(UInt32 currentLanguage)
    {
        ExternParmBlock record = recordWith(1000, currentLanguage);
        record.chosenLanguage = UNTOUCHED;
        LanguageSelector(&record);
        return record.chosenLanguage;
    }
};

TEST_F(LanguageDialog, CancelNeitherLooksAtThePopUpNorChangesAByteOfTheRecord)
{
    InModalLoop({Act::Choose(3), Act::Command('not!')});
    ExternParmBlock record = recordWith(1000, 11);
    const ExternParmBlock before = record;
    LanguageSelector(&record);
    EXPECT_EQ(recordDifferences(record, before), "");
    EXPECT_TRUE(logged(R"(RunAppModalLoopForWindow(window1) = 0
  handler('cmds', 1, 'not!', given) = 0
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = 0
    QuitAppModalLoopForWindow(window1) = 0
HideWindow(window1)
DisposeWindow(window1)
DisposeEventHandlerUPP(upp1)
)")) << Log();
    EXPECT_FALSE(logged("StandardAlert(")) << Log();
    EXPECT_EQ(LeftBehind(), "");
}

// ---- Failures that come together: each alone is a row of Failures.cpp

TEST_F(LanguageDialog, CancelAfterAnOKThatDidNotEndTheLoopStoresNothing)
{
    for (const long status : {-5618L, 1L, 0x10000L}) {
        ToolboxDouble::Reset();
        ToolboxDouble::FailCall("QuitAppModalLoopForWindow", status, 1);
        InModalLoop({Act::Choose(3), Act::Command('ok  '), Act::Command('not!')});
        EXPECT_EQ(run(11), UNTOUCHED) << "status " << status;
        EXPECT_TRUE(logged("  handler('cmds', 1, 'ok  ', given) = 0\n")) << "the command was handled\n" << Log();
    }
}

// ---- The languages

// The codes of English, Japanese, German, French, Italian and Spanish in the order of the pop-up's items.
const UInt16 CODES[] = {0, 11, 2, 1, 3, 6};

// All that are small, and around every power of two: for codes, and for items.
std::vector<UInt32> numbersToTry()
{
    std::vector<UInt32> numbers = {0xFFFFFFFE, 0xFFFFFFFF};
    for (UInt32 number = 0; number <= 0x400; ++number)
        numbers.push_back(number);
    for (unsigned bit = 11; bit < 32; ++bit) {
        for (const int distance : {-1, 0, 1, 2, 3, 6, 11})
            numbers.push_back((static_cast<UInt32>(1) << bit) + static_cast<UInt32>(distance));
    }
    return numbers;
}

TEST_F(LanguageDialog, PreselectsAndConfirmsTheCurrentLanguageOrStoresTheChosenOne)
{
    SInt32 shown = 0;
    for (const UInt16 current : CODES) {
        ToolboxDouble::Reset();
        InModalLoop({Act::Command('ok  ')});
        EXPECT_EQ(run(current), current);
        EXPECT_EQ(ToolboxDouble::ItemShown(), ++shown) << "for " << current;
        SInt32 item = 0;
        for (const UInt16 chosen : CODES) {
            ToolboxDouble::Reset();
            InModalLoop({Act::Choose(++item), Act::Command('ok  ')});
            ExternParmBlock record = recordWith(1000, current);
            ExternParmBlock expected = record;
            expected.chosenLanguage = chosen;
            LanguageSelector(&record);
            EXPECT_EQ(recordDifferences(record, expected), "") << "from " << current << " to " << chosen;
        }
    }
}

TEST_F(LanguageDialog, CodeThatIsNoneOfTheSixShowsEnglishAndConfirmsIt)
{
    for (const UInt32 code : numbersToTry()) {
        ToolboxDouble::Reset();
        InModalLoop({Act::Command('ok  ')});
        const bool isKnown = std::find(std::begin(CODES), std::end(CODES), code) != std::end(CODES);
        EXPECT_EQ(run(code), isKnown ? code : 0) << "code " << code;
        EXPECT_EQ(ToolboxDouble::ItemShown() == 1, code == 0 || !isKnown) << "code " << code;
    }
}

TEST_F(LanguageDialog, ItemAfterTheSixthIsEnglishAndNoItemKeepsThePreselectedOne)
{
    for (const UInt32 number : numbersToTry()) {
        const auto item = static_cast<SInt32>(number);
        ToolboxDouble::Reset();
        InModalLoop({Act::Choose(item), Act::Command('ok  ')});
        EXPECT_EQ(run(11), item <= 0 ? 11 : item <= 6 ? CODES[item - 1] : 0) << "item " << item;
    }
}

// ---- Cancelling, and what is passed on

TEST_F(LanguageDialog, LoopThatEndsWithoutAnAnswerStoresNothing)
{
    InModalLoop({Act::Choose(3), Act::Quit()});
    EXPECT_EQ(run(11), UNTOUCHED);
    EXPECT_EQ(LeftBehind(), "");
}

// clang-format off
const char LOOKED_AT[] = R"(    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = 0
)";
const std::tuple<const char*, Act, const char*> PASSED_ON_CASES[] = {
    // name           act                             the handler's log
    {"OtherCommand",  Act::Command('othr'),                "'cmds', 1, 'othr', given) = -9874\n"},
    {"NoCommand",     Act::Command(0),                     "'cmds', 1, '\\x00\\x00\\x00\\x00', given) = -9874\n"},
    {"OneBlankShort", Act::Command('ok \0'),               "'cmds', 1, 'ok \\x00', given) = -9874\n"},
    {"OtherClass",    Act::Event('wind', 1),               "'wind', 1, 'ok  ', given) = -9874\n    GetEventClass(event1) = 'wind'\n"},
    {"OtherKind",     Act::Event('cmds', 2),               "'cmds', 2, 'ok  ', given) = -9874\n    GetEventClass(event1) = 'cmds'\n    GetEventKind(event1) = 2\n"},
    {"NoUserData",    Act::CommandWithoutUserData('ok  '), "'cmds', 1, 'ok  ', null) = -9874\n"},
};
// clang-format on

TEST_F(LanguageDialog, PassesOtherEventsOnAndDoesNotEnd)
{
    for (const auto& [name, act, log] : PASSED_ON_CASES) {
        SCOPED_TRACE(name);
        ToolboxDouble::Reset();
        InModalLoop({act, Act::Choose(6), Act::Command('ok  ')});
        EXPECT_EQ(run(0), 6);
        const bool looks = act.eventClass == 'cmds' && act.eventKind == 1 && act.kind == Act::Kind::Send;
        EXPECT_TRUE(logged(
            std::string("  handler(") + log + (looks ? LOOKED_AT : "") + "  handler('cmds', 1, 'ok  ', given) = 0\n"))
            << Log();
    }
}

TEST_F(LanguageDialog, CommandWithoutItsParameterIsPassedOn)
{
    for (const long status : {long{eventParameterNotFoundErr}, 1L, 0x10000L}) {
        ToolboxDouble::Reset();
        ToolboxDouble::FailCall("GetEventParameter", status, 1);
        InModalLoop({Act::Command('not!'), Act::Choose(6), Act::Command('ok  ')});
        EXPECT_EQ(run(0), 6) << "status " << status;
        EXPECT_TRUE(logged("  handler('cmds', 1, 'not!', given) = -9874\n")) << Log();
    }
}

}  // namespace
