// Windows and alerts on a screen that nobody sees.

#ifndef TESTS_TOOLBOX_SCREEN_ONSCREEN_H
#define TESTS_TOOLBOX_SCREEN_ONSCREEN_H

#include "tests/toolbox/core/displays/Dialog.h"
#include "tests/toolbox/screen/Person.h"
#include "toolbox/core/displays/ScreenLibrary.h"

#include <QLabel>
#include <QPushButton>

#include <stdexcept>

/// Chooses the display of windows, on Qt's platform without a screen. It is not tried first, as UseScreenDisplay() does
/// in a child process: Qt has threads after the first window, and a child that is forked while one of them allocates
/// can wait for ever for the sanitizers' heap.
inline void useUnseenScreen()
{
    QString problem;
    const Toolbox::ScreenLibrary* const library = Toolbox::screenLibrary(&problem);
    if (library == nullptr)
        throw std::runtime_error(problem.toStdString());
    Toolbox::setCurrentDisplay(library->makeDisplay("offscreen"));
}

/// Chooses it before each test.
class OnScreen : public WindowTest {
protected:
    OnScreen() { useUnseenScreen(); }
};

/// Runs `dialog` with somebody who does `acts` in it.
inline std::string runWith(Dialog& dialog, const std::vector<Person::Act>& acts)
{
    const Person person(acts);
    return dialog.run();
}

/// The same with a dialog of its own.
inline std::string runWith(const std::vector<Person::Act>& acts)
{
    Dialog dialog;
    return runWith(dialog, acts);
}

/// The same of an alert; gives the number of the button that was pressed.
inline SInt16 runWith(const Toolbox::Alert& alert, const std::vector<Person::Act>& acts)
{
    const Person person(acts);
    return Toolbox::runAlert(alert);
}

/// Looks at `dialog`, and cancels it.
inline void lookAt(Dialog& dialog, const Person::Act& look)
{
    EXPECT_EQ(runWith(dialog, {look, press(Qt::Key_Escape)}), "ended: cancel");
}

/// The same with a dialog of its own.
inline void lookAt(const Person::Act& look)
{
    Dialog dialog;
    lookAt(dialog, look);
}

/// Looks at `alert`, and presses its default button.
inline void lookAt(const Toolbox::Alert& alert, const Person::Act& look)
{
    EXPECT_EQ(runWith(alert, {look, press(Qt::Key_Return)}), alert.defaultButton);
}

/// Where `widget` lies in its dialog.
inline QRect placeOf(const QWidget& widget)
{
    return QRect(widget.mapTo(widget.window(), QPoint(0, 0)), widget.size());
}

/// Where the button is that shows `title`.
inline QRect buttonPlace(const QDialog& shown, const char* title)
{
    return placeOf(titled<QPushButton>(shown, title));
}

/// An alert as resources draw it: a text beside the icon, and buttons below.
inline Toolbox::Alert fromResources()
{
    Toolbox::Alert alert;
    alert.type = kAlertStopAlert;
    alert.buttons = {{1, QStringLiteral("OK"), true, {90, 230, 110, 300}},
        {3, QStringLiteral("Cancel"), true, {90, 150, 110, 220}},
        {4, QStringLiteral("Never"), false, {90, 20, 110, 90}}};
    alert.defaultButton = 1;
    alert.text = QStringLiteral("This external cannot do what the installer asks of it.");
    alert.layout = Toolbox::AlertLayout{5000, {40, 40, 160, 360}, {{alert.text, {10, 75, 74, 300}}}};
    return alert;
}

#endif
