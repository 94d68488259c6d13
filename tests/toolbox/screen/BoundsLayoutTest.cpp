// Whether anything is cut off, covered or touching, over the sizes of fonts and the scales of screens.

#include "tests/toolbox/screen/OnScreen.h"

#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

#include <tuple>

namespace {

constexpr int LEAST_GAP = 4;

// In points; a negative size is one in pixels.
int fontSize = 0;

// Where the desktop would tell the application of its font.
void takeFont()
{
    if (fontSize == 0)
        return;
    QFont font = QApplication::font();
    font.setPointSize(fontSize);
    QApplication::setFont(font);
}

const bool FONT_TAKER_IS_REGISTERED = (qAddPreRoutine(takeFont), true);

void expectRoomForText(const QWidget& widget)
{
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        EXPECT_GE(label->height(), needed) << label->text().toStdString();
        EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
        if (const QPixmap icon = label->pixmap(Qt::ReturnByValue); !icon.isNull()) {
            EXPECT_EQ(icon.devicePixelRatio(), label->devicePixelRatio()) << "or it would be blurred";
            EXPECT_GE(icon.deviceIndependentSize().width(), 32);
        }
        return;
    }
    const auto* const button = qobject_cast<const QPushButton*>(&widget);
    const int text = button == nullptr ? widget.minimumSizeHint().width()
                                       : button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() + 8;
    EXPECT_GE(widget.width(), text);
    EXPECT_GE(widget.height(), widget.fontMetrics().height());
}

// Everything that shows a text has the room for it, lies in what can be seen or scrolled to, and keeps a distance.
void expectAllToBeSeen(QDialog& shown)
{
    EXPECT_EQ(shown.size(), shown.size().boundedTo(shown.screen()->availableSize() * shown.devicePixelRatio()));
    for (const QScrollArea* const each : shown.findChildren<QScrollArea*>())
        EXPECT_EQ(each->focusPolicy() != Qt::NoFocus,
            each->horizontalScrollBar()->isVisible() || each->verticalScrollBar()->isVisible());
    QList<QWidget*> all;
    for (QWidget* const each : shown.findChildren<QWidget*>())
        if (each->isVisible()
            && (qobject_cast<QLabel*>(each) || qobject_cast<QPushButton*>(each) || qobject_cast<QComboBox*>(each)))
            all.append(each);
    EXPECT_GE(all.size(), 3);
    for (QWidget* const each : all) {
        expectRoomForText(*each);
        EXPECT_TRUE(each->parentWidget()->rect().contains(each->geometry()));
        for (const QWidget* const other : all) {
            const QRect around = placeOf(*each).adjusted(-LEAST_GAP, -LEAST_GAP, LEAST_GAP, LEAST_GAP);
            EXPECT_FALSE(
                other != each && other->parentWidget() == each->parentWidget() && around.intersects(placeOf(*other)));
        }
    }
}

class EverySize : public OnScreen, public testing::WithParamInterface<std::tuple<int, double>> {
protected:
    EverySize()
    {
        EXPECT_TRUE(FONT_TAKER_IS_REGISTERED);
        fontSize = std::get<int>(GetParam());
        qputenv("QT_SCALE_FACTOR", QByteArray::number(std::get<double>(GetParam())));
    }
    ~EverySize() override
    {
        fontSize = 0;
        qunsetenv("QT_SCALE_FACTOR");
    }

    // Also kept as a picture, where a person who wants to look says where.
    static void look(QDialog& shown, const char* name)
    {
        EXPECT_EQ(QFontInfo(QApplication::font()).pointSize(), fontSize);
        expectAllToBeSeen(shown);
        if (const char* const folder = std::getenv("PICTURES"))
            shown.grab().save(QStringLiteral("%1/%2-at-%3-%4.png")
                                  .arg(QString::fromLocal8Bit(folder), QString::number(fontSize),
                                      qEnvironmentVariable("QT_SCALE_FACTOR"), QLatin1String(name)));
    }
};

TEST_P(EverySize, LeavesAWindowWhole)
{
    lookAt([](QDialog& shown) { look(shown, "window"); });
}

TEST_P(EverySize, LeavesAStandardAlertWhole)
{
    lookAt(fourButtons(), [](QDialog& shown) { look(shown, "alert"); });
}

TEST_P(EverySize, LeavesAnAlertFromResourcesWhole)
{
    lookAt(fromResources(), [](QDialog& shown) {
        look(shown, "resources");
        const QLabel& text = titled<QLabel>(shown, "This external cannot do what the installer asks of it.");
        const bool hasItsOwnLayout = fontSize <= 21;  // or it would be wider than the screen
        EXPECT_EQ(text.width() >= 225 * text.fontInfo().pixelSize() / 13, hasItsOwnLayout);
        // At the largest, three buttons are wider than the screen.
        EXPECT_TRUE(fontSize == 48 || shown.rect().contains(buttonPlace(shown, "OK")));
    });
}

TEST_F(OnScreen, HasTheTextsOfAnAlertNoWiderThanItCanBe)
{
    fontSize = 48;
    Toolbox::Alert alert = oneButton();
    for (const bool isScrolled : {false, true}) {
        alert.text = QStringLiteral("word ").repeated(isScrolled ? 80 : 8);
        lookAt(alert, [isScrolled](QDialog& shown) {
            const int scrollBar = 4 + shown.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
            EXPECT_EQ(shown.width(), shown.screen()->availableSize().width() - (isScrolled ? 0 : scrollBar));
            for (const QScrollBar* const each : shown.findChildren<QScrollBar*>())
                EXPECT_EQ(each->isVisible(), isScrolled && each->orientation() == Qt::Vertical && each->maximum() > 0);
        });
    }
    fontSize = 0;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, EverySize, testing::Combine(testing::Values(9, 13, 21, 32, 48), testing::Values(1, 1.5, 2, 3)));

}  // namespace
