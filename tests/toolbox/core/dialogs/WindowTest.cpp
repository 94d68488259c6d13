#include "tests/toolbox/core/dialogs/TestWindow.h"

namespace {

using Toolbox::ButtonRole;
using Toolbox::Control;
using Toolbox::ControlKind;

class WindowManager : public WindowTest { };

TEST_F(WindowManager, ShowsAndHidesHoweverOftenItIsAsked)
{
    const TestWindow made;
    for (const bool visible : {false, false, true, true, false}) {
        visible ? ShowWindow(made.ref) : HideWindow(made.ref);
        EXPECT_EQ(made.window().visible, visible);
    }
}

TEST_F(WindowManager, DisposesOfControlsAndHandlersWithTheWindow)
{
    TestWindow made;
    made.addButton('butt');
    const CommandRecorder recorder(made.target());
    EXPECT_EQ(liveObjects(),
        (std::map<std::string, std::size_t>{{"window", 1}, {"control", 2}, {"event target", 1}, {"event handler", 1}}));
    DisposeWindow(made.ref);
    EXPECT_TRUE(liveObjects().empty());
}

TEST_F(WindowManager, ListsControlsInTheOrderOfTheNib)
{
    TestWindow made;
    Control& box = made.add(ControlKind::GroupBox);
    Control& inner = made.addTo(box, ControlKind::Button);
    Control& innermost = made.addTo(inner, ControlKind::Other);
    Control& last = made.addButton(0);
    EXPECT_EQ(made.window().controls(), (std::vector<Control*>{&made.root(), &box, &inner, &innermost, &last}));
}

TEST_F(WindowManager, KnowsTheButtonOfEachRole)
{
    TestWindow made;
    EXPECT_EQ(made.window().buttonOfRole(ButtonRole::Default), nullptr);
    made.add(ControlKind::PopupButton).role = ButtonRole::Default;  // no button
    Control& box = made.add(ControlKind::GroupBox);
    Control& ok = made.addTo(box, ControlKind::Button);
    ok.role = ButtonRole::Default;
    ok.enabled = false;
    made.addButton(0, ButtonRole::Default);
    EXPECT_EQ(made.window().buttonOfRole(ButtonRole::Default), &ok);
    EXPECT_EQ(made.window().buttonOfRole(ButtonRole::Cancel), nullptr);
}

TEST_F(WindowManager, RemarksOnAWindowThatWasShownOutsideAModalLoop)
{
    const auto remarksOn = [](const auto& useOf) {
        {
            const TestWindow made;
            made.window().title = QStringLiteral("Palette");
            useOf(made.ref);
        }
        return Toolbox::TakeReport().remarks;
    };
    const std::vector<std::string> seen;
    const std::vector<std::string> unseen{"the window \"Palette\" was never seen: it was shown outside a modal loop"};
    EXPECT_EQ(remarksOn([](WindowRef) {}), unseen);
    EXPECT_EQ(remarksOn([](WindowRef window) { HideWindow(window); }), unseen);
    EXPECT_EQ(remarksOn([](WindowRef window) { runAndQuit(window); }), seen);
    EXPECT_EQ(Toolbox::TakeReport().remarks, seen);
}

}  // namespace
