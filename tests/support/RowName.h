// What a row of a table of tests is called: its `name`. A failure prints it for the row, and RowName() as the last
// argument of INSTANTIATE_TEST_SUITE_P takes what is printed for the test's name.

#ifndef TESTS_SUPPORT_ROWNAME_H
#define TESTS_SUPPORT_ROWNAME_H

#include <gtest/gtest.h>

#include <ostream>

using RowName = testing::PrintToStringParamName;

template <typename Row> auto operator<<(std::ostream& out, const Row& row) -> decltype(out << row.name)
{
    return out << row.name;
}

// GoogleTest looks where a row's type is.
namespace {
using ::operator<<;
}

#endif
