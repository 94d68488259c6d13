#include "UI/MessageBox.h"

#include "tests/double/ToolboxTest.h"
#include "tests/support/Allocations.h"

#include <initializer_list>
#include <string>

namespace {

using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

static_assert(UI::YesNoFocus(0) == UI::YesFocus && UI::NoFocus != 0, "0 names the first button");
static_assert(UI::OKCancelFocus(0) == UI::OKFocus && UI::CancelFocus != 0, "0 names the first button");

std::vector<unsigned short> units(const std::string& text)
{
    return std::vector<unsigned short>(text.begin(), text.end());
}

// ---- Boxes with texts in Mac OS Roman

struct BoxCase {
    const char* name;
    bool (*show)(const char* message);
    const char* alert;  // the record that StandardAlert is given
    bool asks;          // returns which button was pressed
};

bool messageOK(const char* message)
{
    UI::MessageOK(nullptr, "Title", message, false);
    return true;
}

template <UI::YesNoFocus focus> bool messageYesNo(const char* message)
{
    return UI::MessageYesNo(nullptr, "Title", message, focus, false);
}

template <UI::OKCancelFocus focus> bool messageOKCancel(const char* message)
{
    return UI::MessageOKCancel(nullptr, "Title", message, focus, false);
}

// Nothing but the message comes from the caller: neither the parent, nor the title, nor the last argument.
bool messageYesNoWithAll(const char* message)
{
    char window;
    return UI::MessageYesNo(
        reinterpret_cast<OpaqueWindowPtr*>(&window), "Another title", message, UI::YesNoFocus(7), true);
}

// clang-format off
const char OK_ALERT[] = "{movable 1, help 0, filter null, default -1, cancel null, other null, default button 1, cancel button 0, position 0}";
const char YES_NO_ALERT[] = "{movable 1, help 0, filter null, default \"Yes\", cancel \"No\", other null, default button 1, cancel button 2, position 0}";
const char OK_CANCEL_ALERT[] = "{movable 1, help 0, filter null, default -1, cancel -1, other null, default button 1, cancel button 2, position 0}";

const BoxCase BOX_CASES[] = {
    // name                  show                                alert            asks
    {"OK",                   messageOK,                          OK_ALERT,        false},
    {"YesNoYesFocus",        messageYesNo<UI::YesFocus>,         YES_NO_ALERT,    true},
    {"YesNoNoFocus",         messageYesNo<UI::NoFocus>,          YES_NO_ALERT,    true},
    {"YesNoWithAll",         messageYesNoWithAll,                YES_NO_ALERT,    true},
    {"OKCancelOKFocus",      messageOKCancel<UI::OKFocus>,       OK_CANCEL_ALERT, true},
    {"OKCancelCancelFocus",  messageOKCancel<UI::CancelFocus>,   OK_CANCEL_ALERT, true},
};
// clang-format on

class MessageBox : public ToolboxTestWith<BoxCase> {
protected:
    MessageBox() { allocations::exempt(ToolboxDouble::IsAtWork); }
    ~MessageBox() override { allocations::exempt(nullptr); }

    // The log of a box that shows `shown` and is left with button 1.
    static std::string boxLog(const std::string& shown)
    {
        const std::string text = '"' + shown + '"';
        return "CFStringCreateWithCString(null, " + text + ", 0) = string1\nCFStringGetPascalStringPtr(string1, 0) = "
            + text + "\nStandardAlert(1, " + text + ", null, " + GetParam().alert + ") = 0 -> 1\nCFRelease(string1)\n";
    }
};

TEST_P(MessageBox, ShowsTheMessageInANoteAlert)
{
    GetParam().show("The message");
    EXPECT_EQ(Log(), boxLog("The message"));
    EXPECT_EQ(LeftBehind(), "");
}

// Whatever the alert's status says: what button it was left with decides.
TEST_P(MessageBox, IsTrueForTheFirstButtonAlone)
{
    for (const long status : {0L, long{paramErr}, 1L, 0x7FFFL}) {
        ToolboxDouble::FailCall("StandardAlert", status, 0);
        for (const SInt16 button : std::initializer_list<SInt16>{-1, 0, 1, 2, 3, 4, 257}) {
            ToolboxDouble::PressInAlerts(button);
            EXPECT_EQ(GetParam().show("The message"), button == 1 || !GetParam().asks)
                << "button " << button << ", status " << status;
        }
    }
    EXPECT_EQ(LeftBehind(), "");
}

TEST_P(MessageBox, ShowsTheFirst254Characters)
{
    for (const std::size_t length : {0u, 1u, 253u, 254u, 255u, 256u, 300u}) {
        ToolboxDouble::Reset();
        GetParam().show(std::string(length, 'x').c_str());
        EXPECT_EQ(Log(), boxLog(std::string(length < 254 ? length : 254, 'x'))) << "of " << length;
    }
}

TEST_P(MessageBox, WithoutAStringOrItsPascalFormShowsNoText)
{
    const std::string alert = std::string("StandardAlert(1, null, null, ") + GetParam().alert + ") = 0 -> 1\n";
    ToolboxDouble::FailCall("CFStringGetPascalStringPtr");
    EXPECT_TRUE(GetParam().show("The message"));
    EXPECT_TRUE(logged("CFStringGetPascalStringPtr(string1, 0) = null\n" + alert + "CFRelease(string1)\n")) << Log();

    ToolboxDouble::ClearLog();
    ToolboxDouble::FailCall("CFStringCreateWithCString");
    EXPECT_TRUE(GetParam().show("The message"));
    EXPECT_TRUE(logged("CFStringGetPascalStringPtr(null, 0) = null\n" + alert)) << Log();
    EXPECT_FALSE(logged("CFRelease"));
}

// Only a message that has to be cut takes memory: the caller's text is shared, not copied.
TEST_P(MessageBox, ThatGetsNoMemoryLeavesNothingBehind)
{
    const std::string message(300, 'x');
    int refused = 0;
    const auto show = [&message] { GetParam().show(message.c_str()); };
    for (; allocations::refusing(refused, show); ++refused)
        EXPECT_EQ(Log(), "") << "allocation " << refused;
    EXPECT_GT(refused, 0) << "nothing was allocated, so nothing was tested";
    EXPECT_TRUE(logged("StandardAlert("));
    EXPECT_EQ(LeftBehind(), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, MessageBox, testing::ValuesIn(BOX_CASES), RowName());

class MessageBoxText : public ToolboxTest { };

TEST_F(MessageBoxText, ThatIsShortIsShownWithoutMemoryAndThatOfANullStringEmpty)
{
    const String message(std::string(254, 'x').c_str());
    allocations::exempt(ToolboxDouble::IsAtWork);
    EXPECT_EQ(allocations::countIn([&] {
        UI::MessageOK(nullptr, message, message, false);
        UI::MessageYesNo(nullptr, message, message, UI::YesFocus, false);
        UI::MessageOKCancel(nullptr, message, message, UI::OKFocus, false);
    }),
        0u);
    allocations::exempt(nullptr);
    UI::MessageOK(nullptr, String(), String(), false);
    EXPECT_TRUE(logged("StandardAlert(1, \"\", null, ")) << Log();
}

// ---- Boxes with texts in UTF-16

const char UNICODE_BOX_LOG[] = R"(CFStringCreateWithCharacters(null, "Fertig", 6) = string1
CFStringCreateWithCharacters(null, "\u65E5\u672C\u8A9E", 3) = string2
CreateStandardAlert(1, string2, null, {version 1, movable 1, help 0, default string1, cancel null, other null, default button 1, cancel button 0, position 0, flags 0}) = 0 -> alert1
RunStandardAlert(alert1, null) = 0 -> 1
CFRelease(string2)
CFRelease(string1)
)";

const std::vector<unsigned short> KANJI = {0x65E5, 0x672C, 0x8A9E};

TEST_F(MessageBoxText, InUTF16IsShownWholeWithItsButtonWhateverElseTheCallerSays)
{
    UI::MessageOK(nullptr, units("Title"), KANJI, units("Fertig"), false);
    EXPECT_EQ(Log(), UNICODE_BOX_LOG);
    EXPECT_EQ(LeftBehind(), "");

    ToolboxDouble::Reset();
    char window;
    UI::MessageOK(reinterpret_cast<OpaqueWindowPtr*>(&window), units("Another title"), KANJI, units("Fertig"), true);
    EXPECT_EQ(Log(), UNICODE_BOX_LOG);

    const std::string longer(300, 'x');
    UI::MessageOK(nullptr, {}, units(longer), {}, false);
    EXPECT_TRUE(logged("CFStringCreateWithCharacters(null, \"" + longer + "\", 300)")) << Log();
}

TEST_F(MessageBoxText, InUTF16IsReleasedWhenTheAlertCannotBeMadeOrRun)
{
    for (const long status : {long{paramErr}, 1L, 0x10000L, -0x10000L}) {
        ToolboxDouble::Reset();
        ToolboxDouble::FailCall("CreateStandardAlert", status);
        UI::MessageOK(nullptr, units("Title"), KANJI, units("Fertig"), false);
        const std::string whole = UNICODE_BOX_LOG;
        EXPECT_EQ(Log(),
            whole.substr(0, whole.find(" = 0 -> alert1")) + " = " + std::to_string(status)
                + whole.substr(whole.find("\nCFRelease(")));
        EXPECT_EQ(LeftBehind(), "");

        ToolboxDouble::Reset();
        ToolboxDouble::FailCall("RunStandardAlert", status);
        UI::MessageOK(nullptr, units("Title"), KANJI, units("Fertig"), false);
        EXPECT_EQ(LeftBehind(), "") << "nor when it cannot be run";
    }
}

}  // namespace
