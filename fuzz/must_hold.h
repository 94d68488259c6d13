// What a fuzzer says before it ends when something is not as it must be. libFuzzer then keeps the input.

#ifndef FUZZ_MUST_HOLD_H
#define FUZZ_MUST_HOLD_H

#include <cstdio>
#include <cstdlib>

/// Ends the process, with `sentence` on standard error, unless `condition` holds.
inline void mustHold(bool condition, const char* sentence)
{
    if (condition)
        return;
    std::fprintf(stderr, "This does not hold: %s\n", sentence);
    std::abort();
}

#endif
