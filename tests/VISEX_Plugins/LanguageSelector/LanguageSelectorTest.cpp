#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

#include <gtest/gtest.h>

#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxDouble.h"
#include "tests/support/RecordDifferences.h"

namespace {

using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

class Entry : public testing::Test {
protected:
    Entry() { ToolboxDouble::Reset(); }

    // Whether what has been called since Reset includes `function`.
    static bool called(const std::string& function) { return Log().find(function + "(") != std::string::npos; }
};

TEST_F(Entry, NullRecordIsIgnored)
{
    XCodMain(nullptr);
    LanguageSelector(nullptr);
    EXPECT_EQ(Log(), "");
}

TEST_F(Entry, MessageOtherThan1000IsAnsweredWithAlert5000AndAFlag)
{
    for (const int message : {999, 1001, 0, 1, -1000, -1, 0x7FFF, -0x8000, 0x03E7, 0x04E8, 0x0300, 0x00E8}) {
        ToolboxDouble::Reset();
        ExternParmBlock record = recordWith(static_cast<SInt16>(message), 11);
        record.resultFlags = 0xA5A5A5A4;
        RecordBytes expected = bytesOf(record);
        expected[11] = 0xA5;

        XCodMain(&record);
        EXPECT_EQ(Log(), "StopAlert(5000, null) = 1\n") << "message " << message;
        EXPECT_EQ(recordDifferences(bytesOf(record), expected), "") << "message " << message;
    }
}

TEST_F(Entry, EveryOther16BitMessageIsAnsweredSo)
{
    for (int message = -0x8000; message <= 0x7FFF; ++message) {
        if (message == 1000)
            continue;
        ToolboxDouble::Reset();
        ExternParmBlock record = recordWith(static_cast<SInt16>(message), 11);
        record.resultFlags = 0;
        XCodMain(&record);
        ASSERT_EQ(Log(), "StopAlert(5000, null) = 1\n") << "message " << message;
        ASSERT_EQ(record.resultFlags, 1u) << "message " << message;
    }
}

TEST_F(Entry, FlagThatIsSetStaysSet)
{
    ExternParmBlock record = recordWith(999, 0);
    record.resultFlags = 0xFFFFFFFF;
    XCodMain(&record);
    EXPECT_EQ(record.resultFlags, 0xFFFFFFFFu);
}

TEST_F(Entry, UnknownMessageIsFlaggedEvenIfNoAlertIsShown)
{
    ToolboxDouble::PressInAlerts(-1);
    ExternParmBlock record = recordWith(1001, 0);
    record.resultFlags = 0;
    XCodMain(&record);
    EXPECT_EQ(record.resultFlags, 1u);
}

TEST_F(Entry, Message1000RunsTheGateAndThenTheDialog)
{
    ToolboxDouble::InModalLoop({ToolboxDouble::Command(kHICommandOK)});
    ExternParmBlock record = recordWith(1000, 11);
    RecordBytes expected = bytesOf(record);
    expected[582] = 0;
    expected[583] = 11;

    XCodMain(&record);
    EXPECT_EQ(Log().find("GetResource('CALL', 1000) = null\nCreateNibReference(\"LanguageSelector\")"), 0u) << Log();
    EXPECT_EQ(recordDifferences(bytesOf(record), expected), "");
    EXPECT_EQ(LeftBehind(), "");
}

TEST_F(Entry, EachCallIsAFreshRun)
{
    ToolboxDouble::InModalLoop({ToolboxDouble::Choose(3), ToolboxDouble::Command(kHICommandOK)});
    ExternParmBlock record = recordWith(1000, 11);
    XCodMain(&record);
    EXPECT_EQ(record.chosenLanguage, 2);

    ToolboxDouble::InModalLoop({ToolboxDouble::Command(kHICommandOK)});
    XCodMain(&record);
    EXPECT_EQ(ToolboxDouble::ItemShown(), 2) << "the current language, not the one chosen before";
    EXPECT_EQ(record.chosenLanguage, 11);
    EXPECT_EQ(LeftBehind(), "");
}

TEST_F(Entry, GateThatStopsEndsTheCallWithoutAWord)
{
    std::vector<UInt8> flagSet(402, 0);
    flagSet[401] = 0x80;
    ToolboxDouble::ProvideResource('CALL', 1000, flagSet);
    ToolboxDouble::FailCall("CFBundleLoadExecutable");
    ExternParmBlock record = recordWith(1000, 11);
    const RecordBytes before = bytesOf(record);

    XCodMain(&record);
    EXPECT_TRUE(called("CFBundleLoadExecutable"));
    EXPECT_FALSE(called("CreateNibReference"));
    EXPECT_FALSE(called("StandardAlert"));
    EXPECT_FALSE(called("StopAlert"));
    EXPECT_EQ(recordDifferences(bytesOf(record), before), "");
}

TEST_F(Entry, LanguageSelectorRunsTheDialogAloneWhateverTheMessage)
{
    ToolboxDouble::InModalLoop({ToolboxDouble::Command(kHICommandOK)});
    ExternParmBlock record = recordWith(999, 6);
    RecordBytes expected = bytesOf(record);
    expected[582] = 0;
    expected[583] = 6;

    LanguageSelector(&record);
    EXPECT_FALSE(called("GetResource"));
    EXPECT_FALSE(called("StopAlert"));
    EXPECT_EQ(recordDifferences(bytesOf(record), expected), "");
}

}  // namespace
