// The process's controlling terminal, as a place to write paragraphs to and to read lines from. Standard input and
// output stay what they are, so that an answer on standard output carries nothing else.

#ifndef TOOLBOX_CORE_TERMINAL_TERMINAL_H
#define TOOLBOX_CORE_TERMINAL_TERMINAL_H

#include "toolbox/core/dialogs/Choices.h"
#include "toolbox/core/terminal/TerminalEncoding.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Toolbox {

/// Open for as long as it lives. A terminal that cannot be opened, or that closes, reads as ended.
class Terminal {
public:
    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Whether somebody could answer: it is open, and this process may read from it, which a job in the background may
    /// not.
    bool answers() const;

    /// What makes of a text what is shown of it here, for as long as this lives.
    Show show() const
    {
        return [this](const QString& text) { return m_encoding.showable(text); };
    }

    /// Writes the lines of `text`, broken at the width of the terminal, which counts as 20 columns at least.
    void writeLines(const QString& text);

    /// Writes `text` as one entry of a list, on one line or broken and indented, with `number` before it.
    void writeNumbered(int number, const QString& text);

    /// Writes `text`, without ending its last line, and reads what is typed after it, without the line's end. Nothing
    /// at the end of input (Ctrl-D, a terminal that hung up); that is not remembered. The text stands there again when
    /// the process goes on after it was stopped.
    std::optional<QString> ask(const QString& text);

    /// Says that nobody reads what standard input holds, if it holds something: a person who pipes answers waits.
    void sayWhatIsNotRead();

private:
    int columns() const;
    void write(const QString& showableText);
    std::optional<QString> readLine();

    const TerminalEncoding m_encoding;
    const int m_file;
    bool m_failed;
};

}  // namespace Toolbox

#endif
