#include "toolbox/core/nibs/NibWindow.h"

#include "tests/toolbox/core/dialogs/TestWindow.h"
#include "tests/toolbox/core/nibs/SampleNib.h"
#include "toolbox/base/TracedCall.h"

#include <QStringList>

#include <stdexcept>
#include <utility>

namespace {

using Toolbox::ButtonRole;
using Toolbox::Control;
using Toolbox::ControlKind;
using Toolbox::Justification;
using Toolbox::NibArchive;
using Toolbox::NibObject;
using Toolbox::NibReference;
using Toolbox::Window;

// What a window is refused with.
struct Unfit : std::runtime_error {
    using runtime_error::runtime_error;
};

// The window `name` of the archive `xml`. Throws Unfit where it cannot be made, and another exception where there is no
// archive with such an object.
std::unique_ptr<Window> windowOf(const std::string& xml, const char* name = "Window")
{
    QString problem;
    const NibArchive archive = NibArchive::read(QByteArray::fromStdString(xml), &problem).value();
    const auto* const named = archive.named(QLatin1String(name));
    if (named == nullptr)
        throw std::invalid_argument("the archive names nothing so");
    const NibObject& object = *archive.find(*named->as<NibReference>());
    EXPECT_TRUE(Toolbox::isWindow(object));
    auto window = Toolbox::makeWindow(archive, object, QLatin1String(name), &problem);
    EXPECT_EQ(window != nullptr, problem.isEmpty()) << problem.toStdString();
    if (window == nullptr)
        throw Unfit(problem.toStdString());
    return window;
}

// An archive of a window with these properties alone.
std::string nibOfWindow(const std::string& properties)
{
    return "<object class='NSIBObjectData'><dictionary name='nameTable'><string>Window</string>"
           "<object class='IBCarbonWindow' id='2'>"
        + properties + "</object></dictionary></object>";
}

// The property `name` with a number.
std::string number(const char* name, long long value)
{
    return std::string("<int name='") + name + "'>" + std::to_string(value) + "</int>";
}

// The window with a control of `className` that has `properties`.
std::unique_ptr<Window> windowWith(const std::string& className, const std::string& properties = std::string())
{
    return windowOf(nibOf(controlOf(className, properties)));
}

// The first control in the window's root.
const Control& onlyControl(const std::unique_ptr<Window>& window)
{
    return *window->root->children.at(0);
}

std::vector<int> edges(const Rect& rectangle)
{
    return {rectangle.top, rectangle.left, rectangle.bottom, rectangle.right};
}

std::string inWords(const Control& control)
{
    std::string words = control.title.toStdString() + " at";
    for (const int edge : edges(control.bounds))
        words += ' ' + std::to_string(edge);
    words += ", id " + Toolbox::describeNumber(control.id.signature) + ' ' + std::to_string(control.id.id);
    words += ", command " + Toolbox::describeNumber(control.command);
    words += control.role == ButtonRole::Default ? ", default" : control.role == ButtonRole::Cancel ? ", cancel" : "";
    words += control.enabled ? "" : ", disabled";
    words += control.hidden ? ", hidden" : "";
    return words + (control.container == nullptr ? "" : ", inside");
}

std::string inWords(const Toolbox::MenuItem& item)
{
    return item.title.toStdString() + ", command " + Toolbox::describeNumber(item.command)
        + (item.enabled ? "" : ", disabled") + (item.separator ? ", separator" : "") + (item.hidden ? ", hidden" : "");
}

class NibWindow : public WindowTest { };

// ---- What it has

TEST_F(NibWindow, HasItsControlsInTheirOrderWhereverTheyStand)
{
    std::vector<std::string> controls;
    const auto window = windowOf(SAMPLE_NIB);
    for (const Control* const each : window->controls())
        controls.push_back(inWords(*each));
    EXPECT_EQ(controls,
        (std::vector<std::string>{
            " at 0 0 100 200, id 0 0, command 0",
            "Choose a <size>: at 1 2 3 4, id 0 0, command 0, inside",
            " at 1 2 3 4, id 'demo' 1, command 0, inside",
            "OK at 80 230 100 300, id 0 0, command 'ok  ', default, inside",
            "Cancel at 1 2 3 4, id 0 0, command 'not!', cancel, inside",
        }));
}

TEST_F(NibWindow, LabelsControlsByTheLastTextShownBeforeThem)
{
    const std::string button = controlOf("IBCarbonButton");
    const auto text = [](const char* title, const char* hidden = "FALSE") {
        return controlOf("IBCarbonStaticText", titled(title) + "<boolean name='hidden'>" + hidden + "</boolean>");
    };
    const auto box = [](const std::string& inside, const char* hidden = "FALSE") {
        return controlOf("IBCarbonGroupBox",
            std::string("<boolean name='hidden'>") + hidden + "</boolean><array name='subviews'>" + inside
                + "</array>");
    };
    const auto window = windowOf(nibOf(button + text("One") + button + text("Hidden", "TRUE") + button
        + box(text("Within a hidden one"), "TRUE") + button + box(text("Two\n2 :") + button) + button));
    QStringList labels;
    for (const Control* const each : window->controls())
        if (each->kind == ControlKind::Button)
            labels += Toolbox::labelOf(*each);
    EXPECT_EQ(labels, (QStringList{"", "One", "One", "One", "Two 2", "Two 2"}));
}

// ---- Properties and their defaults

TEST_F(NibWindow, HasThePropertiesOfItsArchiveOrTheirDefaults)
{
    const std::string rectangle = "<string name='windowRect'>200 300 320 620 </string>";
    const auto window = windowOf(nibOfWindow(rectangle + titled("Paper &amp; ink")));
    EXPECT_EQ(window->title, QStringLiteral("Paper & ink"));
    EXPECT_EQ(edges(window->content), (std::vector<int>{200, 300, 320, 620}));
    EXPECT_FALSE(window->visible);
    const auto plain = windowOf(nibOfWindow(rectangle));
    EXPECT_TRUE(plain->title.isEmpty());
    ASSERT_EQ(plain->controls().size(), 1u);
    EXPECT_EQ(plain->controls()[0]->kind, ControlKind::Root);
}

TEST_F(NibWindow, GivesControlsOfAnyClassWhatEveryControlHas)
{
    const std::string properties = titled("T")
        + "<ostype name='controlSignature'>sign</ostype><int name='controlID'>-5</int>"
          "<ostype name='command'>comm</ostype><boolean name='enabled'>FALSE</boolean>"
          "<boolean name='hidden'>TRUE</boolean><string name='viewFrame'>9 9 9 9</string><array name='subviews'>"
        + controlOf("IBCarbonButton") + "</array>";
    for (const char* const name :
        {"IBCarbonButton", "IBCarbonGroupBox", "IBCarbonUserPane", "IBCarbonUnheardOf", "", "IBCarbonWindow"}) {
        SCOPED_TRACE(name);
        const auto window = windowWith(name, properties);
        const Control& control = onlyControl(window);
        EXPECT_EQ(inWords(control), "T at 1 2 3 4, id 'sign' -5, command 'comm', disabled, hidden, inside");
        EXPECT_EQ(inWords(*control.children.at(0)), " at 1 2 3 4, id 0 0, command 0, inside");
        EXPECT_EQ(control.children.at(0)->container, &control);
    }
}

const std::string TWO_ITEMS = menuOf("<object class='IBCarbonMenuItem'/><object class='IBCarbonMenuItem'/>");

// clang-format off
const struct {
    const char* name;
    const char* className;
    std::string properties;
    ControlKind kind;
    SInt32 minimum, maximum, value;
} CLASS_CASES[] = {
    // name               class                    properties                               kind                  min max value
    {"Button",            "IBCarbonButton",        "",                                      ControlKind::Button,      0,   0, 0},
    {"PopUp",             "IBCarbonPopupButton",   TWO_ITEMS,                               ControlKind::PopupButton, 1,   2, 1},
    {"PopUpItemZero",     "IBCarbonPopupButton",   TWO_ITEMS + number("selectedItem", 0),   ControlKind::PopupButton, 1,   2, 1},
    {"PopUpItemTooFar",   "IBCarbonPopupButton",   TWO_ITEMS + number("selectedItem", 3),   ControlKind::PopupButton, 1,   2, 2},
    {"PopUpEmptyMenu",    "IBCarbonPopupButton",   menuOf(""),                              ControlKind::PopupButton, 0,   0, 0},
    {"PopUpWithoutMenu",  "IBCarbonPopupButton",   "",                                      ControlKind::PopupButton, 0,   0, 0},
    {"StaticText",        "IBCarbonStaticText",    "",                                      ControlKind::StaticText,  0,   0, 0},
    {"EditText",          "IBCarbonEditText",      "",                                      ControlKind::Other,       0,   0, 0},
    {"CheckBox",          "IBCarbonCheckBox",      "",                                      ControlKind::Other,       0,   0, 0},
    {"GroupBox",          "IBCarbonGroupBox",      "",                                      ControlKind::GroupBox,    0,   0, 0},
    {"GroupBoxPopUp",     "IBCarbonGroupBox",      TWO_ITEMS + number("selectedItem", 2),   ControlKind::GroupBox,    1,   2, 2},
    {"Separator",         "IBCarbonSeparator",     "",                                      ControlKind::Separator,   0,   0, 0},
    {"BevelButtonMenu",   "IBCarbonBevelButton",   TWO_ITEMS,                               ControlKind::Other,       1,   2, 1},
    {"UserPane",          "IBCarbonUserPane",      "",                                      ControlKind::Other,       0,   0, 0},
    {"WithoutItsPrefix",  "Button",                "",                                      ControlKind::Other,       0,   0, 0},
};
// clang-format on

TEST_F(NibWindow, GivesEachClassItsKindAndValues)
{
    for (const auto& row : CLASS_CASES) {
        SCOPED_TRACE(row.name);
        const auto window = windowWith(row.className, row.properties);
        const Control& control = onlyControl(window);
        EXPECT_EQ(control.kind, row.kind);
        EXPECT_EQ(control.minimum, row.minimum);
        EXPECT_EQ(control.maximum, row.maximum);
        EXPECT_EQ(control.value, row.value);
        EXPECT_EQ(Toolbox::TakeReport().remarks.size(), control.kind == ControlKind::Other ? 1u : 0u);
    }
}

TEST_F(NibWindow, GivesButtonsTheirRoles)
{
    for (const auto& [type, role] : {std::pair{0, ButtonRole::Plain}, {1, ButtonRole::Default}, {2, ButtonRole::Cancel},
             {3, ButtonRole::Plain}, {-1, ButtonRole::Plain}})
        EXPECT_EQ(onlyControl(windowWith("IBCarbonButton", number("buttonType", type))).role, role) << type;
}

TEST_F(NibWindow, JustifiesTexts)
{
    for (const auto& [how, justification] :
        {std::pair{0, Justification::Natural}, {1, Justification::Center}, {-1, Justification::Right},
            {-2, Justification::Left}, {2, Justification::Natural}, {-3, Justification::Natural}}) {
        const auto window = windowWith("IBCarbonStaticText", number("justification", how));
        EXPECT_EQ(onlyControl(window).justification, justification) << how;
    }
    EXPECT_EQ(onlyControl(windowWith("IBCarbonStaticText")).justification, Justification::Natural) << "not said";
}

TEST_F(NibWindow, RemarksOnEachControlThatIsNotDrawn)
{
    const std::string identity = "<ostype name='controlSignature'>sign</ostype><int name='controlID'>5</int>";
    windowOf(nibOf(controlOf("IBCarbonEditText", identity) + controlOf("IBCarbonButton")
        + controlOf("IBCarbonSlider", "<boolean name='hidden'>TRUE</boolean>") + controlOf("IBCarbonIcon")));
    EXPECT_EQ(Toolbox::TakeReport().remarks,
        (std::vector<std::string>{
            "the IBCarbonEditText 'sign' 5 of the window \"Window\" is not drawn: no display knows its class",
            "the IBCarbonIcon 0 0 of the window \"Window\" is not drawn: no display knows its class"}));
}

TEST_F(NibWindow, ReadsItemsWithTheirDefaults)
{
    const std::pair<std::string, const char*> rows[] = {
        {"", ", command 0"},
        {titled("A &amp; B") + "<ostype name='command'>it</ostype>", "A & B, command 'it  '"},
        {"<boolean name='disabled'>TRUE</boolean>", ", command 0, disabled"},
        {"<boolean name='separator'>TRUE</boolean>", ", command 0, separator"},
        {"<boolean name='hidden'>TRUE</boolean>", ", command 0, hidden"},
    };
    std::string items;
    for (const auto& [properties, words] : rows)
        items += "<object class='IBCarbonMenuItem'>" + properties + "</object>";
    const auto window = windowWith("IBCarbonPopupButton", menuOf(items));
    const auto& read = onlyControl(window).items;
    ASSERT_EQ(read.size(), std::size(rows));
    for (std::size_t i = 0; i < read.size(); ++i)
        EXPECT_EQ(inWords(read[i]), rows[i].second);
}

// ---- Archives that are wrong

// A pane whose only control is the one of `id`.
std::string paneAround(const std::string& id, const std::string& around)
{
    return "<object class='IBCarbonUserPane' id='" + id
        + "'><string name='bounds'>1 2 3 4 </string><array name='subviews'><reference idRef='" + around
        + "'/></array></object>";
}

const std::pair<const char*, std::string> UNFIT_CASES[] = {
    {"WindowWithoutRectangle", nibOfWindow("")},
    {"WindowWithAWrongRectangle", nibOfWindow("<string name='windowRect'>0 0 99999 1 </string>")},
    {"WindowAsItsRootControl",
        nibOfWindow("<string name='windowRect'>1 2 3 4 </string><string name='bounds'>1 2 3 4 </string>"
                    "<reference name='rootControl' idRef='2'/>")},
    {"RootControlThatIsNowhere",
        nibOfWindow("<string name='windowRect'>1 2 3 4 </string><reference name='rootControl' idRef='9'/>")},
    {"ControlWithoutBounds", nibOf("<object class='IBCarbonButton'/>")},
    {"ControlWithWrongBounds", nibOf("<object class='IBCarbonButton'><string name='bounds'>a b c d</string></object>")},
    {"BoundsOfAnotherType", nibOf("<object class='IBCarbonButton'><int name='bounds'>1</int></object>")},
    {"ControlThatIsNowhere", nibOf("<reference idRef='99'/>")},
    {"ControlThatIsNoObject", nibOf("<string>IBCarbonButton</string>")},
    {"ControlInItself", nibOf("<reference idRef='3'/>")},
    {"ControlTwice",
        nibOf("<reference idRef='9'/><reference idRef='9'/>",
            "<object class='IBCarbonButton' id='9'><string name='bounds'>1 2 3 4 </string></object>")},
    {"ControlsInEachOther", nibOf("<reference idRef='8'/>", paneAround("8", "9") + paneAround("9", "8"))},
    {"MenuThatIsNowhere", nibOf(controlOf("IBCarbonPopupButton", "<reference name='menu' idRef='99'/>"))},
    {"MenuOfTwoPopUps",
        nibOf(controlOf("IBCarbonPopupButton", "<reference name='menu' idRef='9'/>")
                + controlOf("IBCarbonPopupButton", "<reference name='menu' idRef='9'/>"),
            "<object class='IBCarbonMenu' id='9'/>")},
    {"MenuThatIsThePopUp",
        nibOf("<object class='IBCarbonPopupButton' id='9'><string name='bounds'>1 2 3 4 </string>"
              "<reference name='menu' idRef='9'/></object>")},
    {"ItemThatIsNowhere", nibOf(controlOf("IBCarbonPopupButton", menuOf("<reference idRef='99'/>")))},
    {"ItemTwice",
        nibOf(controlOf(
            "IBCarbonPopupButton", menuOf("<object class='IBCarbonMenuItem' id='9'/><reference idRef='9'/>")))},
    {"ItemThatIsTheRoot", nibOf(controlOf("IBCarbonPopupButton", menuOf("<reference idRef='3'/>")))},
};

TEST_F(NibWindow, IsNotMadeOfWhatDoesNotFit)
{
    for (const auto& [name, xml] : UNFIT_CASES)
        EXPECT_THROW(windowOf(xml), Unfit) << name;
}

TEST_F(NibWindow, MayHaveAMenuOfAsManyItemsAsCanBeCounted)
{
    const auto popUp = [](int items) {
        std::string all;
        for (int i = 0; i < items; ++i)
            all += "<object class='I'/>";
        return windowWith("IBCarbonPopupButton", menuOf(all));
    };
    EXPECT_NO_THROW(popUp(0x7FFF));
    EXPECT_THROW(popUp(0x8000), Unfit);
}

// Controls that lie in one another by references do not nest in the archive itself.
TEST_F(NibWindow, MayNestTo100Controls)
{
    const auto chain = [](int length) {
        std::string panes;
        for (int i = 1; i < length; ++i)
            panes += paneAround("p" + std::to_string(i), "p" + std::to_string(i + 1));
        return nibOf("<reference idRef='p1'/>",
            panes + "<object class='IBCarbonButton' id='p" + std::to_string(length)
                + "'><string name='bounds'>1 2 3 4 </string></object>");
    };
    EXPECT_NO_THROW(windowOf(chain(99)));  // and the root
    EXPECT_THROW(windowOf(chain(100)), Unfit);
    EXPECT_THROW(windowOf(chain(10000)), Unfit);
}

}  // namespace
