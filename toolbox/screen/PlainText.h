// Texts of nibs, resources and callers in Qt's widgets: as plain text, whatever is in them.

#ifndef TOOLBOX_SCREEN_PLAINTEXT_H
#define TOOLBOX_SCREEN_PLAINTEXT_H

#include <QLabel>
#include <QPushButton>
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

/// A button that shows `title`, no wider than that needs: Qt's own is a wide one even for "OK".
QPushButton* makePushButton(const QString& title, QWidget* parent);

/// A label that shows `text`.
QLabel* makeLabel(const QString& text, Qt::Alignment alignment, QWidget* parent);

/// Makes `label` `width` pixels wide at least, and its lines break to fit, in the middle of a word that is longer.
void breakLines(QLabel& label, int width);

}  // namespace Toolbox

#endif
