// The dialog in a window of Qt's offscreen platform, with everything but the host's main function: it is worked from
// inside the process, so that what the window shows can be looked at.

#include "host/External.h"
#include "host/Installer.h"
#include "host/Languages.h"
#include "host/Record.h"

#include <Toolbox/Displays.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace Host;

const std::filesystem::path DEMO_APPLICATION = DEMO_APPLICATION_FOLDER;

// What the pop-up shows for each of LANGUAGES.
const char* const ITEMS[] = {
    "English",
    "日本語 (Japanese)",
    "Deutsch (German)",
    "Français (French)",
    "Italiano (Italian)",
    "Español (Spanish)",
};

void press(QWidget& dialog, Qt::Key key)
{
    QWidget* const receiver = dialog.focusWidget() == nullptr ? &dialog : dialog.focusWidget();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(receiver, &event);
    }
}

class Offscreen : public testing::TestWithParam<std::size_t> {
protected:
    static void SetUpTestSuite()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        std::string problem;
        ASSERT_TRUE(Toolbox::UseScreenDisplay(&problem)) << problem;
    }

    // Calls the external with the current language of the test's row; `work` gets the dialog when it is open.
    Report call(const std::function<void(QWidget& dialog)>& work)
    {
        Installer installer(DEMO_APPLICATION, std::nullopt);
        External external(installer.builtInExternal());
        Record record;
        record.block().message = 1000;
        record.block().currentLanguage = language().code;

        bool worked = false;
        QTimer::singleShot(0, qApp, [&] {
            const QPointer<QWidget> dialog = QApplication::activeModalWidget();
            ASSERT_FALSE(dialog.isNull());
            worked = true;
            work(*dialog);
            if (dialog)
                dialog->close();  // also when the work failed half way
        });
        const Report report = external.call(record, DisplayKind::Window, nullptr);
        EXPECT_TRUE(worked) << "no dialog was opened";
        EXPECT_EQ(record.block().chosenLanguage, report.chosen.value_or(0));
        return report;
    }

    const Language& language() const { return LANGUAGES[GetParam()]; }
};

TEST_P(Offscreen, ShowsTheCurrentLanguageAmongSix)
{
    call([](QWidget& dialog) {
        const QList<QComboBox*> popUps = dialog.findChildren<QComboBox*>();
        ASSERT_EQ(popUps.size(), 1);
        ASSERT_EQ(popUps[0]->count(), 6);
        for (int item = 0; item < 6; ++item)
            EXPECT_EQ(popUps[0]->itemText(item).toStdString(), ITEMS[item]);
        EXPECT_EQ(popUps[0]->currentText().toStdString(), ITEMS[GetParam()]);
    });
}

TEST_P(Offscreen, ReturnWritesTheCurrentLanguage)
{
    const Report report = call([](QWidget& dialog) { press(dialog, Qt::Key_Return); });
    EXPECT_EQ(report.current, language().code);
    EXPECT_EQ(report.chosen, language().code);
    EXPECT_TRUE(Toolbox::TakeReport().alerts.empty());
}

TEST_P(Offscreen, ArrowsChooseEveryOther)
{
    for (std::size_t wanted = 0; wanted < LANGUAGES.size(); ++wanted) {
        const Report report = call([wanted](QWidget& dialog) {
            for (std::size_t item = GetParam(); item < wanted; ++item)
                press(dialog, Qt::Key_Down);
            for (std::size_t item = GetParam(); item > wanted; --item)
                press(dialog, Qt::Key_Up);
            press(dialog, Qt::Key_Return);
        });
        EXPECT_EQ(report.chosen, LANGUAGES[wanted].code);
    }
}

TEST_P(Offscreen, EscapeWritesNothing)
{
    const Report report = call([](QWidget& dialog) {
        press(dialog, Qt::Key_Down);
        press(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(report.chosen, std::nullopt);
    EXPECT_TRUE(Toolbox::TakeReport().alerts.empty());
}

TEST_P(Offscreen, ClosingTheWindowWritesNothing)
{
    const Report report = call([](QWidget& dialog) { dialog.close(); });
    EXPECT_EQ(report.chosen, std::nullopt);
    EXPECT_TRUE(Toolbox::TakeReport().alerts.empty());
}

INSTANTIATE_TEST_SUITE_P(Languages, Offscreen, testing::Range(std::size_t{0}, LANGUAGES.size()),
    [](const auto& row) { return std::string(LANGUAGES[row.param].name); });

}  // namespace
