// Makes `operator new` fail, one allocation after the other.

#ifndef TESTS_TOOLBOX_BASE_REFUSINGALLOCATIONS_H
#define TESTS_TOOLBOX_BASE_REFUSINGALLOCATIONS_H

#include <gtest/gtest.h>

/// While this lives, allocation number `number` (from 0) and all that follow it are refused.
class RefusingAllocations {
public:
    explicit RefusingAllocations(int number);
    ~RefusingAllocations();
    RefusingAllocations(const RefusingAllocations&) = delete;
    RefusingAllocations& operator=(const RefusingAllocations&) = delete;

    /// Whether an allocation was refused yet.
    bool refusedOne() const;
};

/// Does `attempt` once for each of its allocations, which is refused with those after it, and at last with none
/// refused. After each of them `check` is told whether one was.
template <typename Attempt, typename Check> void refuseEachAllocation(Attempt attempt, Check check)
{
    bool refused = true;
    for (int number = 0; refused; ++number) {
        {
            const RefusingAllocations refusing(number);
            attempt();
            refused = refusing.refusedOne();
        }
        check(refused);
        EXPECT_TRUE(refused || number > 0) << "nothing was allocated, so nothing was tested";
    }
}

#endif
