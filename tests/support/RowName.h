// What a row of a table of tests is called: RowName() as the last argument of INSTANTIATE_TEST_SUITE_P takes its
// `name`.

#ifndef TESTS_SUPPORT_ROWNAME_H
#define TESTS_SUPPORT_ROWNAME_H

#include <string>

struct RowName {
    template <typename Info> std::string operator()(const Info& row) const { return row.param.name; }
};

#endif
