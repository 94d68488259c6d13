#include "toolbox/displays/window/ControlWidgets.h"

#include "toolbox/displays/ControlLabel.h"
#include "toolbox/displays/window/PlainLabel.h"
#include "toolbox/displays/window/PlainText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardItemModel>

namespace Toolbox {

namespace {

Qt::Alignment alignmentOf(Justification justification)
{
    switch (justification) {
    case Justification::Center:
        return Qt::AlignHCenter;
    case Justification::Right:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

ControlWidget makeButton(Control& control, QWidget* parent, const ControlActions& actions)
{
    auto* const button = new QPushButton(plainTitle(control.title), parent);
    // Return presses the default button wherever the focus is, as it does on the Mac.
    button->setAutoDefault(false);
    button->setDefault(control.role == ButtonRole::Default);
    QObject::connect(button, &QPushButton::clicked, [&control, press = actions.press] { press(control); });
    return {&control, button, [] {}};
}

ControlWidget makeStaticText(Control& control, QWidget* parent)
{
    return {&control, new PlainLabel(control.title, alignmentOf(control.justification), parent), [] {}};
}

// The menu of a pop-up, with what nobody can choose marked as such.
void addItems(QComboBox& box, const Control& control)
{
    for (std::size_t index = 0; index < control.items.size(); ++index) {
        const int row = static_cast<int>(index);
        if (control.items[index].separator)
            box.insertSeparator(row);
        else
            box.addItem(plainText(control.items[index].title).simplified());
        qobject_cast<QStandardItemModel*>(box.model())->item(row)->setEnabled(control.offers(row + 1));
        qobject_cast<QListView*>(box.view())->setRowHidden(row, control.items[index].hidden);
    }
}

ControlWidget makePopUp(Control& control, QWidget* parent, const ControlActions& actions)
{
    auto* const row = new QWidget(parent);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    if (!control.title.isEmpty()) {
        auto* const label = new PlainLabel(control.title, Qt::AlignLeft, row);
        label->setFixedSize(label->sizeHint());
        layout->addWidget(label);
    }
    auto* const box = new QComboBox(row);
    box->setAccessibleName(plainText(labelOf(control)));
    addItems(*box, control);
    layout->addWidget(box, 1);
    row->setFocusProxy(box);
    QObject::connect(
        box, &QComboBox::activated, [&control, choose = actions.choose](int index) { choose(control, index + 1); });
    return {&control, row, [&control, box] { box->setCurrentIndex(control.value - 1); }};
}

ControlWidget makeEditText(Control& control, QWidget* parent)
{
    auto* const edit = new QLineEdit(parent);
    edit->setAccessibleName(plainText(labelOf(control)));
    edit->setEchoMode(control.secret ? QLineEdit::Password : QLineEdit::Normal);
    QObject::connect(edit, &QLineEdit::textEdited, [&control](const QString& text) { control.text = text; });
    return {&control, edit, [&control, edit] {
                if (edit->text() != control.text)  // or the cursor would jump
                    edit->setText(control.text);
            }};
}

ControlWidget makeCheckBox(Control& control, QWidget* parent, const ControlActions& actions)
{
    constexpr SInt32 MIXED = 2;
    auto* const box = new QCheckBox(plainTitle(control.title), parent);
    QObject::connect(box, &QCheckBox::clicked, [&control, press = actions.press] { press(control); });
    return {&control, box, [&control, box] {
                if (control.value == MIXED)
                    box->setCheckState(Qt::PartiallyChecked);
                else
                    box->setChecked(control.value != 0);
            }};
}

ControlWidget makeRadioButton(Control& control, QWidget* parent, const ControlActions& actions)
{
    auto* const button = new QRadioButton(plainTitle(control.title), parent);
    button->setAutoExclusive(false);  // the controls' values say which one is on
    QObject::connect(button, &QRadioButton::clicked, [&control, press = actions.press] { press(control); });
    return {&control, button, [&control, button] { button->setChecked(control.value != 0); }};
}

ControlWidget makeSeparator(Control& control, QWidget* parent)
{
    auto* const line = new QFrame(parent);
    const bool isWide = control.bounds.right - control.bounds.left >= control.bounds.bottom - control.bounds.top;
    line->setFrameStyle(static_cast<int>(isWide ? QFrame::HLine : QFrame::VLine) | QFrame::Sunken);
    return {&control, line, [] {}};
}

ControlWidget makeByKind(Control& control, QWidget* parent, const ControlActions& actions)
{
    switch (control.kind) {
    case ControlKind::Button:
        return makeButton(control, parent, actions);
    case ControlKind::PopupButton:
        return makePopUp(control, parent, actions);
    case ControlKind::StaticText:
        return makeStaticText(control, parent);
    case ControlKind::EditText:
        return makeEditText(control, parent);
    case ControlKind::CheckBox:
        return makeCheckBox(control, parent, actions);
    case ControlKind::RadioButton:
        return makeRadioButton(control, parent, actions);
    case ControlKind::GroupBox:
        return {&control, new QGroupBox(plainTitle(control.title), parent), [] {}};
    case ControlKind::Separator:
        return makeSeparator(control, parent);
    case ControlKind::Root:
    case ControlKind::Other:
        break;
    }
    return {&control, nullptr, [] {}};
}

}  // namespace

ControlWidget makeControlWidget(Control& control, QWidget* parent, const ControlActions& actions)
{
    ControlWidget made = makeByKind(control, parent, actions);
    if (made.widget == nullptr)
        return made;
    made.showState = [&control, widget = made.widget, showOwnState = made.showState] {
        widget->setEnabled(control.usable());
        widget->setVisible(control.shown());
        showOwnState();
    };
    made.showState();
    return made;
}

}  // namespace Toolbox
