#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <tuple>

namespace {

using Toolbox::chooseMenuItem;
using Toolbox::Control;
using Toolbox::ControlKind;
using Toolbox::pressControl;
using Toolbox::sendWindowCommand;

std::vector<Toolbox::MenuItem> threeItems()
{
    return {{QStringLiteral("Small")}, {QStringLiteral("Medium"), 'medi'}, {QStringLiteral("Large"), 0, false}};
}

class Commands : public WindowTest {
protected:
    TestWindow made;
    CommandRecorder recorder{made.target()};
};

TEST_F(Commands, SayWhatTheyComeFrom)
{
    Control& button = made.addButton('butt');
    Control& other = made.add(ControlKind::Other, 'othr');
    Control& popUp = made.addPopUp(threeItems());
    popUp.command = 'popu';
    recorder.answer = eventNotHandledErr;
    runWhile(made.ref, [&] {
        pressControl(button);
        pressControl(other);
        chooseMenuItem(popUp, 2);
        sendWindowCommand(made.window(), kHICommandCancel);
    });
    const std::tuple<MenuCommand, UInt32, const void*> rows[] = {
        {'butt', kHICommandFromControl, button.ref()},
        {'othr', kHICommandFromControl, other.ref()},
        {'medi', kHICommandFromMenu, popUp.ref()},
        {'popu', kHICommandFromControl, popUp.ref()},
        {kHICommandCancel, kHICommandFromWindow, made.ref},
    };
    ASSERT_EQ(recorder.commands.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto& [id, attributes, source] = rows[i];
        EXPECT_EQ(recorder.commands[i].commandID, id);
        EXPECT_EQ(recorder.commands[i].attributes, attributes);
        EXPECT_EQ(static_cast<const void*>(recorder.commands[i].menu.menuRef), source);
    }
    EXPECT_EQ(recorder.commands[2].menu.menuItemIndex, 2);
}

TEST_F(Commands, AreNotSentByAControlThatHasNoneOrCannotBeUsed)
{
    Control& box = made.add(ControlKind::GroupBox);
    Control& without = made.addButton(0);
    Control& disabled = made.addButton('disa');
    Control& hidden = made.addButton('hidd');
    Control& inside = made.addTo(box, ControlKind::Button, 'insi');
    Control& popUp = made.addPopUp(threeItems());
    box.enabled = false;
    disabled.enabled = false;
    hidden.hidden = true;
    popUp.enabled = false;
    recorder.answer = eventNotHandledErr;
    runWhile(made.ref, [&] {
        for (Control* each : {&without, &disabled, &hidden, &inside})
            pressControl(*each);
        chooseMenuItem(popUp, 2);
    });
    EXPECT_TRUE(recorder.ids().empty());
    EXPECT_EQ(popUp.value, 1);
}

// ---- Choosing

TEST_F(Commands, OfAChosenItemAreSentAndItIsSetUnlessThatWasTaken)
{
    const struct {
        const char* name;
        SInt32 item;
        OSStatus answer;
        std::vector<MenuCommand> sent;
        SInt32 value;  // 1 before
    } rows[] = {
        {"with a command", 2, eventNotHandledErr, {'medi'}, 2},
        {"taken by a handler", 2, noErr, {'medi'}, 1},
        {"an error does not take it", 2, paramErr, {'medi'}, 2},
        {"without a command it sends zero", 1, eventNotHandledErr, {0}, 1},
        {"disabled", 3, eventNotHandledErr, {}, 1},
        {"zero", 0, eventNotHandledErr, {}, 1},
        {"the last", 5, eventNotHandledErr, {'last'}, 5},
    };
    auto items = threeItems();
    items.push_back({QString(), 0, true, true});
    items.push_back({QStringLiteral("Last"), 'last'});
    Control& popUp = made.addPopUp(items);
    recorder.action = [&](const HICommand&) { EXPECT_EQ(popUp.value, 1) << "it changes when nobody took it"; };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        popUp.setValue(1);
        recorder.commands.clear();
        recorder.answer = row.answer;
        runWhile(made.ref, [&] { chooseMenuItem(popUp, row.item); });
        EXPECT_EQ(recorder.ids(), row.sent);
        EXPECT_EQ(popUp.value, row.value);
    }
}

TEST_F(Commands, OfAPopUpItselfFollowTheItemsUnlessThatWasTaken)
{
    Control& popUp = made.addPopUp(threeItems());
    popUp.command = 'popu';
    runWhile(made.ref, [&] { chooseMenuItem(popUp, 2); });
    EXPECT_EQ(recorder.ids(), std::vector<MenuCommand>{'medi'});

    SInt32 seen = 0;
    recorder.action = [&](const HICommand&) { seen = popUp.value; };
    recorder.answer = eventNotHandledErr;
    recorder.commands.clear();
    runWhile(made.ref, [&] { chooseMenuItem(popUp, 2); });
    EXPECT_EQ(recorder.ids(), (std::vector<MenuCommand>{'medi', 'popu'}));
    EXPECT_EQ(seen, 2) << "the item is chosen by then";
}

TEST_F(Commands, MayDisposeOfThePopUpThatSentThem)
{
    Control& popUp = made.addPopUp(threeItems());
    recorder.answer = eventNotHandledErr;
    recorder.action = [&](const HICommand&) { DisposeWindow(made.ref); };
    EXPECT_EQ(runWhile(made.ref, [&] { chooseMenuItem(popUp, 2); }), noErr);
    EXPECT_EQ(recorder.ids(), std::vector<MenuCommand>{'medi'});
}

// ---- When they are sent at all

TEST_F(Commands, ReachAWindowOnlyWhileItIsRun)
{
    Control& button = made.addButton('butt');
    Control& popUp = made.addPopUp(threeItems());
    const auto tryAll = [&] {
        pressControl(button);
        chooseMenuItem(popUp, 1);
        sendWindowCommand(made.window(), kHICommandCancel);
    };
    tryAll();
    EXPECT_TRUE(recorder.ids().empty()) << "before its loop";
    runWhile(made.ref, [&] {
        tryAll();
        EXPECT_EQ(recorder.ids().size(), 3u);
        QuitAppModalLoopForWindow(made.ref);
        tryAll();
        EXPECT_EQ(recorder.ids().size(), 3u) << "told to end";
    });
    tryAll();
    EXPECT_EQ(recorder.ids().size(), 3u) << "after its loop";
}

}  // namespace
