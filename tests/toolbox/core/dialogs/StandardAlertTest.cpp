#include "tests/toolbox/core/dialogs/RecordingDisplay.h"

#include <Carbon/Dialogs.h>
#include <CoreFoundation/CFString.h>
#include <Toolbox/Trace.h>

#include <string>
#include <utility>
#include <vector>

namespace {

const ConstStringPtr SYSTEM_WORD = reinterpret_cast<ConstStringPtr>(kAlertDefaultOKText);
const CFStringRef SYSTEM_STRING = reinterpret_cast<CFStringRef>(kAlertDefaultOKText);
const CFStringRef DEAD_STRING = reinterpret_cast<CFStringRef>(0x1234);
constexpr SInt16 UNTOUCHED = 77;

// A Pascal string of the bytes of `text`.
class PascalString {
public:
    explicit PascalString(const std::string& text)
        : m_bytes(std::string(1, static_cast<char>(text.size())) + text)
    {
    }

    operator ConstStringPtr() const { return reinterpret_cast<ConstStringPtr>(m_bytes.data()); }

private:
    const std::string m_bytes;
};

// A Core Foundation string of UTF-8 text, owned.
class String {
public:
    explicit String(const char* text)
        : m_string(CFStringCreateWithCString(nullptr, text, kCFStringEncodingUTF8))
    {
    }
    ~String() { CFRelease(m_string); }
    String(const String&) = delete;
    String& operator=(const String&) = delete;

    operator CFStringRef() const { return m_string; }

private:
    const CFStringRef m_string;
};

AlertStdAlertParamRec okParameters()
{
    AlertStdAlertParamRec parameters{};
    parameters.movable = true;
    parameters.defaultText = SYSTEM_WORD;
    parameters.defaultButton = kAlertStdAlertOKButton;
    return parameters;
}

AlertStdCFStringAlertParamRec okStringParameters()
{
    AlertStdCFStringAlertParamRec parameters{};
    parameters.version = kStdCFStringAlertVersionOne;
    parameters.defaultText = SYSTEM_STRING;
    parameters.defaultButton = kAlertStdAlertOKButton;
    return parameters;
}

using Titles = std::vector<std::pair<SInt16, std::string>>;

Titles titlesOf(const Toolbox::Alert& alert)
{
    Titles titles;
    for (const Toolbox::AlertButton& each : alert.buttons)
        titles.emplace_back(each.number, each.title.toStdString());
    return titles;
}

// ---- StandardAlert

class StandardAlertCall : public AlertTest { };

TEST_F(StandardAlertCall, HasOneOKButtonWithoutParameters)
{
    SInt16 hit = UNTOUCHED;
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, PascalString("Text"), PascalString("More"), nullptr, &hit), noErr);
    EXPECT_EQ(hit, kAlertStdAlertOKButton);
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].type, kAlertNoteAlert);
    EXPECT_EQ(shown()[0].text, QStringLiteral("Text"));
    EXPECT_EQ(shown()[0].explanation, QStringLiteral("More"));
    EXPECT_EQ(titlesOf(shown()[0]), (Titles{{1, "OK"}}));
    EXPECT_EQ(shown()[0].defaultButton, 1);
    EXPECT_EQ(shown()[0].cancelButton, 0);
    EXPECT_FALSE(shown()[0].layout.has_value());
}

TEST_F(StandardAlertCall, HasTheSystemsWordsWhereTheyAreAskedFor)
{
    AlertStdAlertParamRec parameters = okParameters();
    parameters.cancelText = SYSTEM_WORD;
    parameters.otherText = SYSTEM_WORD;
    parameters.helpButton = true;
    SInt16 hit = 0;
    EXPECT_EQ(StandardAlert(kAlertStopAlert, nullptr, nullptr, &parameters, &hit), noErr);
    EXPECT_EQ(titlesOf(shown().at(0)), (Titles{{1, "OK"}, {2, "Cancel"}, {3, "Don't Save"}, {4, "Help"}}));
}

TEST_F(StandardAlertCall, HasTheGivenTitlesAndNoButtonWhereNoneIsGiven)
{
    const PascalString yes("Yes");
    const PascalString other("Some\xC9");  // an ellipsis in Mac OS Roman
    AlertStdAlertParamRec parameters = okParameters();
    parameters.defaultText = yes;
    parameters.otherText = other;
    SInt16 hit = 0;
    EXPECT_EQ(StandardAlert(kAlertCautionAlert, nullptr, nullptr, &parameters, &hit), noErr);
    EXPECT_EQ(titlesOf(shown().at(0)), (Titles{{1, "Yes"}, {3, "Some\u2026"}}));
}

TEST_F(StandardAlertCall, ShowsNothingForNullTexts)
{
    SInt16 hit = 0;
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, nullptr, nullptr, nullptr, &hit), noErr);
    EXPECT_TRUE(shown().at(0).text.isEmpty());
    EXPECT_TRUE(shown().at(0).explanation.isEmpty());
}

TEST_F(StandardAlertCall, ReadsTextsOfEveryLength)
{
    for (const std::size_t length : {0u, 1u, 254u, 255u}) {
        SInt16 hit = 0;
        const std::string text(length, 'x');
        EXPECT_EQ(StandardAlert(kAlertNoteAlert, PascalString(text), nullptr, nullptr, &hit), noErr);
        EXPECT_EQ(shown().back().text.toStdString(), text);
    }
}

TEST_F(StandardAlertCall, EndsLinesWithLineFeeds)
{
    SInt16 hit = 0;
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, PascalString("a\rb\nc\r\nd"), PascalString("\r"), nullptr, &hit), noErr);
    EXPECT_EQ(shown().at(0).text, QStringLiteral("a\nb\nc\nd"));
    EXPECT_EQ(shown().at(0).explanation, QStringLiteral("\n"));
}

TEST_F(StandardAlertCall, ReportsTheSlotThatWasPressed)
{
    AlertStdAlertParamRec parameters = okParameters();
    parameters.cancelText = SYSTEM_WORD;
    for (const SInt16 slot : {SInt16{1}, SInt16{2}}) {
        SInt16 hit = UNTOUCHED;
        answerWith(slot);
        EXPECT_EQ(StandardAlert(kAlertNoteAlert, nullptr, nullptr, &parameters, &hit), noErr);
        EXPECT_EQ(hit, slot);
    }
}

struct KeyCase {
    const char* name;
    SInt16 wanted;
    SInt16 expected;
};

// The buttons there are OK and Cancel.
const KeyCase KEY_CASES[] = {
    {"None", 0, 0},
    {"OK", 1, 1},
    {"Cancel", 2, 2},
    {"OneThatIsNotThere", 3, 0},
    {"OneThatNoAlertHas", 5, 0},
    {"Negative", -1, 0},
};

class StandardAlertKeys : public AlertTest, public testing::WithParamInterface<KeyCase> { };

TEST_P(StandardAlertKeys, ArePressedByReturnAndEscape)
{
    AlertStdAlertParamRec parameters = okParameters();
    parameters.cancelText = SYSTEM_WORD;
    parameters.defaultButton = GetParam().wanted;
    parameters.cancelButton = GetParam().wanted;
    SInt16 hit = 0;
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, nullptr, nullptr, &parameters, &hit), noErr);
    EXPECT_EQ(shown().at(0).defaultButton, GetParam().expected);
    EXPECT_EQ(shown().at(0).cancelButton, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StandardAlertKeys, testing::ValuesIn(KEY_CASES), [](const auto& row) { return row.param.name; });

TEST_F(StandardAlertCall, IsTracedWithItsTextsAndItem)
{
    SInt16 hit = UNTOUCHED;
    std::string line;
    Toolbox::SetTrace([&line](const std::string& each) { line = each; });
    StandardAlert(kAlertNoteAlert, PascalString("A \"text\"\r"), nullptr, nullptr, &hit);
    Toolbox::SetTrace(nullptr);
    EXPECT_EQ(line.find(R"(StandardAlert(1, "A \"text\"\u000d", null, null, 0x)"), 0u) << line;
    EXPECT_EQ(line.substr(line.find(" = ")), " = 0 -> 1");
}

TEST_F(StandardAlertCall, RefusesANullResult)
{
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, PascalString("Text"), nullptr, nullptr, nullptr), paramErr);
    EXPECT_TRUE(shown().empty());
}

TEST_F(StandardAlertCall, RefusesAnAlertThatNothingCouldEnd)
{
    const AlertStdAlertParamRec noButtons{};
    SInt16 hit = UNTOUCHED;
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, PascalString("Text"), nullptr, &noButtons, &hit), paramErr);
    EXPECT_EQ(hit, UNTOUCHED);
    EXPECT_TRUE(shown().empty());
}

TEST_F(StandardAlertCall, IsReported)
{
    struct {
        AlertType type;
        const char* kind;
    } const kinds[] = {{0, "stop"}, {1, "note"}, {2, "caution"}, {3, "plain"}, {4, "plain"}, {-1, "plain"}};
    for (const auto& [type, kind] : kinds) {
        AlertStdAlertParamRec parameters = okParameters();
        parameters.otherText = SYSTEM_WORD;
        answerWith(3);
        SInt16 hit = 0;
        EXPECT_EQ(StandardAlert(type, PascalString("caf\x8E"), PascalString("More"), &parameters, &hit), noErr);
        const std::vector<Toolbox::ShownAlert> alerts = Toolbox::TakeReport().alerts;
        ASSERT_EQ(alerts.size(), 1u);
        const Toolbox::ShownAlert& noted = alerts[0];
        EXPECT_EQ(noted.kind, kind);
        EXPECT_FALSE(noted.id.has_value());
        EXPECT_EQ(noted.text, "caf\u00e9");
        EXPECT_EQ(noted.explanation, "More");
        EXPECT_EQ(noted.buttons, (std::vector<std::string>{"OK", "", "Don't Save"}));
        EXPECT_EQ(noted.pressed, 3);
    }
}

// ---- CreateStandardAlert and RunStandardAlert

class CreatedAlert : public AlertTest {
protected:
    static std::size_t waiting() { return liveObjects()["alert"]; }
};

TEST_F(CreatedAlert, IsShownWhenItIsRun)
{
    const String text("W\u00fcnsche");
    const String explanation("a\rb");
    const String title("Ja");
    AlertStdCFStringAlertParamRec parameters = okStringParameters();
    parameters.defaultText = title;
    parameters.cancelText = SYSTEM_STRING;
    parameters.otherText = SYSTEM_STRING;
    parameters.helpButton = true;
    parameters.cancelButton = kAlertStdAlertCancelButton;
    DialogRef alert = nullptr;
    EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, text, explanation, &parameters, &alert), noErr);
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(shown().empty());

    answerWith(2);
    DialogItemIndex hit = UNTOUCHED;
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), noErr);
    EXPECT_EQ(hit, 2);
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].type, kAlertNoteAlert);
    EXPECT_EQ(shown()[0].text, QStringLiteral("W\u00fcnsche"));
    EXPECT_EQ(shown()[0].explanation, QStringLiteral("a\nb"));
    EXPECT_EQ(titlesOf(shown()[0]), (Titles{{1, "Ja"}, {2, "Cancel"}, {3, "Don't Save"}, {4, "Help"}}));
    EXPECT_EQ(shown()[0].defaultButton, 1);
    EXPECT_EQ(shown()[0].cancelButton, 2);
}

TEST_F(CreatedAlert, HasOneOKButtonAndNoTextsWhereNothingIsGiven)
{
    DialogRef alert = nullptr;
    DialogItemIndex hit = 0;
    EXPECT_EQ(CreateStandardAlert(kAlertPlainAlert, nullptr, nullptr, nullptr, &alert), noErr);
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), noErr);
    EXPECT_EQ(titlesOf(shown().at(0)), (Titles{{1, "OK"}}));
    EXPECT_TRUE(shown()[0].text.isEmpty());
    EXPECT_EQ(shown()[0].defaultButton, 1);
}

TEST_F(CreatedAlert, KeepsItsTextsWhenTheCallerReleasesThem)
{
    DialogRef alert = nullptr;
    {
        const String text("Text");
        EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, text, nullptr, nullptr, &alert), noErr);
    }
    DialogItemIndex hit = 0;
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), noErr);
    EXPECT_EQ(shown().at(0).text, QStringLiteral("Text"));
}

TEST_F(CreatedAlert, IsGoneOnceItWasRun)
{
    DialogRef alert = nullptr;
    DialogItemIndex hit = 0;
    EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, nullptr, nullptr, nullptr, &alert), noErr);
    EXPECT_EQ(waiting(), 1u);
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), noErr);
    EXPECT_EQ(waiting(), 0u);
    hit = UNTOUCHED;
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), paramErr);
    EXPECT_EQ(hit, UNTOUCHED);
    EXPECT_EQ(shown().size(), 1u);
}

TEST_F(CreatedAlert, WaitsOnAfterANullResult)
{
    DialogRef alert = nullptr;
    DialogItemIndex hit = 0;
    EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, nullptr, nullptr, nullptr, &alert), noErr);
    EXPECT_EQ(RunStandardAlert(alert, nullptr, nullptr), paramErr);
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), noErr);
}

TEST_F(CreatedAlert, IsNotRunByAWrongReference)
{
    DialogItemIndex hit = UNTOUCHED;
    EXPECT_EQ(RunStandardAlert(nullptr, nullptr, &hit), paramErr);
    EXPECT_EQ(RunStandardAlert(reinterpret_cast<DialogRef>(0x1234), nullptr, &hit), paramErr);
    EXPECT_EQ(hit, UNTOUCHED);
    EXPECT_TRUE(shown().empty());
}

struct RefusedCase {
    const char* name;
    void (*spoil)(AlertStdCFStringAlertParamRec&);
};

const RefusedCase REFUSED_CASES[] = {
    {"VersionBefore", [](AlertStdCFStringAlertParamRec& record) { record.version = 0; }},
    {"VersionAfter", [](AlertStdCFStringAlertParamRec& record) { record.version = 2; }},
    {"DeadDefaultText", [](AlertStdCFStringAlertParamRec& record) { record.defaultText = DEAD_STRING; }},
    {"DeadCancelText", [](AlertStdCFStringAlertParamRec& record) { record.cancelText = DEAD_STRING; }},
    {"DeadOtherText", [](AlertStdCFStringAlertParamRec& record) { record.otherText = DEAD_STRING; }},
    {"NoButton", [](AlertStdCFStringAlertParamRec& record) { record.defaultText = nullptr; }},
};

class RefusedAlert : public CreatedAlert, public testing::WithParamInterface<RefusedCase> { };

TEST_P(RefusedAlert, IsNotMade)
{
    AlertStdCFStringAlertParamRec parameters = okStringParameters();
    GetParam().spoil(parameters);
    DialogRef alert = reinterpret_cast<DialogRef>(0x1234);
    EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, nullptr, nullptr, &parameters, &alert), paramErr);
    EXPECT_EQ(alert, nullptr);
    EXPECT_EQ(waiting(), 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RefusedAlert, testing::ValuesIn(REFUSED_CASES), [](const auto& row) { return row.param.name; });

TEST_F(CreatedAlert, IsNotMadeOfDeadTexts)
{
    DialogRef alert = nullptr;
    EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, DEAD_STRING, nullptr, nullptr, &alert), paramErr);
    EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, nullptr, DEAD_STRING, nullptr, &alert), paramErr);
    EXPECT_EQ(alert, nullptr);
}

TEST_F(CreatedAlert, IsNotMadeWithoutAPlaceForIt)
{
    EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, nullptr, nullptr, nullptr, nullptr), paramErr);
    EXPECT_EQ(waiting(), 0u);
}

}  // namespace
