#include "toolbox/core/terminal/TerminalDisplay.h"

#include "toolbox/core/dialogs/Choices.h"
#include "toolbox/core/displays/Picture.h"
#include "toolbox/core/terminal/Terminal.h"
#include "toolbox/core/terminal/TerminalWindow.h"

#include <Toolbox/Displays.h>

#include <algorithm>
#include <iterator>
#include <memory>

namespace Toolbox {

namespace {

std::vector<AlertButton> enabledButtons(const Alert& alert)
{
    std::vector<AlertButton> enabled;
    std::copy_if(alert.buttons.begin(), alert.buttons.end(), std::back_inserter(enabled),
        [](const AlertButton& each) { return each.enabled; });
    return enabled;
}

void describe(Terminal& terminal, const Alert& alert, const std::vector<AlertButton>& buttons)
{
    const QString word = wordFor(alert.type, QString());
    terminal.writeLines(QLatin1Char('\n') + word + QLatin1String(word.isEmpty() ? "" : ": ") + alert.text);
    if (!alert.explanation.isEmpty())
        terminal.writeLines(QLatin1Char('\n') + alert.explanation);
    terminal.writeLines(QString());
    for (const AlertButton& each : buttons) {
        const QString mark = each.number == alert.defaultButton ? QStringLiteral(" - default") : QString();
        terminal.writeNumbered(each.number, each.title + mark);
    }
    terminal.writeLines(QString());
}

// Asks until one of the buttons is meant; returns its number. At the end of input, that of unansweredButton().
SInt16 askAlert(Terminal& terminal, const Alert& alert)
{
    const std::vector<AlertButton> buttons = enabledButtons(alert);
    Choices choices;
    QString question = QStringLiteral("Line or name");
    for (const AlertButton& each : buttons) {
        choices.add(each.title, each.number);
        if (each.number == alert.defaultButton)
            question += QStringLiteral(", or Return for %1").arg(each.title.simplified());
    }
    question += QStringLiteral(": ");
    terminal.sayWhatIsNotRead();
    describe(terminal, alert, buttons);
    for (;;) {
        const std::optional<QString> typed = terminal.ask(question);
        if (!typed)
            return alert.unansweredButton();
        if (isReturnAlone(*typed) && alert.defaultButton != 0)
            return alert.defaultButton;
        QString problem;
        const std::optional<std::size_t> chosen = choices.find(*typed, &problem, terminal.show());
        if (chosen)
            return buttons[*chosen].number;
        if (requestIn(*typed) == Request::Quit && alert.closingButton() != 0)
            return alert.closingButton();
        if (requestIn(*typed) == Request::Help)
            describe(terminal, alert, buttons);
        else
            terminal.writeLines(problem);
    }
}

}  // namespace

bool TerminalDisplay::runWindow(Window& window, QString* problem)
{
    drawRequestedPicture(window);
    Terminal terminal;
    return TerminalWindow(terminal, window).run(problem);
}

SInt16 TerminalDisplay::runAlert(const Alert& alert)
{
    drawRequestedPicture(alert);
    Terminal terminal;
    return askAlert(terminal, alert);
}

bool TerminalAnswers()
{
    return Terminal().answers();
}

void UseTerminalDisplay()
{
    setCurrentDisplay(std::make_unique<TerminalDisplay>());
}

}  // namespace Toolbox
