#include "tests/toolbox/core/displays/Dialog.h"
#include "tests/toolbox/core/terminal/PseudoTerminal.h"

#include <unistd.h>

#include <csignal>
#include <tuple>

namespace {

using Toolbox::Alert;
using Toolbox::ButtonRole;
using Toolbox::Control;
using Toolbox::ControlKind;

// ---- Windows

using Change = std::function<void(Dialog&)>;

std::function<std::string()> runChanged(const Change& change)
{
    return [change] {
        Toolbox::UseTerminalDisplay();
        Dialog dialog;
        change(dialog);
        return dialog.run();
    };
}

void leaveAsItIs(Dialog&) { }

const std::string HINT = "\n? shows this again, q cancels.\n";
const std::string QUESTION = "Line or name, or Return for OK: ";
const std::string SHORT = "Choices: 1 Small, 2 日本 (Medium), 3 Large, OK, Cancel.\n";

// Makes standard input a pipe that holds these bytes. If there are any, what is shown begins with the words for that.
void fillStandardInput(const std::string& bytes)
{
    int input[2];
    EXPECT_EQ(pipe(input), 0);
    EXPECT_EQ(write(input[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    dup2(input[0], STDIN_FILENO);
}

const std::string NOT_READ = "What standard input holds is not read: answer here.\n";

TEST(TerminalWindow, ShowsItsTextsAndNumbersItsItemsAndAgainWhenAsked)
{
    PseudoTerminal terminal("C.UTF-8", runChanged([](Dialog&) { fillStandardInput(""); }));
    const std::string shown = "\nPaper & ink\n"
                              "\n"
                              "Choose a size:\n"
                              "  1  Small\n"
                              "  2  日本 (Medium) - chosen\n"
                              "  3  Large\n"
        + HINT + QUESTION;
    EXPECT_EQ(terminal.readUntil(QUESTION), shown);
    EXPECT_EQ(terminal.readAfter("?\n", QUESTION), "?\n" + shown);
}

TEST(TerminalWindow, StaysReadableInASCII)
{
    PseudoTerminal terminal("C", runChanged(leaveAsItIs));
    const std::string shown = terminal.readUntil(QUESTION);
    EXPECT_NE(shown.find("  2  Medium - chosen\n"), std::string::npos) << shown;
    EXPECT_EQ(terminal.readAfter("medium\n", QUESTION), "medium\nMedium is chosen.\n" + QUESTION);
    EXPECT_NE(terminal.readAfter("日本\n", QUESTION).find("\nMedium is chosen.\n"), std::string::npos);
    EXPECT_NE(terminal.readAfter("ñ\n", QUESTION).find("\nThere is no such choice here. "), std::string::npos);
    EXPECT_NE(terminal.readAfter("x\t\n", QUESTION).find("\nThere is no \"x\" here. "), std::string::npos);
    EXPECT_EQ(terminal.report("\n"), "ended: item 2 item 2 ok");
}

const std::tuple<const char*, const char*, const char*> SESSION_CASES[] = {
    {"NameThatIsNotASCII", "日本\n\n", "ended: item 2 ok"},
    {"SecondThoughts", "1\n3\n\n", "ended: item 1 item 3 ok"},
    {"ChoiceThenCancel", "3\ncancel\n", "ended: item 3 cancel"},
    {"NonsenseThenReturn", "nonsense\n7\n-1\n\n", "ended: ok"},
    {"Quit", "3\nq\n", "ended: item 3 cancel"},
    {"HelpThenReturn", "?\nhelp\n\n", "ended: ok"},
    {"ChoiceThenEndOfInput", "3\n\x04", "ended: item 3 cancel"},
    {"HalfALineThenEndOfInput", "3\x04\x04", "ended: cancel"},
};

TEST(TerminalWindow, TakesWhatIsTypedForCommands)
{
    for (const auto& [name, keys, report] : SESSION_CASES) {
        PseudoTerminal terminal("C.UTF-8", runChanged(leaveAsItIs));
        EXPECT_EQ(terminal.reportAfter(QUESTION, keys), report) << name;
    }
}

TEST(TerminalWindow, SaysWhatWasChosenAndWhatWasNotUnderstood)
{
    PseudoTerminal terminal("C.UTF-8", runChanged(leaveAsItIs));
    terminal.readUntil(QUESTION);
    EXPECT_EQ(terminal.readAfter("9\n", QUESTION), "9\nThere is no \"9\" here. " + SHORT + QUESTION);
    EXPECT_NE(
        terminal.readAfter("\x1B[A\n", QUESTION).find("\nArrows and such keys do nothing here. "), std::string::npos);
    EXPECT_EQ(terminal.readAfter("la\n", QUESTION), "la\nLarge is chosen.\n" + QUESTION);
    EXPECT_EQ(terminal.report("\n"), "ended: item 3 ok");
}

TEST(TerminalWindow, DoesNotSayThatItChoseWhatAHandlerTook)
{
    PseudoTerminal terminal("C.UTF-8", runChanged([](Dialog& dialog) { dialog.recorder.answer = noErr; }));
    terminal.readUntil(QUESTION);
    EXPECT_EQ(terminal.readAfter("3\n", QUESTION), "3\n" + QUESTION);
    EXPECT_EQ(terminal.report("\n"), "ended: item 3 ok");
}

TEST(TerminalWindow, IsCancelledWhenTheTerminalHangsUpOrThereIsNone)
{
    PseudoTerminal terminal("C.UTF-8", runChanged([](Dialog&) { std::signal(SIGHUP, SIG_IGN); }));
    terminal.readUntil(QUESTION);
    terminal.hangUp();
    EXPECT_EQ(terminal.report(), "ended: cancel");
    EXPECT_EQ(reportWithoutTerminal(runChanged(leaveAsItIs)), "ended: cancel");
}

void giveOtherTitles(Dialog& dialog)
{
    dialog.ok.title = QStringLiteral("Install");
    dialog.cancel.title = QStringLiteral("Never mind:");
}

const std::tuple<const char*, Change, std::string, const char*, const char*> WINDOW_CASES[] = {
    {"WithoutACancelButton", [](Dialog& dialog) { dialog.cancel.hidden = true; }, QUESTION, "cancel\n",
        "ended: closed"},
    {"WithoutACancelButtonAtTheEndOfInput", [](Dialog& dialog) { dialog.cancel.enabled = false; }, QUESTION, "\x04",
        "ended: closed"},
    {"WithoutADefaultButton", [](Dialog& dialog) { dialog.ok.hidden = true; }, "Line or name: ", "\nok\nc\n",
        "ended: cancel"},
    {"WithAPlainOKButton", [](Dialog& dialog) { dialog.ok.role = ButtonRole::Plain; }, QUESTION, "\n", "ended: ok"},
    {"CancelWithOtherTitles", giveOtherTitles, "Line or name, or Return for Install: ", "cancel\n", "ended: cancel"},
    {"OKWithOtherTitles", giveOtherTitles, "Line or name, or Return for Install: ", "ok\n", "ended: ok"},
    {"WithAnotherButton", [](Dialog& dialog) { dialog.add(ControlKind::Button, "Apply").command = 'aply'; },
        "Line or name, Apply, or Return for OK: ", "apply\nok\n", "ended: other ok"},
    {"WithNothingToChoose", [](Dialog& dialog) { dialog.popUp.enabled = false; }, "Return for OK: ", "1\n\n",
        "ended: ok"},
    {"WithDisabledItems",
        [](Dialog& dialog) {
            dialog.popUp.items[0].enabled = false;
            dialog.popUp.items[1].separator = true;
        },
        QUESTION, "1\nok\n", "ended: item 3 ok"},
    {"ThatNothingEnds", [](Dialog& dialog) { dialog.recorder.action = {}; }, QUESTION, "ok\ncancel\n\x04",
        "the terminal gives no more input, and cancelling the window does not end it: ok cancel cancel"},
};

TEST(TerminalWindow, IsAskedAboutAsItIs)
{
    for (const auto& [name, change, question, keys, report] : WINDOW_CASES) {
        PseudoTerminal terminal("C.UTF-8", runChanged(change));
        EXPECT_EQ(terminal.reportAfter(HINT + question, keys), report) << name;
    }
}

TEST(TerminalWindow, SaysThatReturnMeansNothingWithoutADefaultButton)
{
    PseudoTerminal terminal("C.UTF-8", runChanged([](Dialog& dialog) { dialog.ok.enabled = false; }));
    terminal.readUntil("Line or name: ");
    EXPECT_EQ(terminal.readAfter("\n", "Line or name: "),
        "\nReturn alone means nothing here. Choices: 1 Small, 2 日本 (Medium), 3 Large,\nCancel.\nLine or name: ");
}

TEST(TerminalWindow, ShowsEveryKindOfControl)
{
    PseudoTerminal terminal("C.UTF-8", runChanged([](Dialog& dialog) {
        fillStandardInput("\n");
        dialog.made.window().title = QStringLiteral("Paper\r& ink ");
        dialog.popUp.title = QStringLiteral("Size:");
        dialog.popUp.items[0].title = QStringLiteral("\rSmall");
        dialog.add(ControlKind::GroupBox, "More\x1B[2J");
        dialog.add(ControlKind::Separator, "line");
        dialog.add(ControlKind::Other, "other");
        dialog.add(ControlKind::StaticText, "Hidden").hidden = true;
        dialog.add(ControlKind::StaticText, "Two\rlines");
    }));
    EXPECT_EQ(terminal.readUntil(QUESTION),
        NOT_READ
            + "\nPaper & ink\n"
              "\n"
              "Choose a size:\n"
              "Size:\n"
              "  1  Small\n"
              "  2  日本 (Medium) - chosen\n"
              "  3  Large\n"
              "More\\x1b[2J\n"
              "Two\n"
              "lines\n"
            + HINT + QUESTION);
}

TEST(TerminalWindow, ListsItsChoicesInNoTimeHoweverManyTheyAre)
{
    PseudoTerminal terminal("C.UTF-8", runChanged([](Dialog& dialog) {
        for (int count = 0; count < 20'000; ++count)
            dialog.made.addPopUp({{QStringLiteral("x")}});
    }));
    terminal.readUntil(QUESTION);
}

TEST(TerminalWindow, MayBeDisposedOfByAHandler)
{
    for (const char* const keys : {"ok\n", "3\n", "cancel\n", "\x04"}) {
        PseudoTerminal terminal("C.UTF-8", runChanged([](Dialog& dialog) {
            dialog.recorder.action = [ref = dialog.made.ref](const HICommand&) { DisposeWindow(ref); };
        }));
        EXPECT_EQ(terminal.reportAfter(QUESTION, keys).value_or("none").substr(0, 6), "ended:") << keys;
    }
}

TEST(TerminalWindow, MayRunAnotherInside)
{
    PseudoTerminal terminal("C.UTF-8", runChanged([](Dialog& dialog) {
        dialog.recorder.action = [&dialog](const HICommand& command) {
            Dialog inner;
            inner.made.window().title = QStringLiteral("Inner");
            if (command.commandID == 0)
                RunAppModalLoopForWindow(inner.made.ref);
            else
                QuitAppModalLoopForWindow(dialog.made.ref);
        };
    }));
    terminal.readUntil(QUESTION);
    EXPECT_NE(terminal.readAfter("3\n", QUESTION).find("\nInner\n"), std::string::npos);
    EXPECT_EQ(terminal.readAfter("\n", QUESTION), "\nLarge is chosen.\n" + QUESTION);
    EXPECT_EQ(terminal.report("\n"), "ended: item 3 ok");
}

// ---- Alerts

Alert threeUsable(SInt16 cancelButton = 2)
{
    Alert alert = fourButtons(1, cancelButton);
    alert.text += QStringLiteral("\x1B[2J");
    alert.buttons[3].enabled = false;
    return alert;
}

Alert withoutKeys()
{
    Alert alert = threeUsable(0);
    alert.defaultButton = 0;
    alert.buttons[0].enabled = false;
    return alert;
}

std::function<std::string()> runAlertOf(const Alert& alert)
{
    return [alert] {
        Toolbox::UseTerminalDisplay();
        return std::to_string(Toolbox::runAlert(alert));
    };
}

const std::string ALERT_QUESTION = "Line or name, or Return for Yes & no: ";

TEST(TerminalAlert, ShowsItsTextsAndNumbersItsButtons)
{
    PseudoTerminal terminal("C.UTF-8", [] {
        fillStandardInput("\n");
        return runAlertOf(threeUsable())();
    });
    EXPECT_EQ(terminal.readUntil(ALERT_QUESTION),
        NOT_READ
            + "\nCaution: Replace <b>everything</b> & more?\n"
              "Really?\\x1b[2J\n"
              "\n"
              "It cannot be undone.\n"
              "\n"
              "  1  Yes & no - default\n"
              "  2  Cancel\n"
              "  3  Don't Save\n"
              "\n"
            + ALERT_QUESTION);
}

TEST(TerminalAlert, SaysWhichKindItIs)
{
    const std::pair<AlertType, const char*> kinds[] = {{kAlertStopAlert, "\nStop: Done.\n"},
        {kAlertNoteAlert, "\nNote: Done.\n"}, {kAlertCautionAlert, "\nCaution: Done.\n"},
        {kAlertPlainAlert, "\nDone.\n"}, {9, "\nDone.\n"}};
    for (const auto& [type, start] : kinds) {
        Alert alert = oneButton();
        alert.type = type;
        PseudoTerminal terminal("C.UTF-8", runAlertOf(alert));
        EXPECT_EQ(
            terminal.readUntil("OK: "), start + std::string("\n  1  OK - default\n\nLine or name, or Return for OK: "));
    }
}

const std::tuple<const char*, Alert, const char*, const char*> ALERT_CASES[] = {
    {"Return", threeUsable(), "\n", "1"},
    {"Name", threeUsable(), "don't save\n", "3"},
    {"DisabledButton", threeUsable(), "4\nhelp\n3\n", "3"},
    {"Nonsense", threeUsable(), "nonsense\n0\n2\n", "2"},
    {"QuitCancels", threeUsable(), "?\nq\n", "2"},
    {"QuitIsNothingWithoutCancel", threeUsable(0), "q\n3\n", "3"},
    {"QuitPressesTheOnlyButton", oneButton(), "q\n", "1"},
    {"EndOfInputCancels", threeUsable(), "\x04", "2"},
    {"EndOfInputTakesTheDefault", threeUsable(0), "\x04", "1"},
    {"EndOfInputTakesTheFirstThatCanBePressed", withoutKeys(), "\x04", "2"},
    {"ReturnWithoutADefault", withoutKeys(), "\n3\n", "3"},
};

TEST(TerminalAlert, SaysThatReturnMeansNothingWithoutADefaultButton)
{
    PseudoTerminal terminal("C.UTF-8", runAlertOf(withoutKeys()));
    terminal.readUntil("Line or name: ");
    EXPECT_EQ(terminal.readAfter("\n", "Line or name: "),
        "\nReturn alone means nothing here. Choices: 2 Cancel, 3 Don't Save.\nLine or name: ");
}

TEST(TerminalAlert, TakesAButton)
{
    for (const auto& [name, alert, keys, report] : ALERT_CASES) {
        PseudoTerminal terminal("C.UTF-8", runAlertOf(alert));
        const std::string confirming = alert.buttons[0].title.simplified().toStdString();
        const std::string question = "Line or name" + (alert.defaultButton == 0 ? "" : ", or Return for " + confirming);
        EXPECT_EQ(terminal.reportAfter(question + ": ", keys), report) << name;
    }
    EXPECT_EQ(reportWithoutTerminal(runAlertOf(threeUsable())), "2");
    EXPECT_EQ(Alert().unansweredButton(), 0) << "there is none";
}

}  // namespace
