// Counts what operator new hands out, and refuses it where a test wants that. A program that links Allocations.cpp has
// its global operator new and delete from there.

#ifndef TESTS_SUPPORT_ALLOCATIONS_H
#define TESTS_SUPPORT_ALLOCATIONS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <vector>

namespace allocations {

/// The blocks handed out and not yet given back since the program began.
long live();

/// Allocations that are made while `condition` holds are neither recorded nor refused: those of a test double, say.
void exempt(bool (*condition)());

/// From now on the sizes of what is handed out are recorded, and the allocation number `refused`, counted from 0,
/// fails, with all after it or alone. A negative number refuses none.
enum Refused { ONE, ONE_AND_ALL_AFTER };
void start(int refused, Refused refuse = ONE);

/// Ends that. The sizes in order; what was refused is not among them.
std::vector<std::size_t> stop();

/// Whether the allocation to be refused since the last start() was asked for.
bool wasRefused();

/// The sizes that `action` allocates.
template <typename Action> std::vector<std::size_t> sizesIn(Action action)
{
    start(-1);
    action();
    return stop();
}

/// How often `action` allocates.
template <typename Action> std::size_t countIn(Action action)
{
    return sizesIn(action).size();
}

/// Runs `action` with its allocation number `refused` failing, and expects std::bad_alloc and no leak from it.
/// False if it ended before it came to that allocation: then it has succeeded.
template <typename Action> bool refusing(int refused, Action action)
{
    const long before = live();
    bool thrown = false;
    start(refused);
    try {
        action();
    } catch (const std::bad_alloc&) {
        thrown = true;
    }
    stop();
    EXPECT_EQ(thrown, wasRefused()) << "allocation " << refused;
    if (thrown) {
        EXPECT_EQ(live(), before) << "leaked after allocation " << refused << " failed";
    }
    return thrown;
}

/// Does `action` once for each of its allocations, which is refused with those after it, and at last with none refused.
/// After each of them `check` is told whether one was.
template <typename Action, typename Check> void refusingEach(Action action, Check check)
{
    bool refused = true;
    for (int number = 0; refused; ++number) {
        start(number, ONE_AND_ALL_AFTER);
        action();
        stop();
        refused = wasRefused();
        check(refused);
        EXPECT_TRUE(refused || number > 0) << "nothing was allocated, so nothing was tested";
    }
}

}  // namespace allocations

#endif
