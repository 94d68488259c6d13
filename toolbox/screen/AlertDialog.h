// An alert as a dialog on the screen.

#ifndef TOOLBOX_SCREEN_ALERTDIALOG_H
#define TOOLBOX_SCREEN_ALERTDIALOG_H

#include "toolbox/core/dialogs/Alert.h"
#include "toolbox/screen/ScreenDialog.h"

class QPushButton;

namespace Toolbox {

/// Shows the icon, the texts and the buttons of an alert, and closes when one of the buttons is pressed. An alert from
/// resources has them where its resources say, if every button lies within the alert, and the alert within the screen
/// when it has grown with the font. Any other alert has the arrangement of standard alerts.
class AlertDialog : public ScreenDialog {
public:
    AlertDialog(const Alert& alert, QWidget* parent);

    /// The number of the button that was pressed; before that, of the one that is taken when nobody can answer.
    SInt16 pressed() const { return m_pressed; }

    /// What Escape and the close box do: press the cancel button, else the only one; where there are several, nothing.
    void reject() override;

private:
    bool layoutIsUsable() const;
    void arrangeByLayout(QWidget* content);
    void arrangeAsStandardAlert(QWidget* content);
    QLayout* makeUpperPart(QWidget* content);
    QLayout* makeButtonRow(QWidget* content);
    QWidget* makeTexts(int most, QWidget* parent) const;
    QPushButton* makeButton(const AlertButton& button, QWidget* parent);
    void press(SInt16 number);

    const Alert& m_alert;
    SInt16 m_pressed;
};

}  // namespace Toolbox

#endif
