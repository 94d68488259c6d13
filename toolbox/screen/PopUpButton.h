// The widget of a pop-up menu.

#ifndef TOOLBOX_SCREEN_POPUPBUTTON_H
#define TOOLBOX_SCREEN_POPUPBUTTON_H

#include "toolbox/core/dialogs/Choices.h"
#include "toolbox/core/dialogs/Window.h"

#include <QComboBox>

#include <vector>

namespace Toolbox {

/// A combo box with the items of a pop-up, in which letters choose an item by the beginning of its name or of a part of
/// it, as on a terminal: "ger" finds "Deutsch (German)". Letters that follow each other without a pause belong
/// together; one alone, or the same again, goes on to the next item that begins so. It makes no difference whether the
/// menu is open. Nor does it to assistive technology, which chooses an item by selecting it.
class PopUpButton : public QComboBox {
public:
    PopUpButton(const Control& control, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void hidePopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addItem(const Control& control, int row);
    bool typeAhead(const QKeyEvent& event);
    std::vector<int> rowsBeginningLike(const QString& text) const;
    int presentRow() const;
    void goTo(int row);
    void selectCurrent();
    void describe(const QString& item);
    void chooseSelected();
    void tellOfValue();

    QWidget* m_values;  // one for each item
    Choices m_names;
    QString m_typed;
    quint64 m_lastTyped = 0;  // in milliseconds
};

}  // namespace Toolbox

#endif
