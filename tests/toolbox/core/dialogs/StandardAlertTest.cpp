#include "tests/toolbox/core/dialogs/RecordingDisplay.h"

#include <Carbon/Dialogs.h>
#include <CoreFoundation/CFString.h>
#include <Toolbox/Trace.h>

#include <utility>

namespace {

const ConstStringPtr SYSTEM_WORD = reinterpret_cast<ConstStringPtr>(kAlertDefaultOKText);
const CFStringRef SYSTEM_STRING = reinterpret_cast<CFStringRef>(kAlertDefaultOKText);
const CFStringRef DEAD_STRING = reinterpret_cast<CFStringRef>(0x1234);
// Here, since the first use of a constant makes an object that stays.
const CFStringRef JA = CFSTR("Ja");
const CFStringRef TWO_LINES = CFSTR("a\rb");

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

// One button, the system's OK, which Return presses.
const AlertStdAlertParamRec OK_ALONE = {
    true, false, nullptr, SYSTEM_WORD, nullptr, nullptr, kAlertStdAlertOKButton, 0, 0};
const AlertStdCFStringAlertParamRec OK_ALONE_OF_STRINGS = {
    kStdCFStringAlertVersionOne, true, false, SYSTEM_STRING, nullptr, nullptr, kAlertStdAlertOKButton, 0, 0, 0};

// ---- StandardAlert

class StandardAlertCall : public AlertTest {
protected:
    // Shows an alert and returns what the display got.
    const Toolbox::Alert& show(ConstStringPtr text = nullptr, ConstStringPtr explanation = nullptr,
        const AlertStdAlertParamRec* its = nullptr, AlertType type = kAlertNoteAlert)
    {
        hit = UNTOUCHED;
        EXPECT_EQ(StandardAlert(type, text, explanation, its, &hit), noErr);
        return shown.back();
    }

    AlertStdAlertParamRec parameters = OK_ALONE;
    SInt16 hit = UNTOUCHED;
};

TEST_F(StandardAlertCall, HasOneOKButtonWithoutParameters)
{
    EXPECT_EQ(inWords(show(PascalString("Text"), PascalString("More"))), "1: Text (More), 1 OK Return");
    EXPECT_EQ(hit, kAlertStdAlertOKButton);
    EXPECT_EQ(shown.size(), 1u);
    EXPECT_FALSE(shown[0].layout.has_value());
}

TEST_F(StandardAlertCall, HasTheWordsOfTheSystemOrTheGivenTitlesAndNoOtherButton)
{
    parameters.cancelText = SYSTEM_WORD;
    parameters.otherText = SYSTEM_WORD;
    parameters.helpButton = true;
    EXPECT_EQ(inWords(show(nullptr, nullptr, &parameters)), "1:  (), 1 OK Return, 2 Cancel, 3 Don't Save, 4 Help");
    parameters = OK_ALONE;
    const PascalString yes("Yes");
    const PascalString other("Some\xC9");  // an ellipsis in Mac OS Roman
    parameters.defaultText = yes;
    parameters.otherText = other;
    EXPECT_EQ(inWords(show(nullptr, nullptr, &parameters)), "1:  (), 1 Yes Return, 3 Some\u2026");
}

TEST_F(StandardAlertCall, ShowsTextsOfEveryLengthWithLineFeeds)
{
    for (const std::size_t length : {0u, 1u, 254u, 255u}) {
        const std::string text(length, 'x');
        EXPECT_EQ(show(PascalString(text)).text.toStdString(), text);
    }
    EXPECT_EQ(inWords(show(PascalString("a\rb\nc\r\nd"), PascalString("\r"))), "1: a\nb\nc\nd (\n), 1 OK Return");
}

TEST_F(StandardAlertCall, IsAnsweredByReturnAndEscapeWithTheButtonsNamedIfTheyAreThere)
{
    parameters.cancelText = SYSTEM_WORD;  // the buttons there are OK and Cancel
    for (const auto& [wanted, expected] : {std::pair<SInt16, SInt16>{0, 0}, {1, 1}, {2, 2}, {3, 0}, {5, 0}, {-1, 0}}) {
        parameters.defaultButton = wanted;
        parameters.cancelButton = wanted;
        const Toolbox::Alert& alert = show(nullptr, nullptr, &parameters);
        EXPECT_EQ(alert.defaultButton, expected) << wanted;
        EXPECT_EQ(alert.cancelButton, expected) << wanted;
    }
}

TEST_F(StandardAlertCall, IsTracedWithItsTextsAndItem)
{
    const PascalString yes("Yes");
    parameters.defaultText = yes;
    parameters.cancelText = SYSTEM_WORD;
    std::string line;
    Toolbox::SetTrace([&line](const std::string& each) { line = each; });
    show(PascalString("A \"text\"\r"), nullptr, &parameters);
    Toolbox::SetTrace(nullptr);
    EXPECT_EQ(line.find(R"(StandardAlert(1, "A \"text\"\u000d", null, {"Yes", "Cancel"}, 0x)"), 0u) << line;
    EXPECT_EQ(line.substr(line.find(" = ")), " = 0 -> 1");
}

TEST_F(StandardAlertCall, RefusesANullResultAndAnAlertThatNothingCouldEnd)
{
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, PascalString("Text"), nullptr, nullptr, nullptr), paramErr);
    EXPECT_TRUE(shown.empty());
    const AlertStdAlertParamRec noButtons{};
    EXPECT_EQ(StandardAlert(kAlertNoteAlert, PascalString("Text"), nullptr, &noButtons, &hit), paramErr);
    EXPECT_EQ(hit, UNTOUCHED);
    EXPECT_TRUE(shown.empty());
}

TEST_F(StandardAlertCall, IsReportedWithTheSlotThatWasPressed)
{
    const std::pair<AlertType, const char*> kinds[] = {
        {0, "stop"}, {1, "note"}, {2, "caution"}, {3, "plain"}, {4, "plain"}, {-1, "plain"}};
    parameters.otherText = SYSTEM_WORD;
    answer = 3;
    for (const auto& [type, kind] : kinds) {
        show(PascalString("caf\x8E"), PascalString("More"), &parameters, type);
        EXPECT_EQ(hit, 3);
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

    // The alert of these, which can be made.
    static DialogRef create(CFStringRef text = nullptr, CFStringRef explanation = nullptr,
        const AlertStdCFStringAlertParamRec* parameters = nullptr)
    {
        DialogRef alert = nullptr;
        EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, text, explanation, parameters, &alert), noErr);
        return alert;
    }

    DialogItemIndex hit = UNTOUCHED;
};

TEST_F(CreatedAlert, IsShownWhenItIsRun)
{
    AlertStdCFStringAlertParamRec parameters = OK_ALONE_OF_STRINGS;
    parameters.defaultText = JA;
    parameters.cancelText = SYSTEM_STRING;
    parameters.otherText = SYSTEM_STRING;
    parameters.helpButton = true;
    parameters.cancelButton = kAlertStdAlertCancelButton;
    const CFStringRef text = CFStringCreateWithCString(nullptr, "W\u00fcnsche", kCFStringEncodingUTF8);
    const DialogRef alert = create(text, TWO_LINES, &parameters);
    CFRelease(text);  // the alert has its own
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(shown.empty());

    answer = 2;
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), noErr);
    EXPECT_EQ(hit, 2);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(inWords(shown[0]), "1: W\u00fcnsche (a\nb), 1 Ja Return, 2 Cancel Escape, 3 Don't Save, 4 Help");
}

TEST_F(CreatedAlert, WaitsUntilItIsRunAndHasOneOKButtonAndNoTextsWhereNothingIsGiven)
{
    const DialogRef alert = create();
    EXPECT_EQ(RunStandardAlert(alert, nullptr, nullptr), paramErr);
    EXPECT_TRUE(shown.empty());
    EXPECT_EQ(waiting(), 1u);
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), noErr);
    EXPECT_EQ(waiting(), 0u);
    hit = UNTOUCHED;
    EXPECT_EQ(RunStandardAlert(alert, nullptr, &hit), paramErr);
    EXPECT_EQ(hit, UNTOUCHED);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(inWords(shown[0]), "1:  (), 1 OK Return");
}

TEST_F(CreatedAlert, IsNotMadeOfWrongParametersOrWithoutAPlaceForIt)
{
    const std::pair<const char*, void (*)(AlertStdCFStringAlertParamRec&)> rows[] = {
        {"version before", [](AlertStdCFStringAlertParamRec& record) { record.version = 0; }},
        {"version after", [](AlertStdCFStringAlertParamRec& record) { record.version = 2; }},
        {"dead default text", [](AlertStdCFStringAlertParamRec& record) { record.defaultText = DEAD_STRING; }},
        {"dead cancel text", [](AlertStdCFStringAlertParamRec& record) { record.cancelText = DEAD_STRING; }},
        {"dead other text", [](AlertStdCFStringAlertParamRec& record) { record.otherText = DEAD_STRING; }},
        {"no button", [](AlertStdCFStringAlertParamRec& record) { record.defaultText = nullptr; }},
    };
    for (const auto& [name, spoil] : rows) {
        SCOPED_TRACE(name);
        AlertStdCFStringAlertParamRec parameters = OK_ALONE_OF_STRINGS;
        spoil(parameters);
        DialogRef alert = reinterpret_cast<DialogRef>(0x1234);
        EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, nullptr, nullptr, &parameters, &alert), paramErr);
        EXPECT_EQ(alert, nullptr);
    }
    DialogRef alert = nullptr;
    for (const CFStringRef wrong : {DEAD_STRING, SYSTEM_STRING}) {
        EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, wrong, nullptr, nullptr, &alert), paramErr);
        EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, nullptr, wrong, nullptr, &alert), paramErr);
    }
    EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, nullptr, nullptr, nullptr, nullptr), paramErr);
    EXPECT_EQ(waiting(), 0u);
}

}  // namespace
