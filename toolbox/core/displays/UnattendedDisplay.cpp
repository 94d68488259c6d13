#include "toolbox/core/displays/UnattendedDisplay.h"

#include "toolbox/base/CurrentReport.h"
#include "toolbox/core/dialogs/Commands.h"
#include "toolbox/core/dialogs/ModalLoop.h"
#include "toolbox/core/displays/Picture.h"

#include <algorithm>
#include <memory>

namespace Toolbox {

namespace {

// ---- Windows

Control* controlOfCommand(const Window& window, MenuCommand command)
{
    if (command == 0)  // what carries no command answers to none
        return nullptr;
    return window.firstControl([command](const Control& each) { return each.usable() && each.command == command; });
}

// The control that stands for `command`: the one that carries it, else for OK and Cancel what Return or Escape presses.
Control* controlFor(const Window& window, MenuCommand command)
{
    Control* const control = controlOfCommand(window, command);
    if (control != nullptr)
        return control;
    if (command == kHICommandOK)
        return confirmingControl(window);
    if (command == kHICommandCancel)
        return cancellingControl(window);
    return nullptr;
}

// The next three return whether there was something to do it with.

bool press(Control* control)
{
    if (control != nullptr)
        pressControl(*control);
    return control != nullptr;
}

bool chooseItem(const Window& window, UInt32 item)
{
    Control* const popUp =
        window.firstControl([](const Control& each) { return each.usable() && each.kind == ControlKind::PopupButton; });
    const SInt32 wanted = static_cast<SInt32>(std::min(item, UInt32{0x7FFFFFFF}));
    if (popUp == nullptr || !popUp->offers(wanted))
        return false;
    chooseMenuItem(*popUp, wanted);
    return true;
}

bool give(const Answer& answer, const Window& window)
{
    const WindowRef ref = window.ref();
    switch (answer.kind) {
    case Answer::Kind::Command:
        return press(controlFor(window, answer.value));
    case Answer::Kind::Item:
        return chooseItem(window, answer.value) && (modalLoopEnded(ref) || press(controlFor(window, kHICommandOK)));
    case Answer::Kind::Button:
        break;  // for an alert, and there is none
    }
    return false;
}

bool hasEnded(WindowRef window, const char* otherwise, QString* problem)
{
    const bool ended = modalLoopEnded(window);
    if (!ended)
        *problem = QString::fromLatin1(otherwise);
    return ended;
}

// ---- Alerts

bool isForAlerts(const Answer& answer)
{
    return answer.kind == Answer::Kind::Button
        || (answer.kind == Answer::Kind::Command && (answer.value == kHICommandOK || answer.value == kHICommandCancel));
}

// The number of the button that `answer` means, which the alert need not have.
UInt32 buttonOf(const Alert& alert, const Answer& answer)
{
    if (answer.kind == Answer::Kind::Button)
        return answer.value;
    return static_cast<UInt16>(answer.value == kHICommandOK ? alert.buttons.front().number : alert.cancelButton);
}

}  // namespace

std::unique_ptr<Display> makeFirstDisplay()
{
    return std::make_unique<UnattendedDisplay>(std::vector<Answer>());
}

UnattendedDisplay::UnattendedDisplay(const std::vector<Answer>& answers)
    : m_answers(answers.begin(), answers.end())
{
}

bool UnattendedDisplay::runWindow(Window& window, QString* problem)
{
    drawRequestedPicture(window);
    const WindowRef ref = window.ref();
    while (!m_answers.empty() && !modalLoopEnded(ref)) {
        if (give(takeAnswer(), window))
            continue;
        currentReport().answerWasUnfit = true;
        cancelWindow(window);
        return hasEnded(ref, "an answer fits nothing in the window, and cancelling does not end it", problem);
    }
    if (!modalLoopEnded(ref)) {
        currentReport().answersRanOut = true;
        press(confirmingControl(window));
    }
    return hasEnded(ref, "no answer is left, and confirming the window does not end it", problem);
}

SInt16 UnattendedDisplay::runAlert(const Alert& alert)
{
    drawRequestedPicture(alert);
    if (m_answers.empty())
        currentReport().answersRanOut = true;
    if (m_answers.empty() || !isForAlerts(m_answers.front()))
        return alert.confirmingButton();
    const UInt32 wanted = buttonOf(alert, takeAnswer());
    if (wanted <= 0x7FFF && alert.offers(static_cast<SInt16>(wanted)))
        return static_cast<SInt16>(wanted);
    currentReport().answerWasUnfit = true;
    return alert.confirmingButton();
}

Answer UnattendedDisplay::takeAnswer()
{
    const Answer answer = m_answers.front();
    m_answers.pop_front();
    ++currentReport().answersTaken;
    return answer;
}

void UseUnattendedDisplay(const std::vector<Answer>& answers)
{
    setCurrentDisplay(std::make_unique<UnattendedDisplay>(answers));
}

}  // namespace Toolbox
