#include "tests/toolbox/screen/OnScreen.h"

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QApplication>
#include <QBitmap>
#include <QScreen>
#include <QScrollArea>
#include <QTest>

#include <cstring>
#include <numeric>
#include <tuple>

namespace {

using Toolbox::Alert;

class AlertOnScreen : public OnScreen { };

// ---- What is done in it

void clickText(QDialog& shown)
{
    QTest::mouseClick(&titled<QLabel>(shown, "It cannot be undone."), Qt::LeftButton);
}

const std::tuple<const char*, Alert, std::vector<Person::Act>, SInt16> ALERT_CASES[] = {
    {"ReturnPressesTheDefault", fourButtons(), {press(Qt::Key_Return)}, 1},
    {"EnterPressesTheDefault", fourButtons(2), {press(Qt::Key_Enter)}, 2},
    {"EscapePressesCancel", fourButtons(), {press(Qt::Key_Escape)}, 2},
    {"EscapeDoesNothingWithoutCancel", fourButtons(1, 0), {press(Qt::Key_Escape), press(Qt::Key_Return)}, 1},
    {"EscapePressesTheOnlyButton", oneButton(), {press(Qt::Key_Escape)}, 1},
    {"ReturnPressesTheFocus", fourButtons(), {press(Qt::Key_Tab), press(Qt::Key_Return)}, 4},
    {"TabGoesFromLeftToRight", fourButtons(), {press(Qt::Key_Tab), press(Qt::Key_Tab), press(Qt::Key_Return)}, 3},
    {"ReturnPressesTheDefaultWhileATextHasTheFocus", fourButtons(), {clickText, press(Qt::Key_Return)}, 1},
    {"SpacePressesTheFocus", fourButtons(2), {press(Qt::Key_Space)}, 2},
    {"ClickOnTheFirst", fourButtons(), {click("Yes && no")}, 1},
    {"ClickOnCancel", fourButtons(), {click("Cancel")}, 2},
    {"ClickOnOther", fourButtons(), {click("Don't Save")}, 3},
    {"ClickOnHelp", fourButtons(), {click("Help")}, 4},
    {"ClosingPressesCancel", fourButtons(), {close()}, 2},
    {"ClosingPressesTheOnlyButton", oneButton(), {close()}, 1},
    {"ClosingDoesNothingWhereItIsNotClear", fourButtons(1, 0), {close(), click("Help")}, 4},
    {"ClickOnAnItem", fromResources(), {click("Cancel")}, 3},
    {"ClickOnADisabledItem", fromResources(), {click("Never"), press(Qt::Key_Return)}, 1},
};

TEST_F(AlertOnScreen, GivesTheButtonsNumber)
{
    for (const auto& [name, alert, acts, pressed] : ALERT_CASES) {
        SCOPED_TRACE(name);
        EXPECT_EQ(runWith(alert, acts), pressed);
    }
}

TEST_F(AlertOnScreen, GoesWhenItsWindowIsDestroyedThoughNothingCancelsIt)
{
    // An event of X's protocol, about the dialog's window or the next.
    const auto notify = [](char event, quint32 next) {
        return [=](QDialog& shown) {
            char bytes[32] = {event};
            const quint32 window = static_cast<quint32>(shown.winId()) + next;
            std::memcpy(bytes + 8, &window, sizeof window);
            qintptr result = 0;
            QAbstractEventDispatcher::instance()->filterNativeEvent("xcb_generic_event_t", bytes, &result);
        };
    };
    constexpr char UNMAP = 18;
    constexpr char DESTROY = 17;
    EXPECT_EQ(runWith(fourButtons(), {notify(UNMAP, 0), notify(DESTROY, 1), press(Qt::Key_Return)}), 1);
    EXPECT_EQ(runWith(fourButtons(1, 0), {notify(DESTROY, 0)}), 1);
}

// ---- How it looks

TEST_F(AlertOnScreen, HasItsButtonsInTheOrderOfThePlatform)
{
    Alert wide = fourButtons();
    wide.text = QStringLiteral("word ").repeated(60);
    lookAt(wide, [](QDialog& shown) {
        const QRect ok = buttonPlace(shown, "Yes && no");
        const QRect cancel = buttonPlace(shown, "Cancel");
        const QRect other = buttonPlace(shown, "Don't Save");
        const QRect help = buttonPlace(shown, "Help");
        EXPECT_EQ(other.left() - help.right() - 1, 10);
        EXPECT_GT(cancel.left() - other.right() - 1, 20) << "the room is between those at the left and the right";
        EXPECT_EQ(ok.left() - cancel.right() - 1, 10);
        EXPECT_EQ(help.left(), 20);
        EXPECT_EQ(help.left(), shown.width() - 1 - ok.right()) << "the margins are alike";
        for (const QRect& each : {cancel, other, help})
            EXPECT_EQ(each.center().y(), ok.center().y());
        EXPECT_EQ(shown.height() - 1 - ok.bottom(), 20);
        EXPECT_EQ(QApplication::focusWidget(), &titled<QPushButton>(shown, "Yes && no"));
        EXPECT_TRUE(titled<QPushButton>(shown, "Yes && no").isDefault());
    });
}

TEST_F(AlertOnScreen, ShowsItsTextsAsTheyAre)
{
    lookAt(fourButtons(), [](QDialog& shown) {
        const QLabel& text = titled<QLabel>(shown, "Replace <b>everything</b> & more?\nReally?");
        const QLabel& explanation = titled<QLabel>(shown, "It cannot be undone.");
        EXPECT_EQ(text.textFormat(), Qt::PlainText);
        EXPECT_EQ(text.accessibleName(), QStringLiteral("Replace <b>everything</b> & more?\nReally?"));
        EXPECT_TRUE(text.font().bold());
        EXPECT_FALSE(explanation.font().bold());
        EXPECT_EQ(text.font().pixelSize(), 13);
        EXPECT_EQ(explanation.font().pixelSize(), 11);
        EXPECT_EQ(placeOf(text).left(), 20 + 48 + 16) << "beside the icon";
        EXPECT_EQ(placeOf(explanation).left(), placeOf(text).left());
        EXPECT_EQ(placeOf(explanation).top() - placeOf(text).bottom() - 1, 8);
        EXPECT_EQ(buttonPlace(shown, "Help").width(), 69);
        EXPECT_EQ(buttonPlace(shown, "Help").top() - placeOf(explanation).bottom() - 1, 16);
        EXPECT_EQ(text.textInteractionFlags(), Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard)
            << "to copy it";
    });
}

TEST_F(AlertOnScreen, IsAnnouncedAsOne)
{
    lookAt(fourButtons(), [](QDialog& shown) {
        const QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&shown);
        EXPECT_EQ(accessible->role(), QAccessible::AlertMessage);
        EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Caution - toolbox_screen_test"));
    });
}

TEST_F(AlertOnScreen, HasACloseBoxWhereThatPressesAButton)
{
    for (const auto& [alert, hasOne] :
        {std::pair(fourButtons(), true), {oneButton(), true}, {fourButtons(1, 0), false}})
        lookAt(alert, [expected = hasOne](QDialog& shown) {
            EXPECT_EQ(shown.windowFlags().testFlag(Qt::WindowCloseButtonHint), expected);
        });
}

// Where `picture` has `colour`, and in how many of its pixels.
std::pair<QRect, int> extent(const QImage& picture, QRgb colour)
{
    const QRegion region(QBitmap::fromImage(picture.createMaskFromColor(colour, Qt::MaskOutColor)));
    return {region.boundingRect(), std::accumulate(region.begin(), region.end(), 0, [](int pixels, const QRect& each) {
                return pixels + each.width() * each.height();
            })};
}

TEST_F(AlertOnScreen, HasTheIconOfItsType)
{
    struct Part {
        QRgb colour;
        QRect place;
        int pixels;
    };
    const std::tuple<AlertType, const char*, std::vector<Part>> types[] = {
        {kAlertStopAlert, "Stop", {{0xFFC62828, {2, 2, 44, 44}, 1204}, {0xFFFFFFFF, {14, 14, 20, 20}, 164}}},
        {kAlertNoteAlert, "Note", {{0xFF1565C0, {2, 2, 44, 44}, 1363}, {0xFFFFFFFF, {22, 11, 4, 26}, 80}}},
        {kAlertCautionAlert, "Caution", {{0xFFF9A825, {3, 4, 42, 40}, 792}, {0xFF202020, {22, 16, 4, 24}, 72}}},
        {kAlertPlainAlert, "Alert", {}}, {-7, "Alert", {}}};
    for (const auto& [type, name, itsParts] : types) {
        Alert alert = oneButton();
        alert.type = type;
        lookAt(alert, [title = QString::fromLatin1(name), &parts = itsParts](QDialog& shown) {
            EXPECT_EQ(shown.windowTitle(), title + QLatin1String(" - toolbox_screen_test")) << "the program is named";
            const int middle = placeOf(titled<QLabel>(shown, "Done.")).center().y();
            QImage icon;
            for (const QLabel* const each : shown.findChildren<QLabel*>())
                if (each->accessibleName() == title && placeOf(*each).center().y() == middle)
                    icon = each->pixmap(Qt::ReturnByValue).toImage();
            EXPECT_EQ(icon.size(), parts.empty() ? QSize(0, 0) : QSize(48, 48)) << title.toStdString();
            for (const auto& [colour, place, pixels] : parts)
                EXPECT_EQ(extent(icon, colour), std::pair(place, pixels)) << title.toStdString();
        });
    }
}

TEST_F(AlertOnScreen, CutsNothingOff)
{
    const std::pair<QString, int> texts[] = {{QString(254, QLatin1Char('W')), 420},
        {QStringLiteral("word ").repeated(60), 420}, {QStringLiteral("line\n").repeated(10), 260},
        {QStringLiteral("日本語").repeated(60), 420}};
    for (const auto& [text, width] : texts) {
        Alert alert = oneButton();
        alert.text = text;
        alert.explanation = text;
        lookAt(alert, [itsWidth = width](QDialog& shown) {
            int shownTexts = 0;
            for (const QLabel* const each : shown.findChildren<QLabel*>()) {
                if (each->text().isEmpty()) {
                    EXPECT_EQ(placeOf(*each).top(), 20) << "the icon";
                    continue;
                }
                ++shownTexts;
                SCOPED_TRACE(each->text().left(9).toStdString());
                EXPECT_GE(each->height(), each->heightForWidth(each->width()));
                EXPECT_GE(each->heightForWidth(each->width()), 2 * each->fontMetrics().height()) << "several lines";
                EXPECT_TRUE(shown.rect().contains(placeOf(*each)));
            }
            EXPECT_EQ(shownTexts, 2);
            EXPECT_EQ(shown.width(), 20 + 48 + 16 + itsWidth + 20);
        });
    }
}

TEST_F(AlertOnScreen, ScrollsATextThatIsHigherThanTheScreen)
{
    Alert alert = oneButton();
    alert.text = QStringLiteral("line\n").repeated(500);
    lookAt(alert, [](QDialog& shown) {
        EXPECT_LT(shown.height(), shown.screen()->availableSize().height());
        EXPECT_TRUE(shown.rect().contains(buttonPlace(shown, "OK")));
        const QWidget& text = titled<QLabel>(shown, QByteArray("line\n").repeated(500));
        EXPECT_GT(text.height(), shown.height());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        EXPECT_EQ(QApplication::focusWidget()->accessibleName(), shown.windowTitle());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
        EXPECT_LT(placeOf(text).top(), 0) << "the keys scroll it";
    });
}

TEST_F(AlertOnScreen, ShowsEmptyTextsAndTitles)
{
    Alert alert = oneButton();
    alert.text.clear();
    alert.buttons[0].title.clear();
    lookAt(alert, [](QDialog& shown) {
        only<QPushButton>(shown);
        only<QLabel>(shown);  // the icon
    });
}

TEST_F(AlertOnScreen, StaysWithinTheScreenForButtonsThatDoNot)
{
    Alert alert = oneButton();
    alert.buttons[0].title = QString(5000, QLatin1Char('W'));
    lookAt(alert, [](QDialog& shown) {
        EXPECT_EQ(shown.size(), shown.size().boundedTo(shown.screen()->availableSize()));
        EXPECT_EQ(only<QPushButton>(shown).width(), 8192) << "that is drawn whole";
    });
}

// ---- The layout of resources

TEST_F(AlertOnScreen, HasItsItemsWhereItsResourcesSay)
{
    lookAt(fromResources(), [](QDialog& shown) {
        EXPECT_EQ(shown.width(), 320);
        EXPECT_EQ(buttonPlace(shown, "OK").left(), 230);
        EXPECT_EQ(buttonPlace(shown, "Cancel").left(), 150);
        EXPECT_EQ(buttonPlace(shown, "Never").left(), 20);
        const QLabel& text = titled<QLabel>(shown, "This external cannot do what the installer asks of it.");
        EXPECT_EQ(placeOf(text).topLeft(), QPoint(75, 10));
        EXPECT_EQ(text.alignment(), Qt::AlignLeft | Qt::AlignTop);
        const QLabel& icon = titled<QLabel>(shown, "");
        EXPECT_EQ(placeOf(icon).topLeft(), QPoint(20, 10));
        EXPECT_EQ(icon.pixmap(Qt::ReturnByValue).size(), QSize(32, 32));
        EXPECT_EQ(icon.alignment(), Qt::AlignLeft | Qt::AlignTop);
        EXPECT_FALSE(titled<QPushButton>(shown, "Never").isEnabled());
        EXPECT_TRUE(titled<QPushButton>(shown, "OK").isDefault());
    });
}

const std::tuple<const char*, Rect, Rect> UNUSABLE_CASES[] = {
    {"ButtonOutside", {400, 230, 420, 300}, {40, 40, 160, 360}},
    {"ButtonHalfOutside", {90, 300, 110, 370}, {40, 40, 160, 360}},
    {"ButtonWithoutSize", {90, 230, 90, 230}, {40, 40, 160, 360}},
    {"AlertLargerThanTheScreen", {90, 230, 110, 300}, {-32768, -32768, 32767, 32767}},
};

TEST_F(AlertOnScreen, GivesAnUnusableLayoutUpForThatOfStandardAlerts)
{
    for (const auto& [name, buttonBounds, alertBounds] : UNUSABLE_CASES) {
        SCOPED_TRACE(name);
        Alert alert = fromResources();
        alert.buttons[0].bounds = buttonBounds;
        alert.layout->bounds = alertBounds;
        lookAt(alert, [](QDialog& shown) {
            const QRect ok = buttonPlace(shown, "OK");
            const QRect cancel = buttonPlace(shown, "Cancel");
            EXPECT_TRUE(shown.rect().contains(ok));
            EXPECT_LT(cancel.right(), ok.left());
            EXPECT_EQ(cancel.center().y(), ok.center().y());
            EXPECT_FALSE(titled<QLabel>(shown, "This external cannot do what the installer asks of it.").font().bold());
        });
    }
}

}  // namespace
