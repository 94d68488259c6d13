#include "toolbox/core/terminal/Terminal.h"

#include <QList>
#include <QStringList>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <utility>

namespace Toolbox {

namespace {

constexpr int USUAL_COLUMNS = 80;  // where the terminal does not say
constexpr int LEAST_COLUMNS = 20;
constexpr qsizetype LONGEST_LINE = 4096;  // what a terminal takes; the rest of a longer line is dropped

QString withoutBlanksAtTheEnd(QString line)
{
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

// A part of a line, and how many columns it takes.
struct Piece {
    QString text;
    int width = 0;

    // Takes all of `other`.
    void take(Piece& other)
    {
        text += std::exchange(other.text, QString());
        width += std::exchange(other.width, 0);
    }
};

// `text` broken at a blank, or in the middle of a word that is longer than a line, wherever it would go past the
// `columns`, but at no no-break space, of which a blank is made. What follows a break begins below `hanging` columns.
QString breakLine(const QString& text, int hanging, int columns, const TerminalEncoding& encoding)
{
    QString ended;  // lines
    Piece line;     // the one that is being filled, up to its last word
    Piece word;
    for (const uint character : text.toUcs4()) {
        const char32_t shown = character == QChar::Nbsp ? U' ' : character;
        Piece next{QString::fromUcs4(&shown, 1), encoding.columns(shown)};
        const bool isBlank = character == U' ';
        const bool fits = line.width + word.width + next.width <= columns;
        const bool fitsBelow = hanging + word.width + next.width <= columns;
        if (isBlank || (!fits && (!fitsBelow || withoutBlanksAtTheEnd(line.text).isEmpty())))
            line.take(word);  // else it moves to the next line, if this one ends here
        if (!fits) {
            ended += withoutBlanksAtTheEnd(line.text) + QLatin1Char('\n');
            line = {QString(hanging, QLatin1Char(' ')), hanging};
        }
        if (!isBlank)
            word.take(next);
        else if (fits)
            line.take(next);
    }
    return ended + line.text + word.text;
}

// The question that stands on a terminal now.
struct {
    int terminal;
    const char* bytes;
    std::size_t size;
} asked;

// Written here and not by readLine(): the signal may come before that blocks in read(), and would interrupt nothing.
void askAgain(int)
{
    const int error = errno;
    [[maybe_unused]] const ssize_t count = ::write(asked.terminal, asked.bytes, asked.size);  // reading fails too, then
    errno = error;
}

// While this lives, the question stands there again when the process goes on after it was stopped: what is on the
// screen is then something else.
class ContinueWatch {
public:
    ContinueWatch(int terminal, const QByteArray& question)
        : m_question(question)
    {
        asked = {terminal, m_question.constData(), static_cast<std::size_t>(m_question.size())};
        struct sigaction asking { };
        asking.sa_handler = askAgain;
        asking.sa_flags = SA_RESTART;
        sigaction(SIGCONT, &asking, &m_before);
    }
    ~ContinueWatch() { sigaction(SIGCONT, &m_before, nullptr); }
    ContinueWatch(const ContinueWatch&) = delete;
    ContinueWatch& operator=(const ContinueWatch&) = delete;

private:
    const QByteArray m_question;
    struct sigaction m_before { };
};

}  // namespace

Terminal::Terminal()
    : m_file(open("/dev/tty", O_RDWR | O_CLOEXEC))
    , m_failed(m_file < 0)
{
}

Terminal::~Terminal()
{
    if (m_file >= 0)
        close(m_file);
}

bool Terminal::answers() const
{
    return !m_failed && tcgetpgrp(m_file) == getpgrp();
}

void Terminal::writeLines(const QString& text)
{
    const QStringList lines = m_encoding.showable(text).split(QLatin1Char('\n'));
    for (const QString& line : lines)
        write(breakLine(line, 0, columns(), m_encoding) + QLatin1Char('\n'));
}

void Terminal::writeNumbered(int number, const QString& text)
{
    const QString start = QStringLiteral("%1  ").arg(number, 3);
    const QString line = start + m_encoding.showable(text.simplified());
    write(breakLine(line, static_cast<int>(start.size()), columns(), m_encoding) + QLatin1Char('\n'));
}

std::optional<QString> Terminal::ask(const QString& text)
{
    const QString question = breakLine(m_encoding.showable(text), 0, columns(), m_encoding);
    const ContinueWatch watch(m_file, m_encoding.encode(question));
    write(question);
    const std::optional<QString> line = readLine();
    if (!line)
        write(QStringLiteral("\n"));  // nobody ended the line
    return line;
}

void Terminal::sayWhatIsNotRead()
{
    int waiting = 0;
    if (answers() && isatty(STDIN_FILENO) == 0 && ioctl(STDIN_FILENO, FIONREAD, &waiting) == 0 && waiting > 0)
        writeLines(QStringLiteral("What standard input holds is not read: answer here."));
}

int Terminal::columns() const
{
    winsize size{};
    const bool isKnown = ioctl(m_file, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? std::max<int>(LEAST_COLUMNS, size.ws_col) : USUAL_COLUMNS;
}

void Terminal::write(const QString& showableText)
{
    const QByteArray bytes = m_encoding.encode(showableText);
    qsizetype written = 0;
    while (!m_failed && written < bytes.size()) {
        const ssize_t count =
            ::write(m_file, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (count > 0)
            written += count;
        else
            m_failed = count == 0 || errno != EINTR;
    }
}

std::optional<QString> Terminal::readLine()
{
    QByteArray line;
    while (!m_failed) {
        // A byte at a time: what was typed ahead stays in the terminal for whoever asks next.
        char byte = '\0';
        const ssize_t count = read(m_file, &byte, 1);
        if (count == 1 && (byte == '\n' || byte == '\r'))
            return m_encoding.decode(line);
        if (count == 1 && line.size() < LONGEST_LINE)
            line += byte;
        if (count == 0)
            return std::nullopt;
        m_failed = count < 0 && errno != EINTR;
    }
    return std::nullopt;
}

}  // namespace Toolbox
