// The message boxes with each of their own allocations refused in turn.

#include "UI/MessageBox.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/Velbase/common/allocations.h"
#include "tests/double/ToolboxDouble.h"

namespace {

struct BoxCase {
    const char* name;
    void (*show)(const String& message);
};

const BoxCase BOX_CASES[] = {
    {"OK", [](const String& message) { UI::MessageOK(nullptr, message, message, false); }},
    {"YesNo", [](const String& message) { UI::MessageYesNo(nullptr, message, message, UI::YesFocus, false); }},
    {"OKCancel", [](const String& message) { UI::MessageOKCancel(nullptr, message, message, UI::OKFocus, false); }},
};

class MessageBoxAllocation : public testing::TestWithParam<BoxCase> {
protected:
    MessageBoxAllocation() { allocations::exempt(ToolboxDouble::IsAtWork); }
    ~MessageBoxAllocation() override { allocations::exempt(nullptr); }
};

// Only a message that has to be cut takes memory: the caller's text is shared, not copied.
TEST_P(MessageBoxAllocation, ThatFailsLeavesNothingBehindAndTheMessageWhole)
{
    const String message(std::string(300, 'x').c_str());
    int refused = 0;
    const auto show = [&message] { GetParam().show(message); };
    for (ToolboxDouble::Reset(); allocations::refusing(refused, show); ++refused) {
        EXPECT_EQ(ToolboxDouble::Log(), "") << "allocation " << refused;
        EXPECT_EQ(message.Length(), 300u) << "allocation " << refused;
    }
    EXPECT_GT(refused, 0) << "nothing was allocated, so nothing was tested";
    EXPECT_NE(ToolboxDouble::Log().find("StandardAlert("), std::string::npos);
    EXPECT_EQ(ToolboxDouble::LeftBehind(), "");
}

TEST_P(MessageBoxAllocation, IsNotNeededForAShortMessage)
{
    ToolboxDouble::Reset();
    const String message(std::string(254, 'x').c_str());
    EXPECT_EQ(allocations::countIn([&message] { GetParam().show(message); }), 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, MessageBoxAllocation, testing::ValuesIn(BOX_CASES), [](const auto& row) { return row.param.name; });

}  // namespace
