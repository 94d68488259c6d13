#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/core/terminal/PseudoTerminal.h"
#include "tests/toolbox/screen/OnScreen.h"

#include <QCoreApplication>
#include <QImage>

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

std::string pictureProblem()
{
    return Toolbox::TakeReport().pictureProblem;
}

class Picture : public WindowTest {
protected:
    // No screen is needed for a picture, not even one that cannot be seen.
    Picture()
    {
        for (const char* const variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            unsetenv(variable);
    }

    QImage load(const std::string& name) const { return QImage(QString::fromStdString((m_folder / name).string())); }

    const TemporaryFolder m_folder;
};

TEST_F(Picture, IsSavedWithoutAScreen)
{
    Toolbox::SavePicture(m_folder / "a.png");
    EXPECT_EQ(Dialog().run(), "ended: ok");
    EXPECT_EQ(pictureProblem(), "");
    const QImage picture = load("a.png");
    EXPECT_EQ(picture.width(), 340);
    EXPECT_GE(picture.height(), 124);
    EXPECT_EQ(m_folder.entries(), 1u);
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST_F(Picture, ShowsWhatIsChosen)
{
    const auto save = [this](const char* name, SInt32 item) {
        Dialog dialog;
        dialog.popUp.setValue(item);
        Toolbox::SavePicture(m_folder / name);
        EXPECT_EQ(dialog.run(), "ended: ok");
        return load(name);
    };
    const QImage first = save("1.png", 1);
    EXPECT_FALSE(first.isNull());
    EXPECT_EQ(save("again.png", 1), first);
    EXPECT_NE(save("2.png", 2), first);
}

TEST_F(Picture, IsOfTheNextWindowOnly)
{
    Toolbox::SavePicture(m_folder / "a.png");
    Dialog().run();
    std::filesystem::remove(m_folder / "a.png");
    Dialog().run();
    EXPECT_EQ(m_folder.entries(), 0u);
}

TEST_F(Picture, IsSavedWhileAskingOnTheTerminal)
{
    const std::string file = m_folder / "a.png";
    EXPECT_EQ(reportWithoutTerminal([&] {
        Toolbox::UseTerminalDisplay();
        Toolbox::SavePicture(file);
        const std::string ended = Dialog().run();
        return ended + pictureProblem();
    }),
        "ended: cancel");
    EXPECT_EQ(load("a.png").width(), 340);
}

TEST_F(Picture, IsThatOfTheRealWindowOnAScreen)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::string problem;
    ASSERT_TRUE(Toolbox::UseScreenDisplay(&problem)) << problem;
    Toolbox::SavePicture(m_folder / "a.png");
    Dialog dialog;
    const Person person({[](QDialog& shown) { shown.setWindowOpacity(1); }, press(Qt::Key_Return)});
    EXPECT_EQ(dialog.run(), "ended: ok");
    EXPECT_EQ(pictureProblem(), "");
    EXPECT_EQ(load("a.png").width(), 340);
}

TEST_F(Picture, IsOfTheAlertThatComesFirst)
{
    Toolbox::SavePicture(m_folder / "a.png");
    EXPECT_EQ(Toolbox::runAlert(oneButton()), 1);
    EXPECT_EQ(pictureProblem(), "");
    const QImage unattended = load("a.png");
    EXPECT_GE(unattended.width(), 260);
    EXPECT_NE(unattended.width(), 340) << "that is the width of the window";
    Dialog().run();
    EXPECT_EQ(load("a.png"), unattended);

    const std::string onTerminal = m_folder / "terminal.png";
    EXPECT_EQ(reportWithoutTerminal([&] {
        Toolbox::UseTerminalDisplay();
        Toolbox::SavePicture(onTerminal);
        return std::to_string(Toolbox::runAlert(oneButton()));
    }),
        "1");
    EXPECT_EQ(load("terminal.png"), unattended);

    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::string problem;
    ASSERT_TRUE(Toolbox::UseScreenDisplay(&problem)) << problem;
    Toolbox::SavePicture(m_folder / "window.png");
    const Person person({[](QDialog& shown) { shown.setWindowOpacity(1); }, press(Qt::Key_Return)});
    EXPECT_EQ(Toolbox::runAlert(oneButton()), 1);
    EXPECT_EQ(load("window.png").size(), unattended.size());
}

TEST_F(Picture, SaysWhyItCannotBeWritten)
{
    Toolbox::SavePicture(m_folder / "missing/a.png");
    EXPECT_EQ(Dialog().run(), "ended: ok");
    EXPECT_EQ(pictureProblem(), "No such file or directory");

    Toolbox::SavePicture(m_folder / "a.png");
    EXPECT_EQ(pictureProblem(), "nothing was shown") << "the problem was that of the picture before";
    Dialog().run();
    EXPECT_EQ(pictureProblem(), "");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(Picture, IsNotDrawnAtAnyScale)
{
    setenv("QT_SCALE_FACTOR", "9", 1);
    Toolbox::SavePicture(m_folder / "a.png");
    EXPECT_EQ(Dialog().run(), "ended: ok");
    unsetenv("QT_SCALE_FACTOR");
    EXPECT_EQ(pictureProblem(), "it would be 9 times as large as a dialog is");
}

TEST_F(Picture, ReplacesAFileWholeOrNotAtAll)
{
    std::ofstream(m_folder / "a.png") << "something else";
    Toolbox::SavePicture(m_folder / "a.png");
    Dialog().run();
    EXPECT_EQ(pictureProblem(), "");
    EXPECT_EQ(load("a.png").width(), 340);

    m_folder.makeFolder("folder.png");
    Toolbox::SavePicture(m_folder / "folder.png");
    Dialog().run();
    EXPECT_NE(pictureProblem(), "");
    EXPECT_EQ(m_folder.entries(), 2u) << "nothing half written lies about";
}

TEST_F(Picture, ReplacesNothingButRegularFiles)
{
    const std::string pipe = m_folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink(pipe, m_folder / "link");
    for (const char* const name : {"pipe", "link"}) {
        Toolbox::SavePicture(m_folder / name);
        EXPECT_EQ(Dialog().run(), "ended: ok");
        EXPECT_EQ(pictureProblem(), "it is not a regular file");
    }
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
    EXPECT_EQ(m_folder.entries(), 2u);
}

TEST_F(Picture, MayBeOfAWindowThatHoldsNothing)
{
    const TestWindow made;
    Toolbox::SavePicture(m_folder / "a.png");
    RunAppModalLoopForWindow(made.ref);
    EXPECT_EQ(pictureProblem(), "there is nothing to draw");
    EXPECT_EQ(m_folder.entries(), 0u);
}

}  // namespace
