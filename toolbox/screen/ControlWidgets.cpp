#include "toolbox/screen/ControlWidgets.h"

#include "toolbox/core/dialogs/ControlLabel.h"
#include "toolbox/screen/PlainLabel.h"
#include "toolbox/screen/PlainText.h"
#include "toolbox/screen/PopUpButton.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

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
    return {&control, button, button, [] {}};
}

ControlWidget makeStaticText(Control& control, QWidget* parent)
{
    return {&control, new PlainLabel(control.title, alignmentOf(control.justification), parent), nullptr, [] {}};
}

// With the pop-up's own label before it, where it has one.
ControlWidget makePopUp(Control& control, QWidget* parent, const ControlActions& actions)
{
    QWidget* const row = control.title.isEmpty() ? nullptr : new QWidget(parent);
    auto* const box = new PopUpButton(control, row != nullptr ? row : parent);
    box->setAccessibleName(plainText(labelOf(control)));
    if (row != nullptr) {
        auto* const label = new PlainLabel(control.title, Qt::AlignLeft, row);
        label->setFixedSize(label->sizeHint());
        label->setBuddy(box);
        auto* const layout = new QHBoxLayout(row);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(label);
        layout->addWidget(box, 1);
    }
    QObject::connect(
        box, &QComboBox::activated, [&control, choose = actions.choose](int index) { choose(control, index + 1); });
    return {&control, row != nullptr ? row : box, box, [&control, box] { box->setCurrentIndex(control.value - 1); }};
}

ControlWidget makeSeparator(Control& control, QWidget* parent)
{
    auto* const line = new QFrame(parent);
    const bool isWide = control.bounds.right - control.bounds.left >= control.bounds.bottom - control.bounds.top;
    line->setFrameStyle(static_cast<int>(isWide ? QFrame::HLine : QFrame::VLine) | QFrame::Sunken);
    return {&control, line, nullptr, [] {}};
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
    case ControlKind::GroupBox:
        return {&control, new QGroupBox(plainTitle(control.title), parent), nullptr, [] {}};
    case ControlKind::Separator:
        return makeSeparator(control, parent);
    default:
        return {&control, nullptr, nullptr, [] {}};
    }
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
