// The font of dialogs.

#ifndef TOOLBOX_SCREEN_DIALOGFONT_H
#define TOOLBOX_SCREEN_DIALOGFONT_H

#include <QFont>

namespace Toolbox {

/// The desktop's font for widgets, but no smaller than the 13 pixels for which the bounds in nibs and resources are
/// drawn.
QFont dialogFont();

/// The font of an alert's explanation, which is smaller than dialogFont().
QFont smallDialogFont();

}  // namespace Toolbox

#endif
