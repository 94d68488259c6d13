// Message boxes: modal note alerts with one button or two.
//
// All return when the person has pressed a button. None of them reports an error: an alert that cannot be shown counts
// as one in which the first button was not pressed.
//
// Texts given as String are Mac OS Roman, of which the first 254 characters are shown; a text that the platform does
// not hand out as a Pascal string is left blank. `parent`, `title` and the last argument have no effect.
//
// The external shows only the first of them. The others are the rest of one interface for all plug-ins, and stay.

#ifndef UI_MESSAGEBOX_H
#define UI_MESSAGEBOX_H

#include "Velbase/common/common_string.h"

#include <vector>

struct OpaqueWindowPtr;

namespace UI {

/// The button that the caller would have answer the Return key. It has no effect: the first one always does.
enum YesNoFocus : int { YesFocus, NoFocus };
enum OKCancelFocus : int { OKFocus, CancelFocus };

/// Shows `message` with an OK button.
void MessageOK(OpaqueWindowPtr* parent, const String& title, const String& message, bool);

/// Shows `message`, UTF-16, with one button titled `buttonText`. Both are shown whole.
void MessageOK(OpaqueWindowPtr* parent, const std::vector<unsigned short>& title,
    const std::vector<unsigned short>& message, const std::vector<unsigned short>& buttonText, bool);

/// Shows `message` with the buttons Yes and No. True when Yes was pressed.
bool MessageYesNo(OpaqueWindowPtr* parent, const String& title, const String& message, YesNoFocus focus, bool);

/// Shows `message` with the buttons OK and Cancel, titled by the system. True when OK was pressed.
bool MessageOKCancel(OpaqueWindowPtr* parent, const String& title, const String& message, OKCancelFocus focus, bool);

}  // namespace UI

#endif
