// What windows and alerts have in common as dialogs on the screen: their font, their size, and how they end.

#ifndef TOOLBOX_SCREEN_SCREENDIALOG_H
#define TOOLBOX_SCREEN_SCREENDIALOG_H

#include <QAbstractNativeEventFilter>
#include <QDialog>
#include <QFont>
#include <QScrollArea>

namespace Toolbox {

/// How many pixels high the letters are for which nibs and resources are drawn.
constexpr int DRAWN_FONT = 13;

/// The border of what can be scrolled, which shows whether it has the focus.
constexpr int SCROLLED_BORDER = 2;

/// More than every screen has in either direction. Nothing is made larger, whatever its bounds or its title ask for:
/// Qt's styles draw whole controls in memory, however little of them is seen.
constexpr int MOST_PIXELS = 8192;

/// `length`, drawn for that font, as the font of `widget` needs it.
int scaled(int length, const QWidget& widget);

/// A dialog in the desktop's font, but no smaller than DRAWN_FONT, which shows from the first moment where the focus
/// is. Escape and the close box do the same: reject(). So does another client of an X display that destroys the window,
/// of which Qt takes no notice; it then ends in any case, since nobody could end it any more.
class ScreenDialog : public QDialog, private QAbstractNativeEventFilter {
protected:
    ScreenDialog(const QString& title, Qt::WindowFlags flags, QWidget* parent);

    /// Makes `content`, which has a layout, all that the dialog shows. What is larger than the screen can be scrolled.
    void setContent(QWidget* content);

    /// The largest size that it can have on its screen.
    QSize largestSize() const;

    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* result) override;
    void frameTheFocus();
    void makeBordersVisible();
};

/// An area inside `parent` in which `content`, whose size is fixed, can be scrolled as far as it is larger than `most`.
QScrollArea* makeScrollArea(QWidget* content, const QSize& most, QWidget* parent);

}  // namespace Toolbox

#endif
