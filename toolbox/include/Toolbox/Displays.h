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

/// One answer for the unattended display: a command for a window, the number from 1 of an item of its pop-up, or the
/// number of an alert's button. The commands kHICommandOK and kHICommandCancel answer an alert too.
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
    std::vector<std::string> buttons;  // their titles: button 1's first, an empty one for a number without a button
    SInt16 pressed;                    // the number of the button, from 1; for an alert from resources, of the item
};

/// Whether there is a screen that answers: the platform that QT_QPA_PLATFORM names, else a Wayland or an X display.
/// It is tried in a process of its own, so that nothing that is wrong with it ends this one, and for two seconds at
/// most. A display that hangs, or that refuses this user, does not answer.
bool ScreenAnswers();

/// Whether there is a terminal to ask on: the process has one, whatever its standard streams are, and is not in the
/// background, where it could not read from it.
bool TerminalAnswers();

/// Shows windows on the screen from now on. False when there is no screen, or no library for it, with the reason in
/// `*problem`.
bool UseWindowDisplay(std::string* problem);

/// Asks on the terminal from now on. Return confirms a window as it stands; a number or a name chooses; "cancel", the
/// end of input and a terminal that closes cancel it. Alerts are answered in the same way.
void UseTerminalDisplay();

/// Takes `answers`, in order, from now on, and shows nothing.
///
/// In a window a command presses the first control, of those that can be used, that carries it; for OK and Cancel,
/// where none does, the default or cancel button. An item is chosen in the first pop-up that can be used. Then the next
/// answer is taken, until one ends the window. When the list has run out, the window is confirmed as it stands. An
/// answer that fits nothing there cancels it. A loop that neither of these ends fails.
///
/// In an alert a button's number presses that button, OK the first and Cancel the cancel button; where that is not
/// there or disabled, the default button is pressed. So it is, too, when the list has run out, and when the next answer
/// can only be meant for a window, which then stays in the list.
void UseUnattendedDisplay(const std::vector<Answer>& answers);

/// Saves the next window or alert that is run as a picture (PNG) in `file`, as it looks at first, whichever display
/// runs it. The file is written whole or not at all.
void SavePicture(const std::string& file);

/// What went wrong with SavePicture, in one clause, also when nothing was run yet; empty when the picture was saved
/// or none was asked for.
std::string PictureProblem();

/// Whether an answer of the list that was given last fitted nothing of what was shown; the window was then cancelled,
/// or the alert took its default button.
bool AnswerWasUnfit();

/// How many answers of the list were not taken so far.
std::size_t UnusedAnswers();

/// Whether the list had run out when a window or an alert wanted an answer, so that its default button was pressed.
bool AnswersRanOut();

/// Why a modal loop failed, in a few words: the last one that did since the display was chosen. Empty when none did.
std::string DisplayProblem();

/// The alerts that were shown so far, in order.
std::vector<ShownAlert> ShownAlerts();

}  // namespace Toolbox

#endif
