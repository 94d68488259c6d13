#include "toolbox/screen/WindowDialog.h"

#include "toolbox/core/dialogs/Commands.h"
#include "toolbox/core/dialogs/Control.h"
#include "toolbox/core/dialogs/ModalLoop.h"
#include "toolbox/screen/PlainText.h"
#include "toolbox/screen/PopUpButton.h"

#include <QAbstractItemView>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <tuple>

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

QFrame* makeSeparator(const Rect& bounds, QWidget* parent)
{
    auto* const line = new QFrame(parent);
    const bool isWide = bounds.right - bounds.left >= bounds.bottom - bounds.top;
    line->setFrameStyle(static_cast<int>(isWide ? QFrame::HLine : QFrame::VLine) | QFrame::Sunken);
    return line;
}

// The order in which things stand, row by row, which the focus and assistive technology follow; what lies in something
// comes after it.
std::vector<Control*> inReadingOrder(std::vector<Control*> controls)
{
    const auto position = [](const Control* control) {
        return std::make_tuple(
            control->kind != ControlKind::GroupBox, control->bounds.top + control->bounds.bottom, control->bounds.left);
    };
    std::stable_sort(controls.begin(), controls.end(),
        [&](const Control* one, const Control* other) { return position(one) < position(other); });
    return controls;
}

// What Return presses where the focus is on no button.
const Control* defaultButton(const Window& window)
{
    const Control* const button = window.buttonOfRole(ButtonRole::Default);
    return button != nullptr ? button : confirmingControl(window);
}

}  // namespace

WindowDialog::WindowDialog(Window& window, QWidget* parent)
    : ScreenDialog(window.title, Qt::WindowCloseButtonHint, parent)
    , m_window(window)
    , m_ref(window.ref())
{
    addControls();
    showStates();
    focusFirst();
}

WindowDialog::Shown WindowDialog::makeButton(Control& control, QWidget* parent)
{
    auto* const button = makePushButton(control.title, parent);
    button->setDefault(&control == defaultButton(m_window));
    connect(button, &QPushButton::clicked, this, [this, &control] { act([&control] { pressControl(control); }); });
    return {&control, button, nullptr};
}

// With the pop-up's own label before it, where it has one.
WindowDialog::Shown WindowDialog::makePopUp(Control& control, QWidget* parent)
{
    QWidget* const row = control.title.isEmpty() ? nullptr : new QWidget(parent);
    auto* const popUp = new PopUpButton(control, row != nullptr ? row : parent);
    // Of the open menu, which has the focus then; a closed one is called as what it shows, and has its label.
    popUp->view()->setAccessibleName(plainText(labelOf(control)));
    popUp->setMinimumWidth(std::min(popUp->minimumSizeHint().width(), MOST_PIXELS));
    connect(popUp, &QComboBox::activated, this,
        [this, &control](int index) { act([&control, index] { chooseMenuItem(control, index + 1); }); });
    if (row == nullptr)
        return {&control, popUp, popUp};
    auto* const label = makeLabel(control.title, Qt::AlignLeft | Qt::AlignVCenter, row);
    label->setText(plainTitle(control.title));
    label->setBuddy(popUp);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(popUp, 1);
    return {&control, row, popUp};
}

// Without a widget for a kind that is not drawn.
WindowDialog::Shown WindowDialog::makeWidget(Control& control, QWidget* parent)
{
    switch (control.kind) {
    case ControlKind::Button:
        return makeButton(control, parent);
    case ControlKind::PopupButton:
        return makePopUp(control, parent);
    case ControlKind::StaticText:
        return {&control, makeLabel(control.title, alignmentOf(control.justification), parent), nullptr};
    case ControlKind::GroupBox:
        return {&control, new QGroupBox(plainTitle(control.title), parent), nullptr};
    case ControlKind::Separator:
        return {&control, makeSeparator(control.bounds, parent), nullptr};
    default:
        return {&control, nullptr, nullptr};
    }
}

void WindowDialog::addControls()
{
    auto* const content = new QWidget(this);
    std::vector<PlacedWidget> places;
    for (Control* const each : inReadingOrder(m_window.controls())) {
        const Shown made = makeWidget(*each, content);
        if (made.widget == nullptr)
            continue;
        m_shown.push_back(made);
        places.push_back({made.widget, areaOf(each->bounds)});
    }
    // Tells assistive technology which text is the label of which pop-up without a title of its own.
    for (const Shown& each : m_shown) {
        const Control* const text =
            each.popUp != nullptr && each.control->title.isEmpty() ? each.control->label : nullptr;
        const auto label =
            std::find_if(m_shown.begin(), m_shown.end(), [text](const Shown& other) { return other.control == text; });
        if (label == m_shown.end())
            continue;
        auto* const widget = qobject_cast<QLabel*>(label->widget);
        widget->setText(plainTitle(text->title));
        widget->setBuddy(each.popUp);
    }
    layOutByBounds(content, areaOf(m_window.content).size(), places);
    setContent(content);
}

// The focus is on what somebody comes to work on, else on the button that ends it.
void WindowDialog::focusFirst()
{
    const auto popUp = std::find_if(m_shown.begin(), m_shown.end(),
        [](const Shown& each) { return each.popUp != nullptr && each.control->usable(); });
    const auto confirming = std::find_if(m_shown.begin(), m_shown.end(),
        [this](const Shown& each) { return each.control == confirmingControl(m_window); });
    if (popUp != m_shown.end())
        popUp->popUp->setFocus();
    else if (confirming != m_shown.end())
        confirming->widget->setFocus();
    else if (focusWidget() != nullptr)
        focusWidget()->clearFocus();
}

void WindowDialog::reject()
{
    act([this] { cancelWindow(m_window); });
}

// Handlers run inside `action` and may end the loop or dispose of the window.
void WindowDialog::act(const std::function<void()>& action)
{
    if (!modalLoopEnded(m_ref))
        action();
    if (modalLoopEnded(m_ref))
        done(Accepted);
    else
        showStates();
}

// Brings the widgets to the present state of their controls. What can no longer have the focus passes it on to what
// stands next, which may be Cancel; there Return would cancel, though nobody has gone there.
void WindowDialog::showStates()
{
    const QWidget* const focused = focusWidget();
    for (const Shown& each : m_shown) {
        each.widget->setEnabled(each.control->usable());
        each.widget->setVisible(each.control->shown());
        if (each.popUp != nullptr)
            each.popUp->setCurrentIndex(each.control->value - 1);
    }
    if (focusWidget() != focused)
        focusFirst();
}

}  // namespace Toolbox
