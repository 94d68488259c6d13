// What the tests of displays show: a dialog with a text, a pop-up, OK and Cancel, and a record of what it is sent;
// alerts.

#ifndef TESTS_TOOLBOX_CORE_DISPLAYS_DIALOG_H
#define TESTS_TOOLBOX_CORE_DISPLAYS_DIALOG_H

#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <string>

/// A window as an external's nib draws it. OK and Cancel end it, unless its recorder is given another action.
struct Dialog {
    Dialog()
        : label(made.add(Toolbox::ControlKind::StaticText))
        , popUp(
              made.addPopUp({{QStringLiteral("Small")}, {QStringLiteral("日本 (Medium)")}, {QStringLiteral("Large")}}))
        , ok(made.addButton(kHICommandOK, Toolbox::ButtonRole::Default))
        , cancel(made.addButton(kHICommandCancel, Toolbox::ButtonRole::Cancel))
        , recorder(made.target(), eventNotHandledErr)
    {
        made.window().title = QStringLiteral("Paper & ink");
        made.window().content = {200, 300, 324, 640};
        label.title = QStringLiteral("Choose a size:");
        label.bounds = {20, 20, 36, 320};
        popUp.bounds = {44, 20, 64, 320};
        popUp.label = &label;
        popUp.setValue(2);
        ok.title = QStringLiteral("OK");
        ok.bounds = {84, 251, 104, 320};
        cancel.title = QStringLiteral("Cancel");
        cancel.bounds = {84, 170, 104, 239};
        recorder.action = [this](const HICommand& command) {
            if (command.commandID == kHICommandOK || command.commandID == kHICommandCancel)
                QuitAppModalLoopForWindow(made.ref);
        };
    }

    /// Adds a control that can be 0 or 1.
    Toolbox::Control& add(Toolbox::ControlKind kind, const char* title, const Rect& bounds = {})
    {
        Toolbox::Control& added = made.add(kind);
        added.title = QString::fromUtf8(title);
        added.bounds = bounds;
        added.maximum = 1;
        return added;
    }

    /// Runs it on the display that was chosen, and says how it ended and which commands it got.
    std::string run()
    {
        const bool ended = RunAppModalLoopForWindow(made.ref) == noErr;
        std::string report = (ended ? "ended" : Toolbox::currentReport().displayProblem) + ":";
        for (const HICommand& each : recorder.commands)
            report += inWords(each);
        return report;
    }

    TestWindow made;
    Toolbox::Control& label;
    Toolbox::Control& popUp;
    Toolbox::Control& ok;
    Toolbox::Control& cancel;
    CommandRecorder recorder;

private:
    static std::string inWords(const HICommand& command)
    {
        switch (command.commandID) {
        case 0:
            return " item " + std::to_string(command.menu.menuItemIndex);
        case kHICommandOK:
            return " ok";
        case kHICommandCancel:
            return command.attributes == kHICommandFromWindow ? " closed" : " cancel";
        default:
            return " other";
        }
    }
};

/// A note with a text and one button.
inline Toolbox::Alert oneButton()
{
    Toolbox::Alert alert;
    alert.type = kAlertNoteAlert;
    alert.text = QStringLiteral("Done.");
    alert.buttons = {{1, QStringLiteral("OK"), true, {}}};
    alert.defaultButton = 1;
    return alert;
}

/// An alert with the four buttons that a standard one can have.
inline Toolbox::Alert fourButtons(SInt16 defaultButton = 1, SInt16 cancelButton = 2)
{
    Toolbox::Alert alert;
    alert.type = kAlertCautionAlert;
    alert.text = QStringLiteral("Replace <b>everything</b> & more?\nReally?");
    alert.explanation = QStringLiteral("It cannot be undone.");
    alert.buttons = {{1, QStringLiteral("Yes & no"), true, {}}, {2, QStringLiteral("Cancel"), true, {}},
        {3, QStringLiteral("Don't Save"), true, {}}, {4, QStringLiteral("Help"), true, {}}};
    alert.defaultButton = defaultButton;
    alert.cancelButton = cancelButton;
    return alert;
}

#endif
