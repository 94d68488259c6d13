#include "tests/toolbox/core/terminal/PseudoTerminal.h"
#include "tests/toolbox/screen/OnScreen.h"

#include <QCoreApplication>
#include <QImage>

#include <cstdlib>

namespace {

QImage picture()
{
    const Toolbox::CallReport report = Toolbox::TakeReport();
    EXPECT_EQ(report.pictureProblem, "");
    return QImage::fromData(report.picture.data(), static_cast<int>(report.picture.size()), "PNG");
}

std::string pictureProblem()
{
    const Toolbox::CallReport report = Toolbox::TakeReport();
    EXPECT_TRUE(report.picture.empty());
    return report.pictureProblem;
}

class Picture : public WindowTest {
protected:
    // No screen is needed for a picture, not even one that cannot be seen.
    Picture()
    {
        for (const char* const variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            unsetenv(variable);
        Toolbox::WantPicture();
    }
};

TEST_F(Picture, IsDrawnOfTheNextWindowOnlyWithoutAScreen)
{
    EXPECT_EQ(Dialog().run(), "ended: ok");
    const QImage drawn = picture();
    EXPECT_EQ(drawn.width(), 340);
    EXPECT_GE(drawn.height(), 124);
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    Dialog().run();
    EXPECT_TRUE(picture().isNull());
}

TEST_F(Picture, ShowsWhatIsChosen)
{
    const auto drawn = [](SInt32 item) {
        Dialog dialog;
        dialog.popUp.setValue(item);
        Toolbox::WantPicture();
        EXPECT_EQ(dialog.run(), "ended: ok");
        return picture();
    };
    const QImage first = drawn(1);
    EXPECT_FALSE(first.isNull());
    EXPECT_EQ(drawn(1), first);
    EXPECT_NE(drawn(2), first);
}

TEST_F(Picture, IsDrawnWhileAskingOnTheTerminal)
{
    EXPECT_EQ(reportWithoutTerminal([] {
        Toolbox::UseTerminalDisplay();
        const std::string ended = Dialog().run();
        return ended + ' ' + std::to_string(picture().width());
    }),
        "ended: cancel 340");
}

TEST_F(Picture, IsThatOfTheRealWindowOnAScreen)
{
    useUnseenScreen();
    QImage seen;
    const auto look = [&seen](QDialog& shown) { seen = shown.grab().toImage(); };
    EXPECT_EQ(runWith({look, press(Qt::Key_Return)}), "ended: ok");
    EXPECT_EQ(picture().convertToFormat(seen.format()), seen);
}

TEST_F(Picture, IsOfTheAlertThatComesFirst)
{
    EXPECT_EQ(Toolbox::runAlert(oneButton()), 1);
    Dialog().run();
    const QImage unattended = picture();
    EXPECT_GE(unattended.width(), 260);
    EXPECT_NE(unattended.width(), 340) << "that is the width of the window";

    Toolbox::WantPicture();
    EXPECT_EQ(reportWithoutTerminal([&] {
        Toolbox::UseTerminalDisplay();
        const std::string pressed = std::to_string(Toolbox::runAlert(oneButton()));
        return pressed + (picture() == unattended ? " and the same" : "");
    }),
        "1 and the same");

    useUnseenScreen();
    const Person person({[](QDialog& shown) { shown.setWindowOpacity(1); }, press(Qt::Key_Return)});
    EXPECT_EQ(Toolbox::runAlert(oneButton()), 1);
    EXPECT_EQ(picture().size(), unattended.size());
}

TEST_F(Picture, SaysWhyThereIsNone)
{
    EXPECT_EQ(pictureProblem(), "nothing was shown");

    Toolbox::WantPicture();
    const TestWindow empty;
    RunAppModalLoopForWindow(empty.ref);
    EXPECT_EQ(pictureProblem(), "there is nothing to draw");

    setenv("QT_SCALE_FACTOR", "8", 1);
    Toolbox::WantPicture();
    EXPECT_EQ(Dialog().run(), "ended: ok");
    EXPECT_EQ(picture().width(), 8 * 340);
    for (const std::string factor : {"9", "1000", "nan"}) {
        setenv("QT_SCALE_FACTOR", factor.c_str(), 1);
        Toolbox::WantPicture();
        Toolbox::runAlert(oneButton());
        EXPECT_EQ(pictureProblem(), "it would be " + factor + " times as large as a dialog is");
    }
    unsetenv("QT_SCALE_FACTOR");
}

}  // namespace
