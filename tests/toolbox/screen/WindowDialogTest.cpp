#include "tests/toolbox/screen/OnScreen.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QListView>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextLayout>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string>
#include <tuple>
#include <utility>

namespace {

using Toolbox::ButtonRole;
using Toolbox::Control;
using Toolbox::ControlKind;

class WindowOnScreen : public OnScreen { };

// ---- What is done in it

struct SessionCase {
    const char* name;
    std::vector<Person::Act> acts;
    const char* report;
    void (*change)(Dialog&) = [](Dialog&) {};
};

void openMenu(QDialog& shown)
{
    only<QComboBox>(shown).showPopup();
}

// Chooses an item of the menu, counted from 0, as assistive technology does.
Person::Act act(int item)
{
    return [item](QDialog& shown) {
        QAccessibleInterface& menu = *QAccessible::queryAccessibleInterface(only<QComboBox>(shown).view());
        menu.child(item)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    };
}

// Chooses the first item as soon as it is seen to that the third, which is chosen now, is the current one.
void actOnTheFirstRightAfterTheThird(QDialog& shown)
{
    act(2)(shown);
    QMetaObject::invokeMethod(
        &shown, [&shown] { act(0)(shown); }, Qt::QueuedConnection);
}

// A key that comes to the menu as beside a screen reader: when one that was pressed after it has closed the menu.
Person::Act pressTooLate(Qt::Key key)
{
    return [key](QDialog& shown) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(only<QComboBox>(shown).view(), &event);
    };
}

void clickOnTheLastItem(QDialog& shown)
{
    QAbstractItemView& menu = *only<QComboBox>(shown).view();
    QTest::mouseClick(menu.viewport(), Qt::LeftButton, {}, menu.visualRect(menu.model()->index(2, 0)).center());
    shown.activateWindow();  // a screen without a window manager may see to it or not
}

void closeMenu(QDialog& shown)
{
    only<QComboBox>(shown).hidePopup();
}

void showsTheSecondItem(QDialog& shown)
{
    EXPECT_EQ(only<QComboBox>(shown).currentIndex(), 1);
}

// Of three items the second is chosen.
const SessionCase SESSION_CASES[] = {
    {"ReturnConfirms", {press(Qt::Key_Return)}, "ended: ok"},
    {"EnterConfirms", {press(Qt::Key_Enter)}, "ended: ok"},
    {"EscapeCancels", {press(Qt::Key_Escape)}, "ended: cancel"},
    {"ClosingCancels", {close()}, "ended: cancel"},
    {"DownChoosesTheNext", {press(Qt::Key_Down), press(Qt::Key_Return)}, "ended: item 3 ok"},
    {"UpChoosesTheOneBefore", {press(Qt::Key_Up), press(Qt::Key_Return)}, "ended: item 1 ok"},
    {"EscapeCancelsFromTheDefaultButton", {press(Qt::Key_Tab), press(Qt::Key_Tab), press(Qt::Key_Escape)},
        "ended: cancel"},
    {"EscapeClosesTheMenuOnly",
        {press(Qt::Key_Space), press(Qt::Key_Down), press(Qt::Key_Escape), press(Qt::Key_Return)}, "ended: ok"},
    {"MenuThatIsOpenedAgainAtOnceShowsTheChosenItem",
        {openMenu, [](QDialog& shown) { closeMenu(shown), openMenu(shown); }, press(Qt::Key_Down),
            press(Qt::Key_Return), press(Qt::Key_Return)},
        "ended: item 3 ok"},
    {"EndedByNobody", {[](QDialog& shown) { shown.done(QDialog::Rejected); }}, "the screen went away:"},
    {"TabAndSpacePress", {press(Qt::Key_Tab), press(Qt::Key_Space)}, "ended: cancel"},
    {"TabTwiceAndSpacePress", {press(Qt::Key_Tab), press(Qt::Key_Tab), press(Qt::Key_Space)}, "ended: ok"},
    {"ReturnPressesTheFocus", {press(Qt::Key_Tab), press(Qt::Key_Return)}, "ended: cancel"},
    {"TabComesRound",
        {press(Qt::Key_Tab), press(Qt::Key_Tab), press(Qt::Key_Tab), press(Qt::Key_Down), press(Qt::Key_Return)},
        "ended: item 3 ok"},
    {"ReturnConfirmsAgainWhereTheFocusIsOnNoButton",
        {press(Qt::Key_Tab), press(Qt::Key_Backtab), press(Qt::Key_Return)}, "ended: ok"},
    {"ClickOnOK", {click("OK")}, "ended: ok"},
    {"ClickOnCancel", {click("Cancel")}, "ended: cancel"},
    {"ChoiceThenCancel", {press(Qt::Key_Down), press(Qt::Key_Escape)}, "ended: item 3 cancel"},
    {"ActionChoosesAnItem", {act(2), press(Qt::Key_Return)}, "ended: item 3 ok"},
    {"ActionsChooseOneAfterTheOther", {act(2), act(0), act(1), press(Qt::Key_Return)},
        "ended: item 3 item 1 item 2 ok"},
    {"ActionRightAfterAnotherIsNotLost", {actOnTheFirstRightAfterTheThird, press(Qt::Key_Return)},
        "ended: item 3 item 1 ok"},
    {"ActionLeavesTheChosenItem", {act(1), press(Qt::Key_Return)}, "ended: ok"},
    {"ActionChoosesWhatTheKeysHadLeft", {press(Qt::Key_Down), act(1), press(Qt::Key_Return)},
        "ended: item 3 item 2 ok"},
    {"ActionChoosesInTheOpenMenu", {openMenu, press(Qt::Key_Down), act(0), press(Qt::Key_Return)}, "ended: item 1 ok"},
    {"ActionLeavesTheChosenItemInTheOpenMenu", {openMenu, press(Qt::Key_Down), act(1), press(Qt::Key_Return)},
        "ended: ok"},
    {"ActionChoosesWhatTheMenuHadShownOnly", {openMenu, press(Qt::Key_Down), closeMenu, act(2), press(Qt::Key_Return)},
        "ended: item 3 ok"},
    {"KeysThatComeToTheClosedMenuChooseInIt",
        {openMenu, closeMenu, pressTooLate(Qt::Key_Down), pressTooLate(Qt::Key_Return), press(Qt::Key_Return)},
        "ended: item 3 ok"},
    {"EscapeThatComesToTheClosedMenuChoosesNothing",
        {openMenu, closeMenu, pressTooLate(Qt::Key_Down), pressTooLate(Qt::Key_Escape), press(Qt::Key_Return)},
        "ended: ok"},
    {"ClickChoosesInTheOpenMenu", {openMenu, clickOnTheLastItem, press(Qt::Key_Return)}, "ended: item 3 ok"},
    {"ChoiceThatAHandlerTakesGoesBack", {press(Qt::Key_Down), showsTheSecondItem, press(Qt::Key_Return)},
        "ended: item 3 ok", [](Dialog& dialog) { dialog.recorder.answer = noErr; }},
    {"EscapeCancelsWithoutACancelButton", {press(Qt::Key_Escape)}, "ended: closed",
        [](Dialog& dialog) { dialog.cancel.hidden = true; }},
    {"ReturnPressesTheButtonOfThatRole", {press(Qt::Key_Return)}, "ended: cancel",
        [](Dialog& dialog) { dialog.ok.role = ButtonRole::Plain, dialog.cancel.role = ButtonRole::Default; }},
};

TEST_F(WindowOnScreen, SendsCommandsForKeysAndClicks)
{
    for (const auto& row : SESSION_CASES) {
        SCOPED_TRACE(row.name);
        Dialog dialog;
        row.change(dialog);
        EXPECT_EQ(runWith(dialog, row.acts), row.report);
    }
}

TEST_F(WindowOnScreen, SelectsNothingElseOnTheWayToWhatTheMenuIsLeftWith)
{
    for (const auto& [key, rows] : {std::pair(Qt::Key_Return, QList<int>{2}), {Qt::Key_Escape, {2, 1}}}) {
        QList<int> selected;
        const auto listen = [&selected](QDialog& shown) {
            const QItemSelectionModel& selection = *only<QComboBox>(shown).view()->selectionModel();
            QObject::connect(&selection, &QItemSelectionModel::selectionChanged,
                [&] { selected.append(selection.selectedIndexes().front().row()); });
        };
        runWith({openMenu, listen, press(Qt::Key_Down), press(key), press(Qt::Key_Escape)});
        EXPECT_EQ(selected, rows);
    }
}

// Adds a button before Cancel whose handler does `action` to it.
void addApply(Dialog& dialog, const std::function<void(Control&)>& action)
{
    Control& apply = dialog.add(ControlKind::Button, "Apply", {84, 20, 104, 90});
    apply.command = 'aply';
    dialog.recorder.action = [=, &apply, endTheUsualWay = dialog.recorder.action](const HICommand& command) {
        if (command.commandID == apply.command)
            action(apply);
        endTheUsualWay(command);
    };
}

TEST_F(WindowOnScreen, ShowsWhatAHandlerSets)
{
    Dialog dialog;
    addApply(dialog, [&](Control& apply) {
        SetControl32BitValue(dialog.popUp.ref(), 1);
        dialog.ok.enabled = false;
        apply.hidden = true;
    });
    EXPECT_EQ(runWith(dialog,
                  {click("Apply"),
                      [](QDialog& shown) {
                          EXPECT_EQ(only<QComboBox>(shown).currentIndex(), 0);
                          EXPECT_FALSE(titled<QPushButton>(shown, "OK").isEnabled());
                          EXPECT_FALSE(titled<QPushButton>(shown, "Apply").isVisible());
                          only<QComboBox>(shown).setFocus();
                      },
                      press(Qt::Key_Return), press(Qt::Key_Escape)}),
        "ended: other cancel")
        << "Return does nothing while the default button is disabled";
}

const struct {
    const char* name;
    bool Control::*change;  // of the button that has the focus
    bool hasPopUp;
    bool hasDefault;
    const char* report;
} LOST_FOCUS_CASES[] = {
    {"OfADisabledButton", &Control::enabled, true, true, "ended: other ok"},
    {"OfAHiddenButton", &Control::hidden, true, true, "ended: other ok"},
    {"WithoutAPopUp", &Control::enabled, false, true, "ended: other ok"},
    {"WithoutADefaultButton", &Control::enabled, false, false, "ended: other cancel"},  // by the click, the last act
};

TEST_F(WindowOnScreen, LeavesReturnToTheDefaultButtonWhenTheFocusIsLost)
{
    for (const auto& row : LOST_FOCUS_CASES) {
        Dialog dialog;
        addApply(dialog, [&](Control& apply) { apply.*row.change = !(apply.*row.change); });
        dialog.popUp.enabled = row.hasPopUp;
        dialog.ok.enabled = row.hasDefault;
        std::vector<Person::Act> acts = {click("Apply"), press(Qt::Key_Return)};
        if (!row.hasDefault)
            acts.push_back(click("Cancel"));
        EXPECT_EQ(runWith(dialog, acts), row.report) << row.name;
    }
}

TEST_F(WindowOnScreen, StaysOpenUntilItsLoopIsToldToEnd)
{
    Dialog dialog;
    int commands = 0;
    dialog.recorder.action = [&](const HICommand&) {
        if (++commands == 4)
            QuitAppModalLoopForWindow(dialog.made.ref);
    };
    EXPECT_EQ(runWith(dialog, {press(Qt::Key_Return), press(Qt::Key_Escape), close(), press(Qt::Key_Return)}),
        "ended: ok cancel cancel ok");
}

TEST_F(WindowOnScreen, MayBeDisposedOfByAHandler)
{
    for (const Person::Act& act : {press(Qt::Key_Return), press(Qt::Key_Escape), press(Qt::Key_Down), close()}) {
        Dialog dialog;
        dialog.recorder.action = [ref = dialog.made.ref](const HICommand&) { DisposeWindow(ref); };
        EXPECT_EQ(runWith(dialog, {act}).substr(0, 6), "ended:");
    }
}

TEST_F(WindowOnScreen, MayRunAnotherInside)
{
    Dialog outer;
    std::string innerReport;
    outer.recorder.action = [&](const HICommand& command) {
        Dialog inner;
        inner.made.window().title = QStringLiteral("Inner");
        if (command.commandID == 0)
            innerReport = inner.run();
        else
            QuitAppModalLoopForWindow(outer.made.ref);
    };
    EXPECT_EQ(runWith(outer,
                  {press(Qt::Key_Down), [](QDialog& shown) { EXPECT_EQ(shown.windowTitle(), QStringLiteral("Inner")); },
                      press(Qt::Key_Escape),
                      [](QDialog& shown) { EXPECT_EQ(shown.windowTitle(), QStringLiteral("Paper & ink")); },
                      press(Qt::Key_Return)}),
        "ended: item 3 ok");
    EXPECT_EQ(innerReport, "ended: cancel");
}

TEST_F(WindowOnScreen, EndsWithTheInnerOneThatWasToldToEndBoth)
{
    Dialog outer;
    outer.recorder.action = [&](const HICommand&) {
        Dialog inner;
        inner.recorder.action = [&](const HICommand&) {
            QuitAppModalLoopForWindow(outer.made.ref);
            QuitAppModalLoopForWindow(inner.made.ref);
        };
        inner.run();
    };
    EXPECT_EQ(runWith(outer, {press(Qt::Key_Return), press(Qt::Key_Return)}), "ended: ok");
}

TEST_F(WindowOnScreen, MayShowAnAlertInside)
{
    Dialog dialog;
    const auto endTheUsualWay = dialog.recorder.action;
    dialog.recorder.action = [&](const HICommand& command) {
        EXPECT_EQ(Toolbox::runAlert(oneButton()), 1);
        endTheUsualWay(command);
    };
    const auto look = [](QDialog& shown) { EXPECT_NE(shown.parentWidget(), nullptr) << "it stays above the dialog"; };
    EXPECT_EQ(runWith(dialog, {press(Qt::Key_Return), look, press(Qt::Key_Escape)}), "ended: ok");
}

// ---- Typing ahead

// A key with `text`, pressed at a time in milliseconds; 0 when its time is lost, as beside a screen reader.
Person::Act typeAt(quint64 time, const char* text, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return [=](QDialog&) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, modifiers, QString::fromUtf8(text));
        event.setTimestamp(time);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    };
}

constexpr quint64 A_PAUSE = 120'000;

void waitAPause(QDialog&)
{
    QApplication::setKeyboardInputInterval(1);
    QTest::qSleep(50);
}

// In "One", "日本 (Medium)", "Óptima (Largest)", "Large", "Medial - Medley", "Aal", "Aare"; the second is chosen.
const SessionCase TYPING_CASES[] = {
    {"Beginning", {type("on")}, "ended: item 3 item 1 ok"},
    {"Capitals", {type("ON")}, "ended: item 3 item 1 ok"},
    {"AccentsDoNotCount", {type("opt")}, "ended: item 3 ok"},
    {"PartInBrackets", {press(Qt::Key_Up), type("medium")}, "ended: item 1 item 2 ok"},
    {"LettersThatAreNotASCII", {press(Qt::Key_Up), type("日本")}, "ended: item 1 item 2 ok"},
    {"OneLetterGoesOn", {type("l")}, "ended: item 3 ok"},
    {"TheSameLetterGoesOn", {type("ll")}, "ended: item 3 item 4 ok"},
    {"TheSameLetterComesRound", {type("lll")}, "ended: item 3 item 4 item 3 ok"},
    {"MoreLettersStayWhereTheyCan", {type("lar")}, "ended: item 3 ok"},
    {"MoreLettersGoOnWhereTheyMust", {press(Qt::Key_Down), type("medl")}, "ended: item 3 item 5 ok"},
    {"MoreLettersComeRound", {type("mediu")}, "ended: item 5 item 2 ok"},
    {"TheSameLettersStayWhereTheyCan", {type("aa")}, "ended: item 6 ok"},
    {"TheOnlyOneStaysChosen", {type("日")}, "ended: ok"},
    {"NothingBeginsSo", {type("x")}, "ended: ok"},
    {"NothingGoesOnSo", {type("lx")}, "ended: item 3 ok"},
    {"LettersBelongTogether", {typeAt(A_PAUSE, "m"), typeAt(A_PAUSE + 100, "o")}, "ended: item 5 ok"},
    {"APauseBeginsAnew", {typeAt(A_PAUSE, "m"), typeAt(2 * A_PAUSE, "o")}, "ended: item 5 item 1 ok"},
    {"LettersWithoutTimesBelongTogether", {typeAt(0, "m"), typeAt(0, "o")}, "ended: item 5 ok"},
    {"APauseWithoutTimesBeginsAnew", {typeAt(0, "m"), waitAPause, typeAt(0, "o")}, "ended: item 5 item 1 ok"},
    {"CommandsAreNotLetters",
        {typeAt(0, "o", Qt::ControlModifier), typeAt(0, "o", Qt::AltModifier), typeAt(0, "o", Qt::MetaModifier)},
        "ended: ok"},
    {"NotOnAButton", {press(Qt::Key_Tab), type("on")}, "ended: cancel"},
    {"InTheOpenMenu", {openMenu, type("lar"), press(Qt::Key_Return)}, "ended: item 3 ok"},
    {"InTheOpenMenuItGoesOn", {openMenu, type("ll"), press(Qt::Key_Return)}, "ended: item 4 ok"},
    {"InTheOpenMenuNothingIsChosenYet", {openMenu, type("lar"), press(Qt::Key_Escape)}, "ended: ok"},
};

TEST_F(WindowOnScreen, ChoosesByTheBeginningOfAnItem)
{
    for (const auto& row : TYPING_CASES) {
        SCOPED_TRACE(row.name);
        Dialog dialog;
        dialog.popUp.items = {{QStringLiteral("One")}, {QStringLiteral("日本 (Medium)")},
            {QStringLiteral("Óptima (Largest)")}, {QStringLiteral("Large")}, {QStringLiteral("Medial - Medley")},
            {QStringLiteral("Aal")}, {QStringLiteral("Aare")}};
        dialog.popUp.maximum = 7;
        std::vector<Person::Act> acts = row.acts;
        acts.push_back(press(Qt::Key_Return));
        EXPECT_EQ(runWith(dialog, acts), row.report);
    }
}

// ---- How it looks

TEST_F(WindowOnScreen, HasItsControlsAtTheirPlaces)
{
    lookAt([](QDialog& shown) {
        EXPECT_EQ(shown.width(), 340);
        EXPECT_EQ(shown.minimumSize(), shown.maximumSize()) << "its size is fixed";
        const QRect label = placeOf(only<QLabel>(shown));
        const QRect popUp = placeOf(only<QComboBox>(shown));
        const QRect ok = placeOf(titled<QPushButton>(shown, "OK"));
        const QRect cancel = placeOf(titled<QPushButton>(shown, "Cancel"));
        EXPECT_EQ(label.left(), 20);
        EXPECT_EQ(popUp.left(), 20);
        EXPECT_EQ(popUp.width(), 300);
        EXPECT_EQ(ok.left(), 251);
        EXPECT_EQ(cancel.left(), 170);
        EXPECT_EQ(ok.top(), cancel.top());
        EXPECT_EQ(ok.size(), cancel.size());
        EXPECT_LT(label.bottom(), popUp.top());
        EXPECT_LT(popUp.bottom(), ok.top());
        for (const QRect& each : {label, popUp, ok, cancel})
            EXPECT_TRUE(shown.rect().contains(each));
    });
}

TEST_F(WindowOnScreen, ShowsWhereTheFocusIs)
{
    lookAt([](QDialog& shown) {
        const QRect aroundOK = placeOf(titled<QPushButton>(shown, "OK")) + QMargins(3, 3, 3, 3);
        QList<QImage> pictures;
        QList<QColor> around;  // of the default button, which looks like nothing else
        for (int stop = 0; stop < 3; ++stop) {
            pictures.append(shown.grab().toImage());
            around.append(pictures.last().pixelColor(aroundOK.center().x(), aroundOK.top() + 1));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(pictures.count(pictures.last()), 1) << "stop " << stop;
        }
        EXPECT_EQ(around[0], around[1]) << "no more than the default";
        EXPECT_EQ(around[2], shown.palette().color(QPalette::Highlight)) << "the default with the focus";
        EXPECT_EQ(shown.grab().toImage(), pictures.first()) << "it was seen from the first moment";
        only<QComboBox>(shown).clearFocus();
        EXPECT_NE(shown.grab().toImage(), pictures.first());
    });
}

// The border of `widget` stands out against the window by this much, of 255.
int contrastOfBorder(const QDialog& shown, const QWidget& widget)
{
    const QImage picture = const_cast<QDialog&>(shown).grab().toImage();
    const QRect place = placeOf(widget);
    const int window = qGray(picture.pixel(1, 1));
    int most = 0;
    for (int y = place.top(); y < place.top() + 3; ++y)
        most = std::max(most, std::abs(qGray(picture.pixel(place.center().x(), y)) - window));
    return most;
}

TEST_F(WindowOnScreen, HasVisibleBordersInDarkAndHighContrastColours)
{
    for (const QColor window : {QColor(Qt::black), QColor(0x20, 0x20, 0x20), QColor(0x40, 0x40, 0x40)}) {
        Dialog dialog;
        dialog.made.window().title = window.name();
        lookAt(dialog, [&](QDialog& shown) {
            QPalette colours(window, window);
            QApplication::setPalette(colours);
            QCoreApplication::processEvents();  // which tells the dialog
            titled<QPushButton>(shown, "OK").setFocus();
            EXPECT_GE(contrastOfBorder(shown, titled<QPushButton>(shown, "Cancel")), 60) << window.name().toStdString();
            EXPECT_GE(contrastOfBorder(shown, only<QComboBox>(shown)), 60) << window.name().toStdString();
            QApplication::setStyle(QStringLiteral("windows"));
            QApplication::setPalette(QPalette(Qt::darkBlue, Qt::darkBlue));
            QCoreApplication::processEvents();
            EXPECT_EQ(only<QComboBox>(shown).palette().color(QPalette::Window), QColor(Qt::darkBlue))
                << "another style draws its own";
        });
    }
}

TEST_F(WindowOnScreen, HasTheFocusOnTheDefaultButtonWhereThereIsNothingElse)
{
    Dialog dialog;
    dialog.popUp.enabled = false;
    lookAt(dialog, [](QDialog& shown) {
        EXPECT_EQ(QApplication::focusWidget(), &titled<QPushButton>(shown, "OK"));
        EXPECT_TRUE(titled<QPushButton>(shown, "OK").isDefault());
        EXPECT_FALSE(titled<QPushButton>(shown, "Cancel").isDefault());
    });
}

TEST_F(WindowOnScreen, IsModalAndCanBeMovedAndClosedAndNamesItsControls)
{
    lookAt([](QDialog& shown) {
        EXPECT_EQ(shown.windowModality(), Qt::ApplicationModal);
        EXPECT_TRUE(shown.windowFlags() & Qt::WindowTitleHint);
        EXPECT_TRUE(shown.windowFlags() & Qt::WindowCloseButtonHint);
        EXPECT_FALSE(shown.windowFlags() & (Qt::WindowMinMaxButtonsHint | Qt::WindowContextHelpButtonHint));
        EXPECT_EQ(only<QComboBox>(shown).view()->accessibleName(), QStringLiteral("Choose a size"));
        EXPECT_EQ(titled<QLabel>(shown, "Choose a size:").buddy(), &only<QComboBox>(shown));
    });
}

TEST_F(WindowOnScreen, HasAnIcon)
{
    lookAt([](QDialog& shown) {
        for (const int size : {16, 48, 256}) {
            const QImage icon = shown.windowIcon().pixmap(size).toImage();
            ASSERT_EQ(icon.size(), QSize(size, size));
            EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0) << "beside the drawing";
            EXPECT_EQ(icon.pixelColor(size / 8, size * 3 / 4), QColor(0x15, 0x65, 0xC0)) << "below the globe";
        }
        EXPECT_EQ(QGuiApplication::desktopFileName(), QStringLiteral("toolbox_screen_test"));
    });
}

TEST_F(WindowOnScreen, ShowsTextsAsTheyAre)
{
    Dialog dialog;
    dialog.made.window().title = QStringLiteral("All & [*] <b>\x1B");
    dialog.label.title = QStringLiteral("A & <b>b</b>\rc\t\x01");
    dialog.popUp.items[1].title = QStringLiteral("D & <i>e</i>\nf");
    dialog.popUp.items[2].title = QStringLiteral("\u0378 (g)");  // of which no font has the first
    dialog.ok.title = QStringLiteral("O & <u>K</u>");
    dialog.add(ControlKind::Button, "G & h", {4, 20, 18, 200});
    dialog.add(ControlKind::GroupBox, "Q & A", {0, 0, 124, 340});
    lookAt(dialog, [](QDialog& shown) {
        EXPECT_EQ(only<QGroupBox>(shown).title(), QStringLiteral("Q && A"));
        EXPECT_EQ(shown.childAt(placeOf(only<QComboBox>(shown)).center()), &only<QComboBox>(shown)) << "above the box";
        EXPECT_EQ(shown.windowTitle(), QStringLiteral("All & [*][*] <b>")) << "Qt shows [*][*] as [*]";
        const QLabel& label = only<QLabel>(shown);
        EXPECT_EQ(label.text(), QStringLiteral("A && <b>b</b>\nc  ")) << "it is the label of the pop-up";
        EXPECT_EQ(label.accessibleName(), QStringLiteral("A & <b>b</b>\nc  "));
        EXPECT_EQ(label.textFormat(), Qt::PlainText);
        EXPECT_EQ(only<QComboBox>(shown).currentText(), QStringLiteral("D & <i>e</i> f"));
        EXPECT_EQ(only<QComboBox>(shown).itemText(2), QStringLiteral("g"));
        EXPECT_EQ(only<QComboBox>(shown).view()->accessibleName(), QStringLiteral("A & <b>b</b> c  "));
        titled<QPushButton>(shown, "O && <u>K</u>");
        titled<QPushButton>(shown, "G && h");
    });
}

TEST_F(WindowOnScreen, HasGlyphsForJapanese)
{
    lookAt([](QDialog& shown) {
        QTextLayout layout(QStringLiteral("日本語"), only<QComboBox>(shown).font());
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        for (const QGlyphRun& run : layout.glyphRuns())
            EXPECT_FALSE(run.glyphIndexes().contains(0)) << "no font here has Japanese characters";
    });
}

TEST_F(WindowOnScreen, JustifiesTextsAsTheirControlsSay)
{
    const std::pair<Toolbox::Justification, Qt::Alignment> rows[] = {{Toolbox::Justification::Natural, Qt::AlignLeft},
        {Toolbox::Justification::Left, Qt::AlignLeft}, {Toolbox::Justification::Center, Qt::AlignHCenter},
        {Toolbox::Justification::Right, Qt::AlignRight}};
    for (const auto& [justification, alignment] : rows) {
        Dialog dialog;
        dialog.label.justification = justification;
        lookAt(dialog, [expected = alignment](QDialog& shown) {
            EXPECT_EQ(titled<QLabel>(shown, "Choose a size:").alignment() & Qt::AlignHorizontal_Mask, expected);
        });
    }
}

TEST_F(WindowOnScreen, ShowsThePopUpsOwnLabelBesideIt)
{
    Dialog dialog;
    dialog.label.hidden = true;
    dialog.popUp.title = QStringLiteral("Q & A:");
    lookAt(dialog, [](QDialog& shown) {
        const QComboBox& box = only<QComboBox>(shown);
        const QLabel& label = titled<QLabel>(shown, "Q && A:");
        EXPECT_EQ(box.view()->accessibleName(), QStringLiteral("Q & A"));
        EXPECT_EQ(label.buddy(), &box);
        EXPECT_EQ(titled<QLabel>(shown, "Choose a size:").buddy(), nullptr);
        EXPECT_LT(placeOf(label).right(), placeOf(box).left());
        EXPECT_EQ(placeOf(label).left(), 20);
        EXPECT_EQ(placeOf(box).right(), 319);
        EXPECT_EQ(label.width(), label.sizeHint().width());
    });
}

TEST_F(WindowOnScreen, OffersOnlyTheItemsThatCanBeChosenToArrowsAndLetters)
{
    Dialog dialog;
    dialog.popUp.items = {{QStringLiteral("One")}, {QString(), 0, true, true}, {QStringLiteral("Three"), 0, false},
        {QStringLiteral("Tiny"), 0, true, false, true}, {QStringLiteral("Ten")}};
    dialog.popUp.maximum = 5;
    dialog.popUp.setValue(1);
    const auto look = [](QDialog& shown) {
        const auto* const list = qobject_cast<QListView*>(only<QComboBox>(shown).view());
        for (int row = 0; row < 5; ++row)
            EXPECT_EQ(list->isRowHidden(row), row == 3) << row;
        EXPECT_EQ(list->model()->index(1, 0).data(Qt::AccessibleDescriptionRole), QStringLiteral("separator"));
    };
    EXPECT_EQ(runWith(dialog, {look, press(Qt::Key_Down), press(Qt::Key_Up), type("t"), press(Qt::Key_Return)}),
        "ended: item 5 item 1 item 5 ok");
}

TEST_F(WindowOnScreen, HasTheTabKeyGoAlongItsRows)
{
    Dialog dialog;
    dialog.cancel.bounds = {84, 20, 104, 89};
    dialog.popUp.bounds = {90, 100, 98, 240};  // between it and OK, and less high
    for (const char* const title : {"One", "Two"})
        dialog.add(ControlKind::Button, title, {108, 20, 118, 89});
    lookAt(dialog, [](QDialog&) {
        QStringList stops;
        for (int stop = 0; stop < 5; ++stop) {
            const auto* const button = qobject_cast<QPushButton*>(QApplication::focusWidget());
            stops.append(button == nullptr ? QStringLiteral("pop-up") : button->text());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(stops.join(QLatin1Char(' ')), QStringLiteral("pop-up OK One Two Cancel"));
    });
}

TEST_F(WindowOnScreen, LeavesOutWhatIsHiddenAndDisablesWhatIsDisabled)
{
    Dialog dialog;
    Control& box = dialog.add(ControlKind::GroupBox, "Group", {0, 0, 40, 340});
    dialog.made.addTo(box, ControlKind::Button).title = QStringLiteral("Inside");
    dialog.add(ControlKind::Other, "Unknown", {0, 0, 10, 10});
    dialog.add(ControlKind::Separator, "", {70, 0, 72, 300});
    dialog.add(ControlKind::Separator, "", {70, 310, 80, 312});
    box.hidden = true;
    dialog.cancel.enabled = false;
    EXPECT_EQ(runWith(dialog,
                  {[](QDialog& shown) {
                       EXPECT_FALSE(only<QGroupBox>(shown).isVisible());
                       EXPECT_FALSE(titled<QPushButton>(shown, "Inside").isVisible());
                       EXPECT_FALSE(titled<QPushButton>(shown, "Cancel").isEnabled());
                       int lines = 0;
                       for (const QFrame* const each : shown.findChildren<QFrame*>()) {
                           const bool liesFlat = each->frameShape() == QFrame::HLine;
                           if (!liesFlat && each->frameShape() != QFrame::VLine)
                               continue;
                           ++lines;
                           EXPECT_EQ(liesFlat, each->width() > each->height());
                           EXPECT_EQ(each->frameShadow(), QFrame::Sunken);
                       }
                       EXPECT_EQ(lines, 2);
                   },
                      press(Qt::Key_Return)}),
        "ended: ok");
}

// ---- Places that are too small or out of proportion

TEST_F(WindowOnScreen, StretchesNothingMoreThanItsTextNeeds)
{
    Dialog dialog;
    dialog.cancel.title = QStringLiteral("Do nothing");  // somewhat wider than its place
    lookAt(dialog, [](QDialog& shown) {
        const QPushButton& cancel = titled<QPushButton>(shown, "Do nothing");
        EXPECT_EQ(cancel.width(), cancel.fontMetrics().horizontalAdvance(cancel.text()) + 24);
        EXPECT_EQ(buttonPlace(shown, "OK").width(), 69) << "as the nib has it";
        EXPECT_EQ(buttonPlace(shown, "OK").right(), placeOf(only<QComboBox>(shown)).right());
        EXPECT_EQ(buttonPlace(shown, "OK").left() - placeOf(cancel).right() - 1, 12);
        EXPECT_EQ(shown.width(), 340 + cancel.width() - 69);
    });
}

TEST_F(WindowOnScreen, StretchesTheLongerPartOfWhatLiesAlone)
{
    // Below the pop-up, and Cancel below its beginning or its end.
    for (const auto& [left, right] : {std::pair(SInt16{20}, SInt16{89}), {SInt16{251}, SInt16{320}}}) {
        Dialog dialog;
        dialog.ok.bounds = {84, 20, 104, 320};
        dialog.ok.title = QString(60, QLatin1Char('W'));
        dialog.cancel.bounds = {112, left, 132, right};
        lookAt(dialog, [](QDialog& shown) {
            EXPECT_GT(buttonPlace(shown, QByteArray(60, 'W').constData()).width(), 300);
            EXPECT_LE(buttonPlace(shown, "Cancel").width(), titled<QPushButton>(shown, "Cancel").sizeHint().width());
        });
    }
}

TEST_F(WindowOnScreen, BreaksTheLinesOfALabelWithRoomForTwoOrTooLittleForOne)
{
    const std::tuple<SInt16, SInt16, bool> rows[] = {
        {29, 300, false}, {30, 300, true}, {29, 50, false}, {29, 40, true}};
    for (const auto& [height, width, breaks] : rows) {
        Dialog dialog;
        dialog.label.bounds = {10, 20, static_cast<SInt16>(10 + height), static_cast<SInt16>(20 + width)};
        const Qt::Alignment vertical = height < 30 ? Qt::AlignVCenter : Qt::AlignTop;
        lookAt(dialog, [vertical, expected = breaks](QDialog& shown) {
            EXPECT_EQ(only<QLabel>(shown).wordWrap(), expected);
            EXPECT_EQ(only<QLabel>(shown).alignment(), Qt::AlignLeft | vertical);
        });
    }
}

TEST_F(WindowOnScreen, BreaksALongWordBetweenLettersOnly)
{
    Dialog dialog;
    dialog.label.title = QStringLiteral("e\u0301").repeated(200);  // each with an accent of its own
    lookAt(dialog, [](QDialog& shown) {
        const QString text = only<QLabel>(shown).text();
        EXPECT_EQ(text, QStringLiteral("e\u0301\u200B").repeated(200).chopped(1));
    });
}

TEST_F(WindowOnScreen, LetsWhatIsFarTooLongGrow)
{
    Dialog dialog;
    dialog.label.title = QStringLiteral("A text that is far too long for the room that it was given. ").repeated(4);
    dialog.label.bounds = {84, 20, 124, 70};
    dialog.ok.title = QString(60, QLatin1Char('W'));
    lookAt(dialog, [](QDialog& shown) {
        const QLabel& label = only<QLabel>(shown);
        EXPECT_GE(label.height(), label.heightForWidth(label.width()));
        EXPECT_TRUE(shown.rect().contains(placeOf(label)));
        const QPushButton& ok = titled<QPushButton>(shown, QByteArray(60, 'W').constData());
        EXPECT_EQ(placeOf(ok).top(), placeOf(label).top()) << "it grows below what lies beside it";
        EXPECT_GT(ok.width(), ok.fontMetrics().horizontalAdvance(ok.text()));
    });
}

TEST_F(WindowOnScreen, ScrollsWhatIsLargerThanTheScreen)
{
    Dialog dialog;
    dialog.made.window().content = {-32768, -32768, 32767, 32767};
    dialog.popUp.items[0].title = QString(5000, QLatin1Char('W'));
    lookAt(dialog, [](QDialog& shown) {
        EXPECT_EQ(only<QComboBox>(shown).width(), 8192);
        const QSize screen = shown.screen()->availableSize();
        EXPECT_EQ(shown.size(), screen - QSize(0, 24)) << "with room for the title bar";
        EXPECT_GT(only<QScrollArea>(shown).widget()->width(), screen.width());
        EXPECT_GT(only<QScrollArea>(shown).widget()->height(), screen.height());
        only<QScrollArea>(shown).setFocus();
        EXPECT_EQ(shown.grab().toImage().pixelColor(0, 0), shown.palette().color(QPalette::Highlight))
            << "seen to be there";
    });
}

TEST_F(WindowOnScreen, ScrollsOneWayOnlyWhereThatIsEnough)
{
    const std::tuple<QSize, bool, bool> cases[] = {
        {{810, 200}, true, false}, {{340, 780}, false, true}, {{810, 780}, true, true}};
    for (const auto& [content, scrollsAcross, scrollsDown] : cases) {
        Dialog dialog;
        dialog.made.window().content = {
            0, 0, static_cast<SInt16>(content.height()), static_cast<SInt16>(content.width())};
        lookAt(dialog, [across = scrollsAcross, down = scrollsDown](QDialog& shown) {
            const QScrollArea& area = only<QScrollArea>(shown);
            EXPECT_EQ(area.horizontalScrollBar()->isVisible(), across);
            EXPECT_EQ(area.verticalScrollBar()->isVisible(), down);
        });
    }
}

TEST_F(WindowOnScreen, SurvivesBoundsOfEveryKind)
{
    constexpr Rect BOUNDS[] = {{0, 0, 0, 0}, {10, 10, 5, 5}, {-32768, -32768, -32768, -32768},
        {-32768, -32768, 32767, 32767}, {32767, 32767, 32767, 32767}, {32767, 32767, -32768, -32768}};
    for (const Rect& content : BOUNDS) {
        Dialog dialog;
        dialog.made.window().content = content;
        for (const Rect& each : BOUNDS)
            for (const ControlKind kind : {ControlKind::StaticText, ControlKind::Button, ControlKind::PopupButton,
                     ControlKind::GroupBox, ControlKind::Separator})
                dialog.add(kind, "x", each);
        EXPECT_EQ(runWith(dialog, {press(Qt::Key_Escape)}), "ended: cancel");
    }
}

TEST_F(WindowOnScreen, ShowsAWindowWithoutControls)
{
    const TestWindow made;
    made.window().content = {0, 0, 100, 100};
    const CommandRecorder recorder(made.target());
    const Person person({[&](QDialog& shown) {
        EXPECT_EQ(shown.size(), QSize(100, 100));
        DisposeWindow(made.ref);
        shown.close();
    }});
    EXPECT_EQ(RunAppModalLoopForWindow(made.ref), noErr);
}

// ---- What is left behind

TEST_F(WindowOnScreen, LeavesNoApplicationBehindAndSaysNothingOnTheStandardStreams)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    qInstallMessageHandler(nullptr);
    const QtMessageHandler handler = qInstallMessageHandler(nullptr);
    EXPECT_EQ(runWith({press(Qt::Key_Return)}), "ended: ok");
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    EXPECT_EQ(qInstallMessageHandler(nullptr), handler);
    EXPECT_EQ(runWith({press(Qt::Key_Escape)}), "ended: cancel");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// In a process of its own, since Qt sets the locale once in a process.
TEST_F(WindowOnScreen, LeavesTheLocaleOfTheProcessAlone)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto compare = [] {
        setenv("LC_ALL", "C.UTF-8", 1);
        const std::string before = std::setlocale(LC_ALL, nullptr);
        std::string during;
        runWith({[&](QDialog&) { during = std::setlocale(LC_ALL, nullptr); }, press(Qt::Key_Return)});
        std::exit(before == during && before == std::setlocale(LC_ALL, nullptr) ? 0 : 1);
    };
    EXPECT_EXIT(compare(), testing::ExitedWithCode(0), "");
}

TEST_F(WindowOnScreen, IsNotUnwoundWhenMemoryRunsOut)
{
    const auto runOut = [] {
        try {
            ::operator delete(::operator new(PTRDIFF_MAX));
        } catch (const std::bad_alloc&) {
        }
    };
    const auto die = [&](QDialog&) {
        EXPECT_DEATH(runOut(), "bad_alloc|allocat");
        EXPECT_DEATH(qFatal("why"), "why\n") << "the only thing that Qt may say";
    };
    EXPECT_EQ(runWith({die, press(Qt::Key_Return)}), "ended: ok");
    EXPECT_EQ(std::get_new_handler(), nullptr);
}

}  // namespace
