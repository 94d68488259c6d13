// The icons of alerts.

#ifndef TOOLBOX_SCREEN_ALERTICON_H
#define TOOLBOX_SCREEN_ALERTICON_H

#include <Carbon/Dialogs.h>

#include <QPixmap>
#include <QWidget>

namespace Toolbox {

/// The icon of `type`, with `size` pixels on each side as `widget` counts them, and as fine as its screen is: the
/// platform's, else one of our own, since what Qt brings along has one size only. Null for a type without an icon.
QPixmap alertIcon(AlertType type, int size, const QWidget& widget);

}  // namespace Toolbox

#endif
