// What a person may give as an answer on the command line, turned into what the toolbox's unattended display takes.

#ifndef HOST_ANSWERS_H
#define HOST_ANSWERS_H

#include <Toolbox/Displays.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Host {

/// One answer: as it was typed, and the steps that it comes to.
struct GivenAnswer {
    std::string text;
    std::vector<Toolbox::Answer> steps;
};

/// Understands "ok", "cancel", "button:N" and the name or code of a language, which means choosing it and then OK.
/// Throws Problem for anything else.
GivenAnswer parseAnswer(const std::string& text);

/// The steps of all `answers`, one after the other.
std::vector<Toolbox::Answer> stepsOf(const std::vector<GivenAnswer>& answers);

/// The answer that was taken last when the last `unusedSteps` of stepsOf were not, as it was typed; empty for none.
std::string lastUsedAnswer(const std::vector<GivenAnswer>& answers, std::size_t unusedSteps);

/// The answers of which nothing was taken when the last `unusedSteps` of stepsOf were not, as they were typed.
std::vector<std::string> unusedAnswers(const std::vector<GivenAnswer>& answers, std::size_t unusedSteps);

}  // namespace Host

#endif
