#include "toolbox/core/terminal/TerminalWindow.h"

#include "toolbox/core/dialogs/Choices.h"
#include "toolbox/core/dialogs/Commands.h"
#include "toolbox/core/dialogs/Control.h"
#include "toolbox/core/dialogs/MacText.h"
#include "toolbox/core/dialogs/ModalLoop.h"

#include <algorithm>

namespace Toolbox {

namespace {

// "a, b, or c", with a capital.
QString alternatives(QStringList parts)
{
    if (parts.size() > 1)
        parts.last().prepend(QStringLiteral("or "));
    QString sentence = parts.join(QStringLiteral(", "));
    sentence.replace(0, 1, sentence.left(1).toUpper());
    return sentence;
}

QString mark(const TerminalWindow::Offer& offer)
{
    return offer.control->value == offer.item ? QStringLiteral(" - chosen") : QString();
}

}  // namespace

TerminalWindow::TerminalWindow(Terminal& terminal, Window& window)
    : m_terminal(terminal)
    , m_window(window)
    , m_ref(window.ref())
{
}

bool TerminalWindow::run(QString* problem)
{
    m_terminal.sayWhatIsNotRead();
    describe();
    while (!modalLoopEnded(m_ref)) {
        const std::optional<QString> typed = m_terminal.ask(question());
        if (!typed) {
            cancelWindow(m_window);
            *problem = QStringLiteral("the terminal gives no more input, and cancelling the window does not end it");
            return modalLoopEnded(m_ref);
        }
        answer(*typed);
    }
    return true;
}

std::vector<TerminalWindow::Offer> TerminalWindow::offers() const
{
    std::vector<Offer> all;
    for (Control* const each : m_window.controls())
        if (each->usable())
            appendOffers(*each, all);

    const Control* const confirming = confirmingControl(m_window);
    const Control* const cancelling = cancellingControl(m_window);
    int number = 0;
    for (Offer& each : all) {
        if (each.control->kind != ControlKind::Button)
            each.number = ++number;
        if (each.control == confirming)
            each.word = QStringLiteral("ok");
        else if (each.control == cancelling)
            each.word = QStringLiteral("cancel");
    }
    if (cancelling == nullptr) {
        all.emplace_back();
        all.back().name = all.back().word = QStringLiteral("cancel");
    }
    return all;
}

void TerminalWindow::appendOffers(Control& control, std::vector<Offer>& all) const
{
    switch (control.kind) {
    case ControlKind::PopupButton:
        for (std::size_t index = 0; index < control.items.size(); ++index) {
            const SInt32 item = static_cast<SInt32>(index + 1);
            const QString title = control.items[index].title.simplified();
            if (control.offers(item))
                all.push_back({&control, item, readableName(title, m_terminal.show()), title});
        }
        break;
    case ControlKind::Button:
        all.push_back({&control, 0, labelOf(control)});
        break;
    default:
        break;
    }
}

QString TerminalWindow::question() const
{
    const Control* const confirming = confirmingControl(m_window);
    bool hasNumbers = false;
    QStringList ways;
    for (const Offer& each : offers()) {
        hasNumbers = hasNumbers || each.number;
        if (!each.number && each.word.isEmpty())  // what cancels was told
            ways.append(each.name);
    }
    if (hasNumbers)
        ways.prepend(QStringLiteral("line or name"));
    if (confirming != nullptr)
        ways.append(QStringLiteral("Return for %1").arg(labelOf(*confirming)));
    return (ways.isEmpty() ? QStringLiteral("Cancel") : alternatives(ways)) + QStringLiteral(": ");
}

void TerminalWindow::describe()
{
    m_terminal.writeLines(QLatin1Char('\n') + m_window.title.simplified() + QLatin1Char('\n'));
    const std::vector<Offer> all = offers();
    auto offer = all.begin();  // those of a control follow each other, in the order of the controls
    for (const Control* const each : m_window.controls()) {
        if (each->shown())
            describeTitle(*each);
        for (; offer != all.end() && offer->control == each; ++offer)
            if (offer->number)
                m_terminal.writeNumbered(*offer->number, offer->name + mark(*offer));
    }
    m_terminal.writeLines(QStringLiteral("\n? shows this again, q cancels."));
}

void TerminalWindow::describeTitle(const Control& control)
{
    const bool showsTitle = control.kind == ControlKind::StaticText || control.kind == ControlKind::GroupBox
        || control.kind == ControlKind::PopupButton;
    if (showsTitle && !control.title.isEmpty())
        m_terminal.writeLines(withLineFeeds(control.title));
}

void TerminalWindow::answer(const QString& typed)
{
    Control* const confirming = confirmingControl(m_window);
    if (isReturnAlone(typed) && confirming != nullptr) {
        pressControl(*confirming);
        return;
    }
    const std::vector<Offer> all = offers();
    Choices choices;
    for (const Offer& each : all)
        choices.add(each.name, each.number, each.word, each.title);
    QString problem;
    const std::optional<std::size_t> chosen = choices.find(typed, &problem, m_terminal.show());
    if (chosen)
        take(all[*chosen]);
    else if (requestIn(typed) == Request::Help)
        describe();
    else if (requestIn(typed) == Request::Quit)
        cancelWindow(m_window);
    else
        m_terminal.writeLines(problem);
}

void TerminalWindow::take(const Offer& offer)
{
    if (offer.control == nullptr) {
        cancelWindow(m_window);
    } else if (offer.control->kind == ControlKind::Button) {
        pressControl(*offer.control);
    } else {
        chooseMenuItem(*offer.control, offer.item);
        if (!modalLoopEnded(m_ref) && offer.control->value == offer.item)
            m_terminal.writeLines(QStringLiteral("%1 is chosen.").arg(offer.name));
    }
}

}  // namespace Toolbox
