#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/base/resources/ResourceFork.h"
#include "tests/toolbox/core/dialogs/AlertBytes.h"
#include "tests/toolbox/core/dialogs/RecordingDisplay.h"
#include "toolbox/base/files/FileReferences.h"

#include <Carbon/Dialogs.h>
#include <Carbon/Resources.h>

#include <tuple>

namespace {

constexpr SInt16 NO_BOX = -1;

// Opens resource files with what a test writes into them, and closes them after it.
class StopAlertCall : public AlertTest {
protected:
    StopAlertCall()
    {
        // Whatever was shown before, the next alert is another one.
        open({{'ALRT', 1, alertTemplate(1)}, {'DITL', 1, itemList({dialogItem(BUTTON, "OK")})}});
        StopAlert(1, nullptr);
        closeAll();
        shown.clear();
        Toolbox::TakeReport();
    }

    ~StopAlertCall() override { closeAll(); }

    void open(const std::vector<TestResource>& resources)
    {
        FSRef file;
        SInt16 refNum = 0;
        const std::string name = std::to_string(m_open.size());
        ASSERT_EQ(Toolbox::makeFileReference(m_folder.write(name, makeFork(resources).bytes()), &file), noErr);
        ASSERT_EQ(FSOpenResourceFile(&file, 0, nullptr, fsRdPerm, &refNum), noErr);
        m_open.push_back(refNum);
    }

    void openAlert(const std::string& alert, const std::string& items)
    {
        open({{'ALRT', 5000, alert}, {'DITL', 6000, items}});
    }

    void closeAll()
    {
        for (const SInt16 refNum : m_open)
            CloseResFile(refNum);
        m_open.clear();
    }

private:
    const TemporaryFolder m_folder;
    std::vector<SInt16> m_open;
};

const std::string OK_AND_CANCEL = itemList({dialogItem(BUTTON, "OK"), dialogItem(BUTTON, "Cancel")});

TEST_F(StopAlertCall, ShowsTheItemsOfItsResources)
{
    openAlert(alertTemplate(6000),
        itemList({
            dialogItem(BUTTON, "OK", {90, 230, 110, 300}),
            dialogItem(STATIC_TEXT | DISABLED, "First\rline \xA5", {10, 75, 40, 300}),
            dialogItem(ICON | DISABLED, word(128)),
            dialogItem(BUTTON | DISABLED, "Never", {90, 20, 110, 90}),
            dialogItem(STATIC_TEXT, "Second", {50, 75, 66, 300}),
            dialogItem(CHECK_BOX, "Not shown"),
        }));
    EXPECT_EQ(StopAlert(5000, nullptr), 1);

    ASSERT_EQ(shown.size(), 1u);
    const Toolbox::Alert& alert = shown[0];
    EXPECT_EQ(inWords(alert), "0: First\nline \u2022\nSecond (), 1 OK Return, 4 Never disabled");
    EXPECT_EQ(alert.cancelButton, 0) << "item 2 is a text";
    EXPECT_EQ(alert.buttons[0].bounds.left, 230);
    ASSERT_TRUE(alert.layout.has_value());
    EXPECT_EQ(alert.layout->id, 5000);
    EXPECT_EQ(alert.layout->bounds.right, ALERT_BOUNDS.right);
    ASSERT_EQ(alert.layout->texts.size(), 2u);
    EXPECT_EQ(alert.layout->texts[0].text, QStringLiteral("First\nline \u2022"));
    EXPECT_EQ(alert.layout->texts[1].bounds.top, 50);
}

TEST_F(StopAlertCall, IsReportedWithItsNumberAndGivesItsResourcesBack)
{
    openAlert(alertTemplate(6000), itemList({dialogItem(STATIC_TEXT, "Text"), dialogItem(BUTTON, "OK")}));
    const auto before = liveObjects();
    answer = 2;
    EXPECT_EQ(StopAlert(5000, nullptr), 2);
    EXPECT_EQ(liveObjects(), before);
    const std::vector<Toolbox::ShownAlert> alerts = Toolbox::TakeReport().alerts;
    ASSERT_EQ(alerts.size(), 1u);
    const Toolbox::ShownAlert& noted = alerts[0];
    EXPECT_EQ(noted.kind, "stop");
    EXPECT_EQ(noted.id, std::optional<SInt16>(5000));
    EXPECT_EQ(noted.text, "Text");
    EXPECT_EQ(noted.buttons, (std::vector<std::string>{"", "OK"}));
    EXPECT_EQ(noted.pressed, 2);
}

TEST_F(StopAlertCall, FindsItsResourcesThroughTheChain)
{
    open({{'ALRT', 5000, alertTemplate(6000)}});
    open({{'DITL', 6000, itemList({dialogItem(BUTTON, "Above")})}});
    EXPECT_EQ(StopAlert(5000, nullptr), 1);
    EXPECT_EQ(shown.at(0).buttons.at(0).title, QStringLiteral("Above"));
}

TEST_F(StopAlertCall, ReplacesPlaceholdersByNothing)
{
    openAlert(alertTemplate(6000),
        itemList(
            {dialogItem(BUTTON, "^0"), dialogItem(STATIC_TEXT, "^0a^1b^2c^3d^4^"), dialogItem(STATIC_TEXT, "^^00")}));
    EXPECT_EQ(StopAlert(5000, nullptr), 1);
    EXPECT_EQ(shown.at(0).text, QStringLiteral("abcd^4^\n^0")) << "what is left is not looked at again";
    EXPECT_EQ(shown.at(0).buttons.at(0).title, QStringLiteral("^0")) << "only texts have placeholders";
}

// ---- Stages

TEST_F(StopAlertCall, GoesThroughItsStagesAndStaysAtTheLastUntilAnotherIsShown)
{
    // defaults: the default buttons, or NO_BOX where a stage draws none
    const std::tuple<const char*, int, std::vector<SInt16>, std::vector<SInt16>> rows[] = {
        {"stages", 0xC4C4, {5000, 5000, 5000, 5000, 5000, 5000}, {1, 2, 1, 2, 2, 2}},
        {"stages that draw no box", 0x4040, {5001, 5001, 5001, 5001, 5001}, {NO_BOX, 1, NO_BOX, 1, 1}},
        {"another between them", 0xCCC4, {5000, 5000, 5001, 5000, 5000}, {1, 2, 1, 1, 2}},
    };
    for (const auto& [name, stages, ids, defaults] : rows) {
        open({{'ALRT', 5000, alertTemplate(6000, stages)}, {'ALRT', 5001, alertTemplate(6000, stages)},
            {'DITL', 6000, OK_AND_CANCEL}});
        std::vector<SInt16> shownDefaults;
        for (const SInt16 id : ids) {
            const bool hasBox = StopAlert(id, nullptr) != NO_BOX;
            shownDefaults.push_back(hasBox ? shown.back().defaultButton : NO_BOX);
        }
        EXPECT_EQ(shownDefaults, defaults) << name;
    }
}

TEST_F(StopAlertCall, IsAnsweredByReturnAndEscapeWithItsSecondItemIfThatIsAButton)
{
    const std::tuple<const char*, std::string, SInt16> rows[] = {
        {"a button", OK_AND_CANCEL, 2},
        {"a disabled button", itemList({dialogItem(BUTTON, "OK"), dialogItem(BUTTON | DISABLED, "Cancel")}), 0},
        {"a text", itemList({dialogItem(BUTTON, "OK"), dialogItem(STATIC_TEXT, "Text")}), 0},
        {"not there", itemList({dialogItem(BUTTON, "OK")}), 0},
    };
    for (const auto& [name, items, button] : rows) {
        openAlert(alertTemplate(6000, 0xCCCC), items);  // every stage names it
        EXPECT_EQ(StopAlert(5000, nullptr), 1);
        EXPECT_EQ(shown.back().defaultButton, button) << name;
        EXPECT_EQ(shown.back().cancelButton, button) << name;
    }
}

// ---- What is missing or corrupt

constexpr const char* NO_ALERT = "the resources have no 'ALRT' 5000, or a damaged one";
constexpr const char* NO_ITEMS = "the resources have no 'DITL' 6000, or a damaged one";
constexpr const char* NO_END = "it has no button that ends it";

const std::tuple<const char*, const char*, std::vector<TestResource>> MISSING_CASES[] = {
    {"NoAlert", NO_ALERT, {{'DITL', 6000, OK_AND_CANCEL}}},
    {"AnotherAlert", NO_ALERT, {{'ALRT', 5001, alertTemplate(6000)}, {'DITL', 6000, OK_AND_CANCEL}}},
    {"NoItems", NO_ITEMS, {{'ALRT', 5000, alertTemplate(6000)}}},
    {"OtherItems", NO_ITEMS, {{'ALRT', 5000, alertTemplate(6000)}, {'DITL', 6001, OK_AND_CANCEL}}},
    {"NoItemAtAll", NO_END, {{'ALRT', 5000, alertTemplate(6000)}, {'DITL', 6000, itemList({})}}},
    {"NoButton", NO_END,
        {{'ALRT', 5000, alertTemplate(6000)}, {'DITL', 6000, itemList({dialogItem(STATIC_TEXT, "Text")})}}},
    {"NoEnabledButton", NO_END,
        {{'ALRT', 5000, alertTemplate(6000)}, {'DITL', 6000, itemList({dialogItem(BUTTON | DISABLED, "OK")})}}},
};

TEST_F(StopAlertCall, ShowsNothingWithoutWhatItNeeds)
{
    for (const auto& [name, reason, resources] : MISSING_CASES) {
        SCOPED_TRACE(name);
        closeAll();
        open(resources);
        const auto before = liveObjects();
        EXPECT_EQ(StopAlert(5000, nullptr), NO_BOX);
        EXPECT_EQ(liveObjects(), before);
        const Toolbox::CallReport report = Toolbox::TakeReport();
        EXPECT_TRUE(report.alerts.empty());
        EXPECT_EQ(report.remarks, std::vector<std::string>{std::string("the alert 5000 was not shown: ") + reason});
    }
    closeAll();
    EXPECT_EQ(StopAlert(5000, nullptr), NO_BOX) << "no file is open";
    EXPECT_TRUE(shown.empty());
}

}  // namespace
