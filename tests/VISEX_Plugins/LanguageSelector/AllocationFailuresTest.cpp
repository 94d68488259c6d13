// The external with each of its own allocations refused in turn. The platform's are not: what a platform without memory
// answers is among the statuses that its calls give.

#include "tests/VISEX_Plugins/LanguageSelector/Failures.h"
#include "tests/double/ToolboxTest.h"
#include "tests/support/Allocations.h"

#include <new>
#include <string>

namespace {

// Calls the main entry, its platform failing once, with its allocation number `number`, from 0, refused, and expects
// std::bad_alloc from that and nothing to come of the call but its failure. Whether it came to that allocation.
bool isRefused(int number, const Failure& failure)
{
    ToolboxDouble::Reset();
    const long before = allocations::live();
    prepare(failure, failure.results.front());
    ExternParmBlock record = recordFor(failure.scenario);
    bool threw = false;

    allocations::start(number);
    try {
        XCodMain(&record);
    } catch (const std::bad_alloc&) {
        threw = true;
    }
    allocations::stop();

    EXPECT_EQ(threw, allocations::wasRefused());
    EXPECT_EQ(ToolboxDouble::Log().find("StandardAlert(") != std::string::npos, hasBox(failure) && !threw);
    EXPECT_EQ(record.chosenLanguage, failure.chosen);
    EXPECT_EQ(ToolboxDouble::LeftBehind(), failure.leftBehind) << "what the failure itself leaves, and no string";
    ToolboxDouble::Reset();
    EXPECT_EQ(allocations::live(), before) << "leaked";
    return threw;
}

TEST(MainEntryAllocation, IsForAMessageBoxAloneAndLeavesAsBadAllocIfItFails)
{
    allocations::exempt(ToolboxDouble::IsAtWork);
    for (const Failure& failure : failures()) {
        const bool isOfTheInstance = failure.leftBehind.find("block") != std::string::npos;
        if (failure.scenario == Scenario::WithoutNib || isOfTheInstance)
            continue;
        SCOPED_TRACE(failure.name);
        int refused = 0;
        while (isRefused(refused, failure))
            ++refused;
        EXPECT_EQ(refused > 0, hasBox(failure));
    }
    allocations::exempt(nullptr);
}

}  // namespace
