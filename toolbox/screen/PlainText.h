// Texts of nibs, resources and callers as Qt's widgets are to get them: as plain text, whatever is in them.

#ifndef TOOLBOX_SCREEN_PLAINTEXT_H
#define TOOLBOX_SCREEN_PLAINTEXT_H

#include <QString>

namespace Toolbox {

/// `text` with its lines ended by line feeds and without other control characters, for a widget that shows what it
/// gets.
QString plainText(const QString& text);

/// The same for a button, a group box or the label of a control, which would take an ampersand for the mark of a
/// shortcut.
QString plainTitle(const QString& text);

/// The same on one line for a window, which would take "[*]" for the place of the mark of a change.
QString plainWindowTitle(const QString& text);

}  // namespace Toolbox

#endif
