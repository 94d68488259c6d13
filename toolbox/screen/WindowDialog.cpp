#include "toolbox/screen/WindowDialog.h"

#include "toolbox/core/dialogs/Commands.h"
#include "toolbox/core/dialogs/ControlLabel.h"
#include "toolbox/core/dialogs/ModalLoop.h"
#include "toolbox/core/dialogs/WindowButtons.h"
#include "toolbox/screen/DialogContent.h"
#include "toolbox/screen/DialogFont.h"
#include "toolbox/screen/PlacedItems.h"
#include "toolbox/screen/PlainText.h"

#include <QCloseEvent>
#include <QLabel>

#include <algorithm>

namespace Toolbox {

namespace {

// Whether it is what somebody comes to work on, unlike the buttons that end it.
bool isForInput(const ControlWidget& each)
{
    return each.control->kind == ControlKind::PopupButton && each.control->usable();
}

// Whether it shows no title of its own that says what it is for.
bool needsLabel(const Control& control)
{
    return control.kind == ControlKind::PopupButton && control.title.isEmpty();
}

}  // namespace

WindowDialog::WindowDialog(Window& window, QWidget* parent)
    : QDialog(parent, Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , m_window(window)
    , m_ref(window.ref())
{
    setWindowTitle(plainWindowTitle(window.title));
    setFont(dialogFont());
    addControls();
    relateLabels();
    focusFirstControl();
}

void WindowDialog::addControls()
{
    const ControlActions actions{
        [this](Control& control) { act([&control] { pressControl(control); }); },
        [this](Control& popUp, SInt32 item) { act([&popUp, item] { chooseMenuItem(popUp, item); }); },
    };
    auto* const content = new QWidget(this);
    PlacedItems items;
    for (Control* const each : m_window.controls()) {
        const ControlWidget made = makeControlWidget(*each, content, actions);
        if (made.widget == nullptr)
            continue;
        m_widgets.push_back(made);
        items.add(made.widget, areaOf(each->bounds));
    }
    setContent(*this, content, items.place(areaOf(m_window.content).size()));
}

// Tells assistive technology which text is the label of which control.
void WindowDialog::relateLabels()
{
    for (const ControlWidget& each : m_widgets) {
        const Control* const text = needsLabel(*each.control) ? labelBefore(*each.control) : nullptr;
        const auto label = std::find_if(m_widgets.begin(), m_widgets.end(),
            [text](const ControlWidget& other) { return text != nullptr && other.control == text; });
        if (label != m_widgets.end())
            qobject_cast<QLabel*>(label->widget)->setBuddy(each.input);
    }
}

void WindowDialog::focusFirstControl()
{
    const auto first = std::find_if(m_widgets.begin(), m_widgets.end(), isForInput);
    const auto confirming = std::find_if(m_widgets.begin(), m_widgets.end(),
        [this](const ControlWidget& each) { return each.control == confirmingControl(m_window); });
    if (first != m_widgets.end())
        first->input->setFocus();
    else if (confirming != m_widgets.end())
        confirming->input->setFocus();
}

void WindowDialog::reject()
{
    act([this] { cancelWindow(m_window); });
}

void WindowDialog::closeEvent(QCloseEvent* event)
{
    event->ignore();  // whether it closes is for the window's handlers to say
    act([this] { sendWindowCommand(m_window, kHICommandCancel); });
}

// Handlers run inside `action` and may end the loop or dispose of the window.
void WindowDialog::act(const std::function<void()>& action)
{
    if (!modalLoopEnded(m_ref))
        action();
    if (modalLoopEnded(m_ref)) {
        done(QDialog::Accepted);
        return;
    }
    for (const ControlWidget& each : m_widgets)
        each.showState();
}

}  // namespace Toolbox
