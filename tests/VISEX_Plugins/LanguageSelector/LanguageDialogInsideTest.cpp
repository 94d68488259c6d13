// What the dialog keeps to itself: its source is a part of this program, whose own UI::MessageOK takes the place of
// UI's. The alerts show no title, so that it is looked at here.

#include "VISEX_Plugins/LanguageSelector/LanguageDialog.cpp"
#include "tests/VISEX_Plugins/LanguageSelector/Failures.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxTest.h"

#include <string>
#include <vector>

namespace {

// The boxes that were shown: "title: message".
std::vector<std::string> g_boxes;

class Messages : public ToolboxTestWith<Failure> {
protected:
    Messages() { g_boxes.clear(); }
};

TEST_P(Messages, HaveTheTitleAndTellWhatFailed)
{
    prepare(GetParam(), GetParam().results.front());
    ExternParmBlock record = recordFor(Scenario::Served);
    LanguageSelector(&record);
    EXPECT_EQ(g_boxes, std::vector<std::string>{std::string("Language Selector Error: ") + GetParam().seen});
}

INSTANTIATE_TEST_SUITE_P(Cases, Messages, testing::ValuesIn(failuresWithABox()), RowName());

TEST(NoMessage, IsShownWhenNothingFails)
{
    prepare(Scenario::Served);
    g_boxes.clear();
    ExternParmBlock record = recordFor(Scenario::Served);
    LanguageSelector(&record);
    EXPECT_EQ(g_boxes, std::vector<std::string>());
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
