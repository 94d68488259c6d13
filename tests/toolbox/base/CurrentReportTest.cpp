#include "toolbox/base/CurrentReport.h"

#include <gtest/gtest.h>

namespace {

using Toolbox::remark;
using Toolbox::TakeReport;

TEST(CurrentReport, KeepsRemarksInTheirOrderEachOnce)
{
    TakeReport();
    remark("the first thing");
    remark("the second thing");
    remark("the first thing");
    EXPECT_EQ(TakeReport().remarks, (std::vector<std::string>{"the first thing", "the second thing"}));
}

TEST(CurrentReport, BeginsAnewWhenItWasTaken)
{
    Toolbox::CallReport& current = Toolbox::currentReport();
    current = {
        {{"note", std::nullopt, "Text", "", {"OK"}, 1}}, true, {"remark"}, "display", {1}, "picture", 1, true, true};
    const Toolbox::CallReport taken = TakeReport();
    EXPECT_EQ(taken.alerts.size(), 1u);
    EXPECT_TRUE(taken.windowShown && taken.answersRanOut && taken.answerWasUnfit);

    const Toolbox::CallReport next = TakeReport();
    EXPECT_TRUE(next.alerts.empty() && next.remarks.empty() && next.picture.empty());
    EXPECT_EQ(next.displayProblem + next.pictureProblem, "");
    EXPECT_EQ(next.answersTaken, 0u);
    EXPECT_FALSE(next.windowShown || next.answersRanOut || next.answerWasUnfit);
}

}  // namespace
