// What the host says of what it cannot do.

#ifndef TESTS_HOST_PROBLEMOF_H
#define TESTS_HOST_PROBLEMOF_H

#include "host/Messages.h"

#include <gtest/gtest.h>

#include <string>

/// What the problem says that `action` meets, for which nothing is done; "none" if it meets none.
template <typename Action> std::string problemOf(Action action)
{
    try {
        action();
    } catch (const Host::Problem& problem) {
        EXPECT_EQ(problem.status, Host::ExitStatus::NotDone);
        return problem.what();
    }
    return "none";
}

#endif
