#include "host/CallProblems.h"

#include "host/WrittenFiles.h"
#include "host/Messages.h"

#include <Toolbox/Displays.h>
#include <Toolbox/Remarks.h>

#include <string>

namespace Host {

namespace {

void tellOfAnswers(const Options& options)
{
    const bool wantedNone = !options.display && options.answers.empty();
    if (wantedNone && Toolbox::AnswersRanOut())
        complain("no screen here and no terminal to ask on: nobody was asked, and the default button was pressed");
    if (Toolbox::AnswerWasUnfit())
        complain("the answer '" + lastUsedAnswer(options.answers, Toolbox::UnusedAnswers())
            + "' fits nothing that was shown");
    for (const std::string& answer : unusedAnswers(options.answers, Toolbox::UnusedAnswers()))
        complain("the answer '" + answer + "' was not needed");
}

}  // namespace

bool tellCallProblems(const Options& options)
{
    for (const std::string& remark : Toolbox::Remarks())
        complain(remark);
    if (const std::string problem = Toolbox::DisplayProblem(); !problem.empty())
        complain("the dialog could not go on: " + problem);
    tellOfAnswers(options);

    const std::string picture = options.picture ? Toolbox::PictureProblem() : std::string();
    if (!picture.empty())
        complain(notWritten("picture", *options.picture, picture));
    return picture.empty();
}

}  // namespace Host
