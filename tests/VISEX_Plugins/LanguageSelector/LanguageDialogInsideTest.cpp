// What the dialog keeps to itself: its source is a part of this program, whose own UI::MessageOK takes the place of
// UI's. The alerts show no title, so that it is looked at here.

#include "VISEX_Plugins/LanguageSelector/LanguageDialog.cpp"
#include "tests/VISEX_Plugins/LanguageSelector/Failures.h"
#include "tests/double/ToolboxTest.h"

#include <string>
#include <vector>

namespace {

// The boxes that were shown: "title: message".
typedef std::vector<std::string> Boxes;
Boxes g_boxes;

TEST(Messages, HaveTheTitleAndTellWhatFailedIfAnythingDoes)
{
    for (const Failure& failure : failures()) {
        if (failure.scenario != Scenario::Served)
            continue;
        SCOPED_TRACE(failure.name);
        prepare(failure, failure.results.front());
        g_boxes.clear();
        ExternParmBlock record = recordFor(Scenario::Served);
        LanguageSelector(&record);
        const auto expected =
            hasBox(failure) ? Boxes{std::string("Language Selector Error: ") + failure.seen} : Boxes{};
        EXPECT_EQ(g_boxes, expected);
    }
}

TEST(NativeDialogControl, IsFoundBySignatureAndNumberOrNull)
{
    ToolboxDouble::Reset();
    WindowRef window = nullptr;
    ASSERT_EQ(CreateWindowFromNib(nullptr, CFSTR("Language_Selector"), &window), noErr);
    const ControlRef found = getNativeDialogControlRef(window, 'lsel', 1);
    SetControl32BitValue(found, 4);
    EXPECT_EQ(GetControl32BitValue(found), 4);
    EXPECT_EQ(getNativeDialogControlRef(window, 'lsel', 2), nullptr);
    EXPECT_EQ(getNativeDialogControlRef(window, 'othr', 1), nullptr);
}

}  // namespace

namespace UI {

void MessageOK(OpaqueWindowPtr* parent, const String& title, const String& message, bool last)
{
    EXPECT_EQ(parent, nullptr);
    EXPECT_FALSE(last);
    g_boxes.push_back(std::string(title.Latin1()) + ": " + message.Latin1());
}

}  // namespace UI
