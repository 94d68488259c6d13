// The external with each of its own allocations refused in turn. The platform's are not: what a platform without memory
// answers is among the statuses that its calls give.

#include "tests/VISEX_Plugins/LanguageSelector/Failures.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxTest.h"
#include "tests/support/Allocations.h"

#include <new>
#include <string>

namespace {

// What a call of the main entry came to.
struct Outcome {
    bool threw = false;
    bool refused = false;
    bool changed = false;  // the chosen language
    bool shown = false;    // a message box
    std::string leftBehind;
    long leaked = 0;  // blocks
};

// Calls the main entry, its platform failing once, with its allocation number `refused`, from 0, refused.
Outcome callRefusing(int refused, const Failure& failure)
{
    ToolboxDouble::Reset();
    Outcome outcome;
    outcome.leftBehind.reserve(200);  // or it would be among the blocks that are counted
    const long before = allocations::live();
    prepare(failure, failure.results.front());
    ExternParmBlock record = recordFor(failure.scenario);

    allocations::start(refused);
    try {
        XCodMain(&record);
    } catch (const std::bad_alloc&) {
        outcome.threw = true;
    }
    allocations::stop();

    outcome.refused = allocations::wasRefused();
    outcome.changed = record.chosenLanguage != UNTOUCHED;
    outcome.shown = ToolboxDouble::Log().find("StandardAlert(") != std::string::npos;
    outcome.leftBehind += ToolboxDouble::LeftBehind();
    ToolboxDouble::Reset();
    outcome.leaked = allocations::live() - before;
    return outcome;
}

class MessageBoxAllocation : public ToolboxTestWith<Failure> {
protected:
    MessageBoxAllocation() { allocations::exempt(ToolboxDouble::IsAtWork); }
    ~MessageBoxAllocation() override { allocations::exempt(nullptr); }

    static void expectTheFailureAlone(const Outcome& outcome)
    {
        EXPECT_FALSE(outcome.changed);
        EXPECT_EQ(outcome.leaked, 0);
        EXPECT_EQ(outcome.leftBehind, GetParam().leftBehind) << "what the failure itself leaves, and no string";
    }
};

TEST_P(MessageBoxAllocation, ThatFailsLeavesTheMainEntryAsBadAlloc)
{
    int refused = 0;
    Outcome outcome;
    for (outcome = callRefusing(0, GetParam()); outcome.refused; outcome = callRefusing(++refused, GetParam())) {
        SCOPED_TRACE("allocation " + std::to_string(refused));
        EXPECT_TRUE(outcome.threw);
        EXPECT_FALSE(outcome.shown);
        expectTheFailureAlone(outcome);
    }
    EXPECT_GT(refused, 0) << "nothing was allocated, so nothing was tested";
    EXPECT_FALSE(outcome.threw);
    EXPECT_TRUE(outcome.shown);
    expectTheFailureAlone(outcome);
}

INSTANTIATE_TEST_SUITE_P(Cases, MessageBoxAllocation, testing::ValuesIn(failuresWithABox()), RowName());

// What shows no box of the external's needs no memory of it, whatever else fails.
TEST(NoAllocation, IsNeededWithoutAMessageBox)
{
    allocations::exempt(ToolboxDouble::IsAtWork);
    int tried = 0;
    for (const Failure& failure : failures()) {
        const bool isOfTheInstance = failure.leftBehind.find("block") != std::string::npos;
        if (failure.scenario == Scenario::WithoutNib || isOfTheInstance || failure.seen != std::string("nothing"))
            continue;
        const Outcome outcome = callRefusing(0, failure);
        EXPECT_FALSE(outcome.refused) << failure.name;
        EXPECT_EQ(outcome.changed, failure.chosen != UNTOUCHED) << failure.name;
        EXPECT_EQ(outcome.leaked, 0) << failure.name;
        EXPECT_EQ(outcome.leftBehind, failure.leftBehind) << failure.name;
        ++tried;
    }
    EXPECT_GT(tried, 10);
    allocations::exempt(nullptr);
}

}  // namespace
