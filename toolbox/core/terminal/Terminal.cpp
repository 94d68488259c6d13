#include "toolbox/core/terminal/Terminal.h"

#include <QList>
#include <QStringList>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace Toolbox {

namespace {

constexpr int COLUMNS = 80;
constexpr qsizetype LONGEST_LINE = 4096;  // what a terminal takes; the rest of a longer line is dropped

int columnsOf(const QString& text, const TerminalEncoding& encoding)
{
    int columns = 0;
    for (const uint character : text.toUcs4())
        columns += encoding.columns(character);
    return columns;
}

// `line` broken at a blank, or in the middle of a word that is longer than a line, wherever it would go past the
// columns. What follows a break begins below `hanging` columns.
QString breakLine(const QString& line, int hanging, const TerminalEncoding& encoding)
{
    const QString indentation(hanging, QLatin1Char(' '));
    QString broken;
    QString last;  // the line that is being filled
    const QList<uint> characters = line.toUcs4();
    for (const char32_t character : characters) {
        const QString next = QString::fromUcs4(&character, 1);
        if (columnsOf(last + next, encoding) <= COLUMNS) {
            last += next;
            continue;
        }
        const bool isBlank = next == QLatin1String(" ");
        QString word = isBlank ? QString() : last.section(QLatin1Char(' '), -1);
        if (word == last.trimmed() || columnsOf(indentation + word + next, encoding) > COLUMNS)
            word.clear();  // it would be no better off in a line of its own
        last.chop(word.size());
        while (last.endsWith(QLatin1Char(' ')))
            last.chop(1);
        broken += last + QLatin1Char('\n');
        last = indentation + word + (isBlank ? QString() : next);
    }
    return broken + last;
}

}  // namespace

Terminal::Terminal()
    : m_file(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC))
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
        write(breakLine(line, 0, m_encoding) + QLatin1Char('\n'));
}

void Terminal::writeNumbered(int number, const QString& text)
{
    const QString start = QStringLiteral("%1  ").arg(number, 3);
    const QString line = start + m_encoding.showable(text.simplified());
    write(breakLine(line, static_cast<int>(start.size()), m_encoding) + QLatin1Char('\n'));
}

std::optional<QString> Terminal::ask(const QString& text)
{
    write(breakLine(m_encoding.showable(text), 0, m_encoding));
    const std::optional<QString> line = readLine();
    if (!line)
        write(QStringLiteral("\n"));  // nobody ended the line
    return line;
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
