// How the toolbox shows its windows and alerts: on a screen, as questions on a terminal, or not at all, with answers
// from a list. The host chooses one before it calls anything that shows something; until then nobody is asked, and
// everything takes its default.

#ifndef TOOLBOX_DISPLAYS_H
#define TOOLBOX_DISPLAYS_H

#include <Carbon/MacTypes.h>

#include <string>
#include <vector>

namespace Toolbox {

/// One answer for the unattended display: a command for a window, the number from 1 of an item of its pop-up, to be
/// chosen and confirmed, or the number of an alert's button. The commands kHICommandOK and kHICommandCancel answer an
/// alert too.
struct Answer {
    enum class Kind { Command, Item, Button };
    Kind kind;
    UInt32 value;
};

/// Whether there is a terminal to ask on: the process has one, whatever its standard streams are, and is not in the
/// background, where it could not read from it.
bool TerminalAnswers();

/// Shows everything on the screen from now on: the platform that QT_QPA_PLATFORM names, else a Wayland or an X display.
/// False when there is none that is seen and answers, or no library for it, with the reason in `*problem`. A screen is
/// tried in a process of its own, so that nothing that is wrong with it ends this one. A display that lets it wait for
/// two seconds, or that refuses this user, does not answer.
bool UseScreenDisplay(std::string* problem);

/// The same where any display will do: why one that is named cannot be used is remarked upon in the report.
bool UseScreenDisplayIfAny();

/// Asks on the terminal from now on. Return confirms a window as it stands; a number or a name chooses; "cancel", the
/// end of input and a terminal that closes cancel it. Alerts are answered in the same way.
void UseTerminalDisplay();

/// Takes `answers`, in order, from now on, and shows nothing.
///
/// In a window a command presses the first control, of those that can be used, that carries it; for OK and Cancel,
/// where none does, the default or cancel button. An item is chosen in the first pop-up that can be used; then, if that
/// has not ended the window, comes the command OK. Then the next answer is taken, until one ends the window. When the
/// list has run out, the window is confirmed as it stands. An answer that fits nothing there cancels it. A loop that
/// neither of these ends fails.
///
/// In an alert a button's number presses that button, OK the first and Cancel the cancel button; where that is not
/// there or disabled, the default button is pressed. So it is, too, when the list has run out, and when the next answer
/// can only be meant for a window, which then stays in the list.
void UseUnattendedDisplay(const std::vector<Answer>& answers);

/// Has the report give a picture of the next window or alert that is run, as it looks at first, whichever display runs
/// it. Until then the report's problem is that nothing was shown.
void WantPicture();

}  // namespace Toolbox

#endif
