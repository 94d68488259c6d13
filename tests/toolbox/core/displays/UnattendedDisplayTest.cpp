#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <Toolbox/CInterface.h>

#include <set>

namespace {

using Toolbox::Alert;
using Toolbox::Answer;
using Toolbox::ButtonRole;
using Toolbox::Control;
using Toolbox::ControlKind;
using Toolbox::currentReport;
using Toolbox::TakeReport;
using Toolbox::UseUnattendedDisplay;

const auto command = [](UInt32 value) { return Answer{Answer::Kind::Command, value}; };
const auto item = [](UInt32 value) { return Answer{Answer::Kind::Item, value}; };
const auto button = [](UInt32 value) { return Answer{Answer::Kind::Button, value}; };

// ---- A window like a dialog: a pop-up, OK, Cancel, and buttons that do not end it

struct SampleWindow {
    SampleWindow()
        : disabledPopUp(made.addPopUp({{QStringLiteral("Nothing")}}))
        , popUp(made.addPopUp({{QStringLiteral("Small")}, {QStringLiteral("Medium")}, {QString(), 0, true, true},
              {QStringLiteral("Large"), 0, false}, {QStringLiteral("Huge")}}))
        , secondPopUp(made.addPopUp({{QStringLiteral("One")}, {QStringLiteral("Two")}}))
        , cancel(made.addButton(kHICommandCancel, ButtonRole::Cancel))
        , ok(made.addButton(kHICommandOK, ButtonRole::Default))
        , more(made.addButton('more'))
        , recorder(made.target(), eventNotHandledErr)
    {
        disabledPopUp.enabled = false;
        endAt({kHICommandOK, kHICommandCancel});
    }

    // Lets these commands end the window, and no other.
    void endAt(const std::set<MenuCommand>& commands)
    {
        recorder.action = [this, commands](const HICommand& sent) {
            if (commands.count(sent.commandID) != 0)
                QuitAppModalLoopForWindow(made.ref);
        };
    }

    OSStatus run(const std::vector<Answer>& answers)
    {
        TakeReport();
        UseUnattendedDisplay(answers);
        return RunAppModalLoopForWindow(made.ref);
    }

    TestWindow made;
    Control& disabledPopUp;
    Control& popUp;
    Control& secondPopUp;
    Control& cancel;
    Control& ok;
    Control& more;
    CommandRecorder recorder;
};

class UnattendedWindow : public WindowTest, protected SampleWindow { };

// clang-format off
const struct {
    const char* name;
    std::vector<Answer> answers;
    std::vector<MenuCommand> sent;  // a 0 for each item chosen
    SInt32 value;                   // of the pop-up, 1 before
    bool unfit;
    void (*change)(SampleWindow&) = [](SampleWindow&) {};
    const char* problem = "";  // of a window that was not ended
} WINDOW_CASES[] = {
    // name                        answers                           sent                          value unfit
    {"NoneConfirms",               {},                               {kHICommandOK},               1,    false},
    {"OKConfirms",                 {command(kHICommandOK)},          {kHICommandOK},               1,    false},
    {"CancelCancels",              {command(kHICommandCancel)},      {kHICommandCancel},           1,    false},
    {"ItemThenOK",                 {item(2)},                        {0, kHICommandOK},            2,    false},
    {"ItemsInOrder",               {item(5), item(2), command('more')}, {0, kHICommandOK, 0, kHICommandOK, 'more'}, 2,
        false, [](SampleWindow& w) { w.endAt({'more'}); }},
    {"ItemThatEndsIt",             {item(2)},                        {0},                          2,    false,
        [](SampleWindow& w) { w.endAt({0}); }},
    {"ItemWithoutAnOKIsUnfit",     {item(2)},                        {0, kHICommandCancel},        2,    true,
        [](SampleWindow& w) { w.ok.enabled = false; }},
    {"PressThatDoesNotEndIt",      {command('more'), item(2)},       {'more', 0, kHICommandOK},    2,    false},
    {"AnswersAfterTheEndAreLeft",  {command(kHICommandOK), item(9)}, {kHICommandOK},               1,    false},
    {"ItemZeroIsUnfit",            {item(0)},                        {kHICommandCancel},           1,    true},
    {"HugeItemIsUnfit",            {item(0xFFFFFFFF)},               {kHICommandCancel},           1,    true},
    {"UnknownCommandIsUnfit",      {command('what')},                {kHICommandCancel},           1,    true},
    {"CommandZeroIsUnfit",         {command(0)},                     {kHICommandCancel},           1,    true},
    {"ButtonOfAnAlertIsUnfit",     {button(1)},                      {kHICommandCancel},           1,    true},
    {"UnfitAfterAPress",           {command('more'), item(9)},       {'more', kHICommandCancel},   1,    true},
    {"NothingAfterAnUnfitOne",     {item(9), command(kHICommandOK)}, {kHICommandCancel},           1,    true},
    {"ItemThatAHandlerTakes",      {item(2)},                        {0, kHICommandOK},            1,    false,
        [](SampleWindow& w) { w.recorder.answer = noErr; }},
    {"ItemWithoutAPopUpIsUnfit",   {item(1)},                        {kHICommandCancel},           1,    true,
        [](SampleWindow& w) { w.popUp.hidden = true, w.secondPopUp.enabled = false; }},
    {"ButtonsOfARoleWhateverTheyCarry", {command(kHICommandOK), command(kHICommandCancel)}, {'inst', 'stop'}, 1, false,
        [](SampleWindow& w) { w.ok.command = 'inst', w.cancel.command = 'stop', w.endAt({'stop'}); }},
    {"NoDefaultButtonConfirmsByTheCommand", {},                      {kHICommandOK},               1,    false,
        [](SampleWindow& w) { w.ok.role = ButtonRole::Plain; }},
    {"AnotherDefaultButtonConfirms", {},                             {'more'},                     1,    false,
        [](SampleWindow& w) { w.ok.role = ButtonRole::Plain, w.more.role = ButtonRole::Default, w.endAt({'more'}); }},
    {"NothingToConfirmItWith",     {},                               {},                           1,    false,
        [](SampleWindow& w) { w.ok.enabled = false; },
        "no answer is left, and confirming the window does not end it"},
    {"CancellingDoesNotEndIt",     {item(9)},                        {kHICommandCancel},           1,    true,
        [](SampleWindow& w) { w.recorder.action = nullptr; },
        "an answer fits nothing in the window, and cancelling does not end it"},
};
// clang-format on

TEST_F(UnattendedWindow, IsGivenItsAnswersInOrderUntilItEnds)
{
    for (const auto& row : WINDOW_CASES) {
        SCOPED_TRACE(row.name);
        SampleWindow window;
        row.change(window);
        EXPECT_EQ(window.run(row.answers) == noErr, row.problem == std::string());
        EXPECT_EQ(window.recorder.ids(), row.sent);
        EXPECT_EQ(window.popUp.value, row.value);
        EXPECT_EQ(window.secondPopUp.value, 1);
        EXPECT_EQ(currentReport().answerWasUnfit, row.unfit);
        EXPECT_EQ(currentReport().displayProblem, row.problem);
    }
}

TEST_F(UnattendedWindow, GoesOnToTheNextWindowWithTheAnswersThatAreLeft)
{
    EXPECT_EQ(run({command(kHICommandCancel), item(2)}), noErr);
    EXPECT_EQ(RunAppModalLoopForWindow(made.ref), noErr);
    EXPECT_EQ(recorder.ids(), (std::vector<MenuCommand>{kHICommandCancel, 0, kHICommandOK}));
}

TEST_F(UnattendedWindow, SaysWhetherTheAnswersRanOut)
{
    EXPECT_EQ(run({command('more')}), noErr);
    EXPECT_TRUE(currentReport().answersRanOut);
    EXPECT_EQ(run({item(2)}), noErr);
    EXPECT_FALSE(currentReport().answersRanOut);
    EXPECT_EQ(run({item(9)}), noErr);
    EXPECT_FALSE(currentReport().answersRanOut) << "an unfit answer cancels";
    EXPECT_EQ(RunAppModalLoopForWindow(made.ref), noErr);
    EXPECT_TRUE(currentReport().answersRanOut) << "in the next window";
}

TEST_F(UnattendedWindow, PressesTheFirstUsableControlOfACommand)
{
    made.addButton('many').hidden = true;
    made.addButton('many').enabled = false;
    Control& box = made.add(ControlKind::GroupBox);
    const Control& usable = made.addTo(box, ControlKind::Button, 'many');
    made.addButton('many');
    EXPECT_EQ(run({command('many')}), noErr);
    ASSERT_EQ(recorder.ids(), (std::vector<MenuCommand>{'many', kHICommandOK}));
    EXPECT_EQ(static_cast<void*>(recorder.commands[0].menu.menuRef), static_cast<void*>(usable.ref()));
}

TEST_F(UnattendedWindow, CancelsByTheWindowsOwnCommandWhereThereIsNoCancelButton)
{
    for (const bool enabled : {true, false}) {
        cancel.role = enabled ? ButtonRole::Plain : ButtonRole::Cancel;
        cancel.enabled = enabled;
        recorder.commands.clear();
        EXPECT_EQ(run({item(9)}), noErr);
        ASSERT_EQ(recorder.ids(), std::vector<MenuCommand>{kHICommandCancel});
        EXPECT_EQ(recorder.commands[0].attributes, UInt32{kHICommandFromWindow});
    }
}

// ---- Windows that nothing ends

TEST_F(UnattendedWindow, FailsWhenConfirmingDoesNotEndItAlsoInWordsForInstallersInC)
{
    recorder.action = nullptr;
    EXPECT_EQ(run({item(2), command('more')}), eventInternalErr);
    EXPECT_EQ(recorder.ids(), (std::vector<MenuCommand>{0, kHICommandOK, 'more', kHICommandOK}));
    EXPECT_FALSE(currentReport().answerWasUnfit);
    Toolbox::remark("a remark");
    static std::vector<std::string> lines;
    lines.clear();
    ToolboxTellReport([](const char* line) { lines.push_back(line); });
    EXPECT_EQ(
        lines, (std::vector<std::string>{"a remark", "no answer is left, and confirming the window does not end it"}));
}

// ---- What handlers do meanwhile

TEST_F(UnattendedWindow, MayBeDisposedOfByEachOfItsCommands)
{
    for (const Answer& answer : {item(2), command('more'), command(kHICommandOK), item(9)}) {
        TestWindow doomed;
        doomed.addPopUp({{QStringLiteral("One")}, {QStringLiteral("Two")}});
        doomed.addButton('more');
        doomed.addButton(kHICommandOK, ButtonRole::Default);
        CommandRecorder disposer(doomed.target());
        disposer.action = [&](const HICommand&) { DisposeWindow(doomed.ref); };
        UseUnattendedDisplay({answer, item(1)});
        EXPECT_EQ(RunAppModalLoopForWindow(doomed.ref), noErr);
        EXPECT_EQ(disposer.commands.size(), 1u);
    }
}

TEST_F(UnattendedWindow, SharesItsAnswersWithAWindowThatItsHandlerRuns)
{
    TestWindow inner;
    inner.addButton('done');
    CommandRecorder innerRecorder(inner.target());
    innerRecorder.action = [&](const HICommand&) { QuitAppModalLoopForWindow(inner.ref); };
    recorder.action = [&](const HICommand& sent) {
        if (sent.commandID == 'more')
            EXPECT_EQ(RunAppModalLoopForWindow(inner.ref), noErr);
        else
            QuitAppModalLoopForWindow(made.ref);
    };
    EXPECT_EQ(run({command('more'), command('done'), command(kHICommandCancel)}), noErr);
    EXPECT_EQ(recorder.ids(), (std::vector<MenuCommand>{'more', kHICommandCancel}));
    EXPECT_EQ(innerRecorder.ids(), std::vector<MenuCommand>{'done'});
}

TEST_F(UnattendedWindow, CountsTheAnswersThatItTakes)
{
    EXPECT_EQ(run({command('more'), item(2), item(1), button(1)}), noErr);
    EXPECT_EQ(currentReport().answersTaken, 2u);
    EXPECT_EQ(Toolbox::currentDisplay()->runAlert({}), 0) << "the next one is for a window";
    EXPECT_EQ(currentReport().answersTaken, 2u);
}

TEST_F(UnattendedWindow, SaysWhetherTheAnswersRanOutForAnAlert)
{
    TakeReport();
    UseUnattendedDisplay({button(1)});
    EXPECT_FALSE(currentReport().answersRanOut);
    Toolbox::currentDisplay()->runAlert({});
    EXPECT_FALSE(currentReport().answersRanOut);
    Toolbox::currentDisplay()->runAlert({});
    EXPECT_TRUE(currentReport().answersRanOut);
    TakeReport();
    UseUnattendedDisplay({item(1)});
    Toolbox::currentDisplay()->runAlert({});
    EXPECT_FALSE(currentReport().answersRanOut) << "there is one, but for a window";
}

// ---- Alerts

// clang-format off
const struct {
    const char* name;
    SInt16 buttons;  // how many
    SInt16 defaultButton;
    SInt16 cancelButton;
    SInt16 disabled;  // the number of one, or 0
    std::vector<Answer> answers;
    SInt16 pressed;
    bool unfit;
} ALERT_CASES[] = {
    // name                          buttons default cancel disabled answers                  pressed unfit
    {"NoneTakesTheDefault",             2,      2,      1,     0, {},                             2, false},
    {"NoneWithoutDefaultTakesFirst",    2,      0,      0,     0, {},                             1, false},
    {"NoneTakesNoDisabledFirst",        2,      0,      0,     1, {},                             2, false},
    {"NoneTakesNoDisabledDefault",      2,      2,      0,     2, {},                             1, false},
    {"NoneWithoutButtonsIsDefault",     0,      1,      0,     0, {},                             1, false},
    {"Button",                          3,      1,      2,     0, {button(3)},                    3, false},
    {"ButtonThatIsNotThere",            2,      2,      1,     0, {button(3)},                    2, true},
    {"ButtonZero",                      2,      2,      1,     0, {button(0)},                    2, true},
    {"ButtonOfMoreThan16Bits",          2,      2,      1,     0, {button(0x10001)},              2, true},
    {"ButtonThatIsDisabled",            2,      2,      1,     1, {button(1)},                    2, true},
    {"OKPressesTheFirst",               2,      2,      1,     0, {command(kHICommandOK)},        1, false},
    {"OKThatIsDisabled",                2,      2,      0,     1, {command(kHICommandOK)},        2, true},
    {"CancelPressesTheCancelButton",    3,      1,      3,     0, {command(kHICommandCancel)},    3, false},
    {"CancelWithoutCancelButton",       1,      1,      0,     0, {command(kHICommandCancel)},    1, true},
    {"CommandOfAWindow",                2,      2,      1,     0, {command('more')},              2, false},
};
// clang-format on

TEST_F(UnattendedWindow, LeavesToAlertsWhatIsMeantForThem)
{
    for (const auto& row : ALERT_CASES) {
        SCOPED_TRACE(row.name);
        Alert alert;
        for (SInt16 number = 1; number <= row.buttons; ++number)
            alert.buttons.push_back({number, QStringLiteral("Button"), number != row.disabled, {}});
        alert.defaultButton = row.defaultButton;
        alert.cancelButton = row.cancelButton;
        TakeReport();
        UseUnattendedDisplay(row.answers);
        EXPECT_EQ(Toolbox::currentDisplay()->runAlert(alert), row.pressed);
        EXPECT_EQ(currentReport().answerWasUnfit, row.unfit);
        const bool isForAWindow = row.name == std::string("CommandOfAWindow");
        EXPECT_EQ(currentReport().answersTaken, isForAWindow ? 0u : row.answers.size());
    }
}

TEST_F(UnattendedWindow, PressesTheFirstButtonOfAnAlertForOKWhateverItsNumber)
{
    Alert alert;
    alert.buttons = {{2, QStringLiteral("OK"), true, {}}, {3, QStringLiteral("Stop"), true, {}}};
    alert.defaultButton = 3;
    UseUnattendedDisplay({command(kHICommandOK)});
    EXPECT_EQ(Toolbox::currentDisplay()->runAlert(alert), 2);
}

Alert twoButtons()
{
    Alert alert;
    alert.buttons = {{1, QStringLiteral("OK"), true, {}}, {2, QStringLiteral("Cancel"), true, {}}};
    alert.defaultButton = 2;
    return alert;
}

TEST_F(UnattendedWindow, KeepsWhatIsMeantForAWindowWhenAnAlertComesFirstAndGivesEachAlertOneAnswer)
{
    UseUnattendedDisplay({item(5), command('more'), button(1), button(1)});
    EXPECT_EQ(Toolbox::currentDisplay()->runAlert(twoButtons()), 2);
    recorder.action = [this](const HICommand& sent) {
        if (sent.commandID != 'more')
            return;
        for (const int pressed : {1, 1, 2})
            EXPECT_EQ(Toolbox::currentDisplay()->runAlert(twoButtons()), pressed);
        QuitAppModalLoopForWindow(made.ref);
    };
    EXPECT_EQ(RunAppModalLoopForWindow(made.ref), noErr);
    EXPECT_EQ(popUp.value, 5);
    EXPECT_EQ(recorder.ids(), (std::vector<MenuCommand>{0, kHICommandOK, 'more'}));
    EXPECT_FALSE(currentReport().answerWasUnfit);
}

}  // namespace
