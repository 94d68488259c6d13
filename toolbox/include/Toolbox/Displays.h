// How the toolbox shows its windows and alerts: in windows on a screen, as questions on a terminal, or not at all, with
// answers from a list. The host chooses one before it calls anything that shows something.

#ifndef TOOLBOX_DISPLAYS_H
#define TOOLBOX_DISPLAYS_H

#include <Carbon/MacTypes.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Toolbox {

/// One answer for the unattended display: a command for a window, an item number for its pop-up, or the number of an
/// alert's button.
struct Answer {
    enum class Kind { Command, Item, Button };
    Kind kind;
    UInt32 value;
};

/// What one alert showed, and what ended it. Texts are UTF-8.
struct ShownAlert {
    std::string kind;          // "stop", "note", "caution" or "plain"
    std::optional<SInt16> id;  // of an alert that was drawn from resources
    std::string text;
    std::string explanation;
    std::vector<std::string> buttons;  // their titles, by number
    SInt16 pressed;                    // the number of the button, from 1; for an alert from resources, of the item
};

/// Whether there is a screen that answers. Never waits for long, never ends the process.
bool ScreenAnswers();

/// Whether there is a terminal to ask on: the process has one, whatever its standard streams are.
bool TerminalAnswers();

/// Shows windows on the screen from now on. False when there is no screen, or no library for it, with the reason in
/// `*problem`.
bool UseWindowDisplay(std::string* problem);

/// Asks on the terminal from now on.
void UseTerminalDisplay();

/// Takes `answers`, in order, from now on, and shows nothing. When the list has run out, a window is confirmed as it
/// stands and an alert takes its default button.
void UseUnattendedDisplay(const std::vector<Answer>& answers);

/// Saves the next window that is run as a picture (PNG) in `file`, whichever display runs it.
void SavePicture(const std::string& file);

/// What went wrong with SavePicture; empty when it was saved, or when no window was run yet.
std::string PictureProblem();

/// Whether an answer of the list fitted nothing of what was shown; the window was then cancelled.
bool AnswerWasUnfit();

/// How many answers of the list were not taken so far.
std::size_t UnusedAnswers();

/// Why a modal loop failed, in a few words; empty when none did.
std::string DisplayProblem();

/// The alerts that were shown so far, in order.
std::vector<ShownAlert> ShownAlerts();

}  // namespace Toolbox

#endif
