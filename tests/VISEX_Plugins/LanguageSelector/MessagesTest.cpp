// What the dialog hands to UI::MessageOK when it fails. The alerts show no title, so that the title is looked at here,
// where this program's own MessageOK takes the place of UI's.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "UI/MessageBox.h"
#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxDouble.h"

namespace {

// The boxes that were shown: "title: message".
std::vector<std::string> g_boxes;

struct MessageCase {
    const char* name;
    const char* function;  // which fails
    const char* box;
};

// clang-format off
const MessageCase MESSAGE_CASES[] = {
    {"NoNib",       "CreateNibReference",       "Language Selector Error: Can't find Nib Reference"},
    {"NoWindow",    "CreateWindowFromNib",      "Language Selector Error: Can't create windows from Nib"},
    {"NoHandler",   "InstallEventHandler",      "Language Selector Error: Can't install window event handler"},
    {"NoModalLoop", "RunAppModalLoopForWindow", "Language Selector Error: Can't run modal loop for window"},
};
// clang-format on

class Messages : public testing::TestWithParam<MessageCase> {
protected:
    Messages()
    {
        ToolboxDouble::Reset();
        g_boxes.clear();
    }
};

TEST_P(Messages, HaveTheTitleAndTellWhatFailed)
{
    ToolboxDouble::FailCall(GetParam().function, paramErr);
    ExternParmBlock record = recordWith(1000, 0);
    LanguageSelector(&record);
    EXPECT_EQ(g_boxes, std::vector<std::string>{GetParam().box});
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Messages, testing::ValuesIn(MESSAGE_CASES), [](const auto& row) { return row.param.name; });

TEST(NoMessage, IsShownWhenNothingFails)
{
    ToolboxDouble::Reset();
    g_boxes.clear();
    ToolboxDouble::InModalLoop({ToolboxDouble::Command(kHICommandCancel)});
    ExternParmBlock record = recordWith(1000, 0);
    LanguageSelector(&record);
    EXPECT_EQ(g_boxes, std::vector<std::string>());
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
