#include "host/Answers.h"
#include "host/Problem.h"

#include <Carbon/CarbonEvents.h>

#include <gtest/gtest.h>

namespace {

using namespace Host;
using Kind = Toolbox::Answer::Kind;

void expectStep(const Toolbox::Answer& step, Kind kind, UInt32 value)
{
    EXPECT_EQ(step.kind, kind);
    EXPECT_EQ(step.value, value);
}

TEST(ParseAnswer, UnderstandsTheCommands)
{
    ASSERT_EQ(parseAnswer("ok").steps.size(), 1u);
    expectStep(parseAnswer("ok").steps[0], Kind::Command, kHICommandOK);
    ASSERT_EQ(parseAnswer("cancel").steps.size(), 1u);
    expectStep(parseAnswer("cancel").steps[0], Kind::Command, kHICommandCancel);
}

TEST(ParseAnswer, TakesALanguageAsItsItemAndOK)
{
    for (const char* const japanese : {"Japanese", "japanese", "11"}) {
        const GivenAnswer answer = parseAnswer(japanese);
        EXPECT_EQ(answer.text, japanese);
        ASSERT_EQ(answer.steps.size(), 2u);
        expectStep(answer.steps[0], Kind::Item, 2);
        expectStep(answer.steps[1], Kind::Command, kHICommandOK);
    }
}

TEST(ParseAnswer, UnderstandsButtonsByNumber)
{
    ASSERT_EQ(parseAnswer("button:2").steps.size(), 1u);
    expectStep(parseAnswer("button:2").steps[0], Kind::Button, 2);
    expectStep(parseAnswer("button:32767").steps[0], Kind::Button, 32767);
}

TEST(ParseAnswer, RefusesAnythingElseWithAWordOnIt)
{
    for (const char* const text : {"", "OK", "Cancel", "maybe", "4", "-1", "button", "button:", "button:0", "button:-1",
             "button:32768", "button:one", "button:1 ", "ok "}) {
        try {
            parseAnswer(text);
            ADD_FAILURE() << "'" << text << "' was taken";
        } catch (const Problem& problem) {
            EXPECT_EQ(problem.status, ExitStatus::NotDone);
            EXPECT_NE(std::string(problem.what()).find("'" + std::string(text) + "'"), std::string::npos);
        }
    }
}

const std::vector<GivenAnswer> THREE_ANSWERS{parseAnswer("button:1"), parseAnswer("german"), parseAnswer("cancel")};

TEST(StepsOf, KeepsTheOrder)
{
    const std::vector<Toolbox::Answer> steps = stepsOf(THREE_ANSWERS);
    ASSERT_EQ(steps.size(), 4u);
    expectStep(steps[0], Kind::Button, 1);
    expectStep(steps[1], Kind::Item, 3);
    expectStep(steps[2], Kind::Command, kHICommandOK);
    expectStep(steps[3], Kind::Command, kHICommandCancel);
}

TEST(LastUsedAnswer, IsTheOneOfWhichAStepWasTaken)
{
    EXPECT_EQ(lastUsedAnswer(THREE_ANSWERS, 0), "cancel");
    EXPECT_EQ(lastUsedAnswer(THREE_ANSWERS, 1), "german");
    EXPECT_EQ(lastUsedAnswer(THREE_ANSWERS, 2), "german") << "the language was chosen, but OK not pressed";
    EXPECT_EQ(lastUsedAnswer(THREE_ANSWERS, 3), "button:1");
    EXPECT_EQ(lastUsedAnswer(THREE_ANSWERS, 4), "");
    EXPECT_EQ(lastUsedAnswer({}, 0), "");
}

TEST(UnusedAnswers, AreThoseOfWhichNoStepWasTaken)
{
    using Texts = std::vector<std::string>;
    EXPECT_EQ(unusedAnswers(THREE_ANSWERS, 0), Texts());
    EXPECT_EQ(unusedAnswers(THREE_ANSWERS, 1), (Texts{"cancel"}));
    EXPECT_EQ(unusedAnswers(THREE_ANSWERS, 2), (Texts{"cancel"})) << "the language was chosen, but OK not pressed";
    EXPECT_EQ(unusedAnswers(THREE_ANSWERS, 3), (Texts{"german", "cancel"}));
    EXPECT_EQ(unusedAnswers(THREE_ANSWERS, 4), (Texts{"button:1", "german", "cancel"}));
    EXPECT_EQ(unusedAnswers({}, 0), Texts());
}

}  // namespace
