#include "toolbox/base/Remark.h"

#include <Toolbox/Remarks.h>

#include <gtest/gtest.h>

namespace {

using Toolbox::remark;
using Toolbox::Remarks;

TEST(Remarks, AreKeptInTheirOrderEachOnce)
{
    const std::size_t before = Remarks().size();
    remark("the first thing");
    remark("the second thing");
    remark("the first thing");
    const std::vector<std::string> added(Remarks().begin() + static_cast<std::ptrdiff_t>(before), Remarks().end());
    EXPECT_EQ(added, (std::vector<std::string>{"the first thing", "the second thing"}));
}

}  // namespace
