// What happened in the toolbox while an external ran, for whoever called it: what was shown, how the answers of a list
// fitted, and what went wrong where the Mac tells the external at most a status.

#ifndef TOOLBOX_CALLREPORT_H
#define TOOLBOX_CALLREPORT_H

#include <Carbon/MacTypes.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Toolbox {

/// What one alert showed, and what ended it. Texts are UTF-8.
struct ShownAlert {
    std::string kind;          // "stop", "note", "caution" or "plain"
    std::optional<SInt16> id;  // of an alert that was drawn from resources
    std::string text;
    std::string explanation;
    std::vector<std::string> buttons;  // their titles: button 1's first, an empty one for a number without a button
    SInt16 pressed;                    // the number of the button, from 1; for an alert from resources, of the item
};

/// What happened, in the order in which it did. Texts are UTF-8.
struct CallReport {
    std::vector<ShownAlert> alerts;
    bool windowShown = false;          // one was run, on whichever display
    std::vector<std::string> remarks;  // why an alert was not shown, a right not granted...: a clause each, each once
    std::string displayProblem;        // why a modal loop failed, in a few words: the last one that did
    std::vector<UInt8> picture;        // the one that was asked for (PNG)
    std::string pictureProblem;        // why there is none; empty when none was asked for
    std::size_t answersTaken = 0;      // how many of the unattended display's list
    bool answersRanOut = false;        // none was left where one was wanted, so a default button was pressed
    bool answerWasUnfit = false;       // one fitted nothing that was shown: a window was cancelled for that, or an
                                       // alert took its default button
};

/// What happened since the last report was taken.
CallReport TakeReport();

}  // namespace Toolbox

#endif
