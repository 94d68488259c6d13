// Whether anything is cut off, covered or touching, over the sizes of fonts and the scales of screens.

#include "tests/toolbox/screen/OnScreen.h"

#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>

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

const bool REGISTERED = (qAddPreRoutine(takeFont), true);

void expectRoomForText(const QWidget& widget)
{
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        EXPECT_GE(label->height(), needed) << label->text().toStdString();
        EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
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

struct SizeCase {
    const char* name;
    int points;
    const char* scale;
};

const SizeCase SIZE_CASES[] = {
    {"Smallest", 9, "1"},
    {"Larger", 13, "1"},
    {"WhereThePopUpCoveredTheText", 21, "1"},
    {"Large", 32, "1"},
    {"Largest", 48, "1"},
    {"SmallOnAFineScreen", 9, "2"},
    {"LargeOnAFineScreen", 24, "1.5"},
    {"LargestOnTheFinestScreen", 48, "3"},
};

class EverySize : public OnScreen, public testing::WithParamInterface<SizeCase> {
protected:
    EverySize()
    {
        EXPECT_TRUE(REGISTERED);
        fontSize = GetParam().points;
        setenv("QT_SCALE_FACTOR", GetParam().scale, 1);
    }
    ~EverySize() override
    {
        fontSize = 0;
        unsetenv("QT_SCALE_FACTOR");
    }

    // Also kept as a picture, where a person who wants to look says where.
    static void look(QDialog& shown, const char* name)
    {
        EXPECT_EQ(QFontInfo(QApplication::font()).pointSize(), GetParam().points);
        expectAllToBeSeen(shown);
        if (const char* const folder = std::getenv("PICTURES"))
            shown.grab().save(
                QStringLiteral("%1/%2-%3.png")
                    .arg(QString::fromLocal8Bit(folder), QLatin1String(GetParam().name), QLatin1String(name)));
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
    lookAt(fromResources(), [](QDialog& shown) { look(shown, "resources"); });
}

INSTANTIATE_TEST_SUITE_P(Cases, EverySize, testing::ValuesIn(SIZE_CASES), RowName());

}  // namespace
