#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <cstdint>
#include <limits>
#include <tuple>
#include <utility>

namespace {

using Toolbox::Control;
using Toolbox::ControlKind;
using Toolbox::MenuItem;

class ControlManager : public WindowTest {
protected:
    TestWindow made;
};

TEST_F(ControlManager, FindsAControlBySignatureAndNumberAtAnyDepth)
{
    Control& shallow = made.add(ControlKind::Other);
    shallow.id = {'demo', 2};
    Control* container = &made.root();
    for (int depth = 0; depth < 10; ++depth)
        container = &made.addTo(*container, ControlKind::GroupBox);
    container->id = {'demo', 1};
    made.add(ControlKind::Other).id = {'demo', 1};  // a second one

    const std::pair<ControlID, const Control*> rows[] = {{{'demo', 1}, container}, {{'demo', 2}, &shallow},
        {{'demo', 3}, nullptr}, {{'demo', -1}, nullptr}, {{'Demo', 1}, nullptr}, {{'omed', 1}, nullptr}};
    for (const auto& [id, control] : rows) {
        SCOPED_TRACE(id.id);
        ControlRef found = reinterpret_cast<ControlRef>(std::uintptr_t{1});
        const OSStatus status = GetControlByID(made.ref, &id, &found);
        EXPECT_EQ(status, control == nullptr ? OSStatus{errUnknownControl} : OSStatus{noErr});
        EXPECT_EQ(found, control == nullptr ? nullptr : control->ref());
    }
}

TEST_F(ControlManager, FindsNothingWithoutAnIdentityOrAPlaceForIt)
{
    const ControlID id = {};
    ControlRef found = made.root().ref();
    EXPECT_EQ(GetControlByID(made.ref, nullptr, &found), paramErr);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(GetControlByID(made.ref, &id, nullptr), paramErr);
}

constexpr SInt32 LEAST = std::numeric_limits<SInt32>::min();
constexpr SInt32 MOST = std::numeric_limits<SInt32>::max();

TEST_F(ControlManager, SetsTheNearerEndOfTheRange)
{
    const std::tuple<SInt32, SInt32, SInt32, SInt32> rows[] = {
        {1, 6, 0, 1},
        {1, 6, LEAST, 1},
        {1, 6, 1, 1},
        {1, 6, 4, 4},
        {1, 6, 6, 6},
        {1, 6, 7, 6},
        {1, 6, MOST, 6},
        {0, 0, 1, 0},  // an empty menu
        {5, 1, 3, 5},  // upside down
        {LEAST, MOST, MOST, MOST},
    };
    for (const auto& [minimum, maximum, wanted, value] : rows) {
        made.root().minimum = minimum;
        made.root().maximum = maximum;
        SetControl32BitValue(made.root().ref(), wanted);
        EXPECT_EQ(GetControl32BitValue(made.root().ref()), value) << wanted;
    }
}

TEST_F(ControlManager, ShowsAndOffersAControlByWhatItLiesInToo)
{
    const struct {
        const char* name;
        bool outerEnabled, outerHidden, enabled, hidden;
        bool shown, usable;
    } rows[] = {
        {"plain", true, false, true, false, true, true},
        {"disabled", true, false, false, false, true, false},
        {"hidden", true, false, true, true, false, false},
        {"in a disabled one", false, false, true, false, true, false},
        {"in a hidden one", true, true, true, false, false, false},
    };
    Control& outer = made.add(ControlKind::GroupBox);
    Control& between = made.addTo(outer, ControlKind::Other);
    Control& control = made.addTo(between, ControlKind::Button);
    for (const auto& row : rows) {
        outer.enabled = row.outerEnabled;
        outer.hidden = row.outerHidden;
        control.enabled = row.enabled;
        control.hidden = row.hidden;
        EXPECT_EQ(control.shown(), row.shown) << row.name;
        EXPECT_EQ(control.usable(), row.usable) << row.name;
    }
}

TEST_F(ControlManager, OffersTheItemsThatCanBeChosen)
{
    const Control& popUp = made.addPopUp({
        {QStringLiteral("first")},
        {QString(), 0, true, true},  // a separator
        {QStringLiteral("disabled"), 0, false},
        {QStringLiteral("hidden"), 0, true, false, true},
        {QStringLiteral("last")},
    });
    for (const SInt32 item : {1, 5})
        EXPECT_TRUE(popUp.offers(item)) << item;
    for (const SInt32 item : {LEAST, -1, 0, 2, 3, 4, 6, MOST})
        EXPECT_FALSE(popUp.offers(item)) << item;
}

}  // namespace
