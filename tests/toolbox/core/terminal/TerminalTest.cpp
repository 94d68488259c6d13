#include "toolbox/core/terminal/Terminal.h"

#include "tests/toolbox/core/terminal/PseudoTerminal.h"

#include <Toolbox/Displays.h>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <tuple>
#include <utility>

namespace {

using Toolbox::Terminal;

const std::string DONE = "done\n";

// What the terminal shows when `write` has written to it, without the mark that it is done.
std::string written(const char* locale, const std::function<void(Terminal&)>& write)
{
    PseudoTerminal terminal(locale, [&] {
        Terminal opened;
        write(opened);
        opened.writeLines(QStringLiteral("done"));
        return "written";
    });
    const std::string text = terminal.readUntil(DONE);
    return text.substr(0, text.size() - DONE.size());
}

std::string writtenLines(const QString& text)
{
    return written("C.UTF-8", [&](Terminal& terminal) { terminal.writeLines(text); });
}

std::string describe(const std::optional<QString>& line)
{
    return line ? "[" + line->toStdString() + "]" : "nothing";
}

// What the answer to a question is when `keys` are typed.
std::string answerTo(const std::string& keys)
{
    PseudoTerminal terminal("C.UTF-8", [] { return describe(Terminal().ask(QStringLiteral("? "))); });
    return terminal.reportAfter("? ", keys).value_or("no report");
}

// ---- Writing

TEST(TerminalLines, AreWrittenInTheLocalesEncodingWithoutControlCharacters)
{
    EXPECT_EQ(writtenLines(QStringLiteral("one\n  two\n\nthree")), "one\n  two\n\nthree\n");
    EXPECT_EQ(writtenLines(QString()), "\n");
    EXPECT_EQ(writtenLines(QStringLiteral("a\x1B[2Jb\u009B1mc\td\a")), "a\\x1b[2Jb\\u009b1mc\\td\\x07\n");
    const auto write = [](Terminal& terminal) { terminal.writeLines(QStringLiteral("日本語 (Japanese) é")); };
    EXPECT_EQ(written("C.UTF-8", write), "日本語 (Japanese) é\n");
    EXPECT_EQ(written("C", write), "??? (Japanese) e\n");
}

const QString FORTY(40, QLatin1Char('x'));
const QString EIGHTY(80, QLatin1Char('x'));
const QString WIDE_FORTY(40, QChar(0x65E5));

const std::tuple<const char*, QString, QString> BREAK_CASES[] = {
    {"JustFits", EIGHTY, EIGHTY},
    {"AtTheLastBlank", FORTY + " " + FORTY, FORTY + "\n" + FORTY},
    {"WhereTheBlankIsTheFirstTooMany", EIGHTY + " y", EIGHTY + "\ny"},
    {"AtTheLastOfSeveralBlanks", "a b " + FORTY + " " + FORTY, "a b " + FORTY + "\n" + FORTY},
    {"TwiceInALongWord", EIGHTY + EIGHTY + "y", EIGHTY + "\n" + EIGHTY + "\ny"},
    {"WideCharactersThatDoNot", WIDE_FORTY + QChar(0x672C), WIDE_FORTY + "\n" + QChar(0x672C)},
    {"WideWordThatFillsTheNextLine", "a " + WIDE_FORTY, "a\n" + WIDE_FORTY},
    {"WideCharacterThatFitsHalf", "x" + WIDE_FORTY, "x" + WIDE_FORTY.chopped(1) + "\n" + QChar(0x65E5)},
};

TEST(TerminalLines, AreBrokenWhereTheTerminalEnds)
{
    for (const auto& [name, line, broken] : BREAK_CASES)
        EXPECT_EQ(writtenLines(line), broken.toStdString() + "\n") << name;
    for (const char* const locale : {"C.UTF-8", "C"}) {
        const auto write = [](Terminal& terminal) {
            terminal.writeLines(EIGHTY.chopped(5) + QStringLiteral(" 3\u00A0xyz"));
        };
        EXPECT_EQ(written(locale, write), EIGHTY.chopped(5).toStdString() + "\n3 xyz\n") << locale;
    }
}

TEST(TerminalLines, AreAsWideAsTheTerminal)
{
    for (const auto& [columns, shown] :
        {std::pair(20, 20), std::pair(40, 40), std::pair(100, 100), std::pair(0, 80), std::pair(1, 20)}) {
        PseudoTerminal terminal(
            "C.UTF-8",
            [] {
                Terminal().writeLines(QString(101, QLatin1Char('x')) + QStringLiteral("\ndone"));
                return "";
            },
            static_cast<unsigned short>(columns));
        EXPECT_EQ(terminal.readUntil(DONE).find('\n'), static_cast<std::size_t>(shown)) << columns;
    }
}

TEST(TerminalLines, AreBrokenInNoTimeHoweverLongTheyAre)
{
    const QString words = QStringLiteral("word ").repeated(200'000);
    PseudoTerminal terminal("C.UTF-8", [&] {
        Terminal().writeLines(words + QString(1'000'000, QLatin1Char('x')) + QStringLiteral("\ndone"));
        return "";
    });
    terminal.readUntil(DONE);
}

TEST(NumberedEntries, ContinueBelowTheirText)
{
    EXPECT_EQ(written("C.UTF-8",
                  [](Terminal& terminal) {
                      terminal.writeNumbered(1, QStringLiteral("One\nline"));
                      terminal.writeNumbered(12, FORTY + " " + FORTY);
                      terminal.writeNumbered(13, EIGHTY);
                      terminal.writeNumbered(12345, QStringLiteral("Far"));
                  }),
        "  1  One line\n"
        " 12  "
            + FORTY.toStdString() + "\n     " + FORTY.toStdString()
            + "\n"
              " 13  "
            + EIGHTY.toStdString().substr(0, 75) + "\n     " + EIGHTY.toStdString().substr(75)
            + "\n"
              "12345  Far\n");
}

// ---- Reading

TEST(TerminalAnswer, IsTheLineOrNothingAtTheEndOfInput)
{
    EXPECT_EQ(answerTo("yes\n"), "[yes]");
    EXPECT_EQ(answerTo("\n"), "[]");
    EXPECT_EQ(answerTo("日本\n"), "[日本]");
    EXPECT_EQ(answerTo("\x04"), "nothing");
    EXPECT_EQ(answerTo("half\x04\x04"), "nothing");
}

std::string answersToTwo()
{
    const std::string first = describe(Terminal().ask(QStringLiteral("1? ")));
    return first + describe(Terminal().ask(QStringLiteral("2? ")));
}

TEST(TerminalAnswer, EndsWithReturnWhereTheTerminalDoesNotMakeItALineFeed)
{
    PseudoTerminal terminal("C.UTF-8", [] {
        const int file = open("/dev/tty", O_RDWR);
        termios settings;
        tcgetattr(file, &settings);
        cfmakeraw(&settings);  // as a program may leave it that was killed
        tcsetattr(file, TCSANOW, &settings);
        return describe(Terminal().ask(QStringLiteral("? ")));
    });
    const std::string longest(4096, 'y');
    EXPECT_EQ(terminal.reportAfter("? ", longest + "no more\r"), "[" + longest + "]");
}

TEST(TerminalAnswer, MayFollowAnEndOfInput)
{
    PseudoTerminal terminal("C.UTF-8", answersToTwo);
    terminal.readUntil("1? ");
    EXPECT_EQ(terminal.readAfter("\x04", "2? "), "\n2? ") << "the line that nobody ended is ended";
    EXPECT_EQ(terminal.report("two\n"), "nothing[two]");
}

TEST(TerminalQuestion, StandsThereAgainAfterAStop)
{
    PseudoTerminal terminal("C.UTF-8", [] { return describe(Terminal().ask(QStringLiteral("? "))); });
    terminal.readUntil("? ");
    terminal.resume();
    EXPECT_EQ(terminal.reportAfter("? ", "yes\n"), "[yes]");
}

TEST(TerminalQuestion, LeavesTheSignalOfContinuingAsItWas)
{
    PseudoTerminal terminal("C.UTF-8", [] {
        std::signal(SIGCONT, SIG_IGN);
        Terminal().ask(QStringLiteral("? "));
        return std::signal(SIGCONT, SIG_DFL) == SIG_IGN ? "as it was" : "another";
    });
    EXPECT_EQ(terminal.reportAfter("? ", "yes\n"), "as it was");
}

// ---- Whether there is a terminal

std::string whetherTerminalAnswers()
{
    return Toolbox::TerminalAnswers() ? "yes" : "no";
}

TEST(TerminalAnswers, WhereTheProcessHasOne)
{
    EXPECT_EQ(PseudoTerminal("C", whetherTerminalAnswers).report(), "yes");
    EXPECT_EQ(reportWithoutTerminal(whetherTerminalAnswers), "no");
}

TEST(TerminalAnswers, NotInTheBackground)
{
    PseudoTerminal terminal("C", [] {
        const pid_t background = fork();
        if (background == 0) {
            setpgid(0, 0);
            _exit(Toolbox::TerminalAnswers() ? 1 : 0);
        }
        int status = 0;
        waitpid(background, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? "no" : "yes";
    });
    EXPECT_EQ(terminal.report(), "no");
}

}  // namespace
