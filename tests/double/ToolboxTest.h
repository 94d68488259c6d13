// The fixture of every test with the test double: it begins with a platform that has just come up.

#ifndef TESTS_DOUBLE_TOOLBOXTEST_H
#define TESTS_DOUBLE_TOOLBOXTEST_H

#include "tests/double/ToolboxDouble.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <string>

class ToolboxTest : public testing::Test {
protected:
    ToolboxTest() { ToolboxDouble::Reset(); }

    /// Whether `text` is in the log.
    static bool logged(const std::string& text) { return ToolboxDouble::Log().find(text) != std::string::npos; }
};

/// The same for the rows of a table.
template <typename Row> class ToolboxTestWith : public ToolboxTest, public testing::WithParamInterface<Row> {
};

#endif
