// The external with each of its own allocations refused in turn. The platform's are not: what a platform without memory
// answers is among the statuses that its calls give.

#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/Velbase/common/allocations.h"
#include "tests/double/ToolboxDouble.h"

namespace {

using ToolboxDouble::Choose;
using ToolboxDouble::Command;
using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

struct Course {
    const char* name;
    SInt16 message;
    const char* failing;  // of the platform's functions; empty for none
    long result;
    UInt32 command;  // that the person gives
    const char* leftBehind;
};

void prepare(const Course& course)
{
    ToolboxDouble::Reset();
    ToolboxDouble::InModalLoop({Choose(3), Command(course.command)});
    ToolboxDouble::FailCall(course.failing, course.result);
}

// What a call of the main entry came to.
struct Outcome {
    bool threw = false;
    bool refused = false;
    bool changed = false;  // the record
    bool shown = false;    // a message box
    std::string leftBehind;
    long leaked = 0;  // blocks
};

// Calls the main entry with its allocation number `refused`, from 0, failing; none for a negative number.
Outcome callRefusing(int refused, const Course& course)
{
    ToolboxDouble::Reset();
    Outcome outcome;
    outcome.leftBehind.reserve(100);  // or it would be among the blocks that are counted
    const long before = allocations::live();
    prepare(course);
    ExternParmBlock record = recordWith(course.message, 11);
    const RecordBytes bytes = bytesOf(record);

    allocations::start(refused);
    try {
        XCodMain(&record);
    } catch (const std::bad_alloc&) {
        outcome.threw = true;
    }
    allocations::stop();

    outcome.refused = allocations::wasRefused();
    outcome.changed = bytesOf(record) != bytes;
    outcome.shown = Log().find("StandardAlert(") != std::string::npos;
    outcome.leftBehind += LeftBehind();
    ToolboxDouble::Reset();
    outcome.leaked = allocations::live() - before;
    return outcome;
}

class Allocation : public testing::TestWithParam<Course> {
protected:
    Allocation() { allocations::exempt(ToolboxDouble::IsAtWork); }
    ~Allocation() override { allocations::exempt(nullptr); }
};

// ---- In a message box

class MessageBoxAllocation : public Allocation { };

// clang-format off
const Course FAILING_COURSES[] = {
    {"NoNib",       1000, "CreateNibReference",       kIBCarbonRuntimeCantFindNibFile,     kHICommandOK, ""},
    {"NoWindow",    1000, "CreateWindowFromNib",      kIBCarbonRuntimeCantFindObject,      kHICommandOK, "nib1\n"},
    {"NoHandler",   1000, "InstallEventHandler",      eventHandlerAlreadyInstalledErr,     kHICommandOK, "window1 hidden\nupp1\n"},
    {"NoModalLoop", 1000, "RunAppModalLoopForWindow", windowAppModalStateAlreadyExistsErr, kHICommandOK, "window1 shown\nupp1\nhandler1\n"},
};
// clang-format on

TEST_P(MessageBoxAllocation, ThatFailsLeavesTheMainEntryAsBadAlloc)
{
    int refused = 0;
    for (Outcome outcome = callRefusing(0, GetParam()); outcome.refused;
         outcome = callRefusing(++refused, GetParam())) {
        SCOPED_TRACE("allocation " + std::to_string(refused));
        EXPECT_TRUE(outcome.threw);
        EXPECT_FALSE(outcome.shown);
        EXPECT_FALSE(outcome.changed);
        EXPECT_EQ(outcome.leaked, 0);
        EXPECT_EQ(outcome.leftBehind, GetParam().leftBehind) << "what the failure itself leaves, and no string";
    }
    EXPECT_GT(refused, 0) << "nothing was allocated, so nothing was tested";
    RecordProperty("allocations", refused);

    const Outcome whole = callRefusing(refused, GetParam());
    EXPECT_FALSE(whole.threw);
    EXPECT_TRUE(whole.shown);
    EXPECT_FALSE(whole.changed);
    EXPECT_EQ(whole.leaked, 0);
    EXPECT_EQ(whole.leftBehind, GetParam().leftBehind);
}

INSTANTIATE_TEST_SUITE_P(
    Courses, MessageBoxAllocation, testing::ValuesIn(FAILING_COURSES), [](const auto& row) { return row.param.name; });

// ---- Elsewhere

class NoAllocation : public Allocation { };

// clang-format off
const Course QUIET_COURSES[] = {
    {"Chosen",    1000, "",            0, kHICommandOK,     ""},
    {"Cancelled", 1000, "",            0, kHICommandCancel, ""},
    {"NotServed", 999,  "",            0, kHICommandOK,     ""},
    {"NoAlert",   999,  "StopAlert",  -1, kHICommandOK,     ""},
};
// clang-format on

TEST_P(NoAllocation, IsNeededWithoutAMessageBox)
{
    const Outcome outcome = callRefusing(0, GetParam());
    EXPECT_FALSE(outcome.refused);
    EXPECT_FALSE(outcome.threw);
    EXPECT_EQ(outcome.changed, GetParam().command == kHICommandOK);
    EXPECT_EQ(outcome.leaked, 0);
    EXPECT_EQ(outcome.leftBehind, GetParam().leftBehind);
}

INSTANTIATE_TEST_SUITE_P(
    Courses, NoAllocation, testing::ValuesIn(QUIET_COURSES), [](const auto& row) { return row.param.name; });

}  // namespace
