// What windows and alerts have in common as dialogs: a content of a fixed size.

#ifndef TOOLBOX_SCREEN_DIALOGCONTENT_H
#define TOOLBOX_SCREEN_DIALOGCONTENT_H

#include <QDialog>
#include <QSize>

namespace Toolbox {

/// The largest size that a dialog on `widget`'s screen can have.
QSize largestSize(const QWidget& widget);

/// Makes `content` all that `dialog` shows, at `size`. A content that is larger than the screen can be scrolled.
void setContent(QDialog& dialog, QWidget* content, const QSize& size);

}  // namespace Toolbox

#endif
