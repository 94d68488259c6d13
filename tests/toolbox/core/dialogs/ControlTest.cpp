#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <cstdint>
#include <limits>

namespace {

using Toolbox::Control;
using Toolbox::ControlKind;
using Toolbox::MenuItem;

class ControlManager : public WindowTest { };

TEST_F(ControlManager, FindsAControlBySignatureAndNumberAtAnyDepth)
{
    TestWindow made;
    Control& shallow = made.add(ControlKind::Other);
    shallow.id = {'demo', 2};
    Control* container = &made.root();
    for (int depth = 0; depth < 10; ++depth)
        container = &made.addTo(*container, ControlKind::GroupBox);
    container->id = {'demo', 1};
    made.add(ControlKind::Other).id = {'demo', 1};  // a second one

    const struct {
        ControlID id;
        const Control* control;
    } rows[] = {
        {{'demo', 1}, container},
        {{'demo', 2}, &shallow},
        {{'demo', 3}, nullptr},
        {{'demo', -1}, nullptr},
        {{'Demo', 1}, nullptr},
        {{'omed', 1}, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id.id);
        ControlRef found = reinterpret_cast<ControlRef>(std::uintptr_t{1});
        const OSStatus status = GetControlByID(made.ref, &row.id, &found);
        if (row.control == nullptr) {
            EXPECT_EQ(status, errUnknownControl);
            EXPECT_EQ(found, nullptr);
        } else {
            EXPECT_EQ(status, noErr);
            EXPECT_EQ(found, row.control->ref());
        }
    }
}

TEST_F(ControlManager, GetControlByIDAnswersWrongArgumentsWithTheirErrors)
{
    TestWindow made;
    made.root().id = {'demo', 1};
    const ControlID id = {'demo', 1};
    const WindowRef dead = [] { return TestWindow().ref; }();
    for (const WindowRef wrong : {WindowRef(), dead, reinterpret_cast<WindowRef>(made.root().ref())}) {
        ControlRef found = made.root().ref();
        EXPECT_EQ(GetControlByID(wrong, &id, &found), errInvalidWindowRef);
        EXPECT_EQ(found, nullptr);
    }
    ControlRef found = made.root().ref();
    EXPECT_EQ(GetControlByID(made.ref, nullptr, &found), paramErr);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(GetControlByID(made.ref, &id, nullptr), paramErr);
}

TEST_F(ControlManager, ReferencesOfControlsEndWithTheWindow)
{
    TestWindow made;
    const ControlRef button = made.addButton(0).ref();
    SetControl32BitValue(button, 0);
    DisposeWindow(made.ref);
    for (const ControlRef wrong : {button, ControlRef()}) {
        SetControl32BitValue(wrong, 1);
        EXPECT_EQ(GetControl32BitValue(wrong), 0);
    }
}

struct ValueCase {
    const char* name;
    SInt32 minimum;
    SInt32 maximum;
    SInt32 wanted;
    SInt32 value;
};

constexpr SInt32 LEAST = std::numeric_limits<SInt32>::min();
constexpr SInt32 MOST = std::numeric_limits<SInt32>::max();

// clang-format off
const ValueCase VALUE_CASES[] = {
    // name           minimum maximum wanted value
    {"BelowTheRange",       1,      6,     0,    1},
    {"FarBelowTheRange",    1,      6, LEAST,    1},
    {"TheFirst",            1,      6,     1,    1},
    {"Between",             1,      6,     4,    4},
    {"TheLast",             1,      6,     6,    6},
    {"AboveTheRange",       1,      6,     7,    6},
    {"FarAboveTheRange",    1,      6,  MOST,    6},
    {"EmptyMenu",           0,      0,     1,    0},
    {"RangeUpsideDown",     5,      1,     3,    5},
    {"WholeRange",      LEAST,   MOST,  MOST, MOST},
};
// clang-format on

class ControlValue : public WindowTest, public testing::WithParamInterface<ValueCase> { };

TEST_P(ControlValue, TakesTheNearerEndOfTheRange)
{
    TestWindow made;
    made.root().minimum = GetParam().minimum;
    made.root().maximum = GetParam().maximum;
    SetControl32BitValue(made.root().ref(), GetParam().wanted);
    EXPECT_EQ(GetControl32BitValue(made.root().ref()), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ControlValue, testing::ValuesIn(VALUE_CASES), [](const auto& row) { return row.param.name; });

struct UsableCase {
    const char* name;
    bool outerEnabled, outerHidden, enabled, hidden;
    bool shown, usable;
};

// clang-format off
const UsableCase USABLE_CASES[] = {
    // name             outer: enabled hidden  enabled hidden  shown  usable
    {"Plain",                  true,   false,  true,   false,  true,  true},
    {"Disabled",               true,   false,  false,  false,  true,  false},
    {"Hidden",                 true,   false,  true,   true,   false, false},
    {"InADisabledOne",         false,  false,  true,   false,  true,  false},
    {"InAHiddenOne",           true,   true,   true,   false,  false, false},
};
// clang-format on

class ControlUse : public WindowTest, public testing::WithParamInterface<UsableCase> { };

TEST_P(ControlUse, DependsOnWhatItLiesInToo)
{
    TestWindow made;
    Control& outer = made.add(ControlKind::GroupBox);
    Control& between = made.addTo(outer, ControlKind::Other);
    Control& control = made.addTo(between, ControlKind::Button);
    outer.enabled = GetParam().outerEnabled;
    outer.hidden = GetParam().outerHidden;
    control.enabled = GetParam().enabled;
    control.hidden = GetParam().hidden;
    EXPECT_EQ(control.shown(), GetParam().shown);
    EXPECT_EQ(control.usable(), GetParam().usable);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ControlUse, testing::ValuesIn(USABLE_CASES), [](const auto& row) { return row.param.name; });

TEST_F(ControlManager, OffersTheItemsThatCanBeChosen)
{
    TestWindow made;
    const Control& popUp = made.addPopUp({
        {QStringLiteral("first")},
        {QString(), 0, true, true},  // a separator
        {QStringLiteral("disabled"), 0, false},
        {QStringLiteral("hidden"), 0, true, false, true},
        {QStringLiteral("last")},
    });
    const struct {
        SInt32 item;
        bool offered;
    } rows[] = {{LEAST, false}, {-1, false}, {0, false}, {1, true}, {2, false}, {3, false}, {4, false}, {5, true},
        {6, false}, {MOST, false}};
    for (const auto& row : rows)
        EXPECT_EQ(popUp.offers(row.item), row.offered) << row.item;
}

}  // namespace
