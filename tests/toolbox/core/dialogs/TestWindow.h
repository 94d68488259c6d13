// Windows made without a nib, a handler that notes what it gets, and a display on which a test is the person. Every
// test that uses them also checks that nothing is left alive at its end.

#ifndef TESTS_TOOLBOX_CORE_DIALOGS_TESTWINDOW_H
#define TESTS_TOOLBOX_CORE_DIALOGS_TESTWINDOW_H

#include "toolbox/base/CurrentReport.h"
#include "toolbox/core/dialogs/Commands.h"
#include "toolbox/core/dialogs/Display.h"
#include "toolbox/core/dialogs/ModalLoop.h"
#include "toolbox/core/dialogs/Window.h"

#include <Toolbox/Displays.h>
#include <Toolbox/LiveObjects.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

constexpr EventTypeSpec COMMANDS[] = {{kEventClassCommand, kEventCommandProcess}};

/// How many objects of each kind are alive, but for kinds that have none, and constants, which come to stay.
inline std::map<std::string, std::size_t> liveObjects()
{
    std::map<std::string, std::size_t> alive;
    for (const auto& [kind, count] : Toolbox::CountLiveObjects())
        if (count != 0 && kind != "Core Foundation constant")
            alive[kind] = count;
    return alive;
}

/// Begins a report, checks that a test leaves nothing behind, and gives the next one the unattended display again.
class WindowTest : public testing::Test {
protected:
    WindowTest() { Toolbox::TakeReport(); }

    ~WindowTest() override  // where the members of a test are gone, windows among them
    {
        Toolbox::UseUnattendedDisplay({});
        EXPECT_EQ(liveObjects(), m_before);
    }

private:
    const std::map<std::string, std::size_t> m_before = liveObjects();
};

/// A visible window with a root control. It is disposed of at the end, unless that was done.
class TestWindow {
public:
    TestWindow()
        : m_window(new Toolbox::Window)
        , ref(m_window->ref())
    {
        m_window->visible = true;
        m_window->root = std::make_unique<Toolbox::Control>(*m_window, Toolbox::ControlKind::Root);
    }

    ~TestWindow() { DisposeWindow(ref); }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    Toolbox::Window& window() const { return *m_window; }
    Toolbox::Control& root() const { return *m_window->root; }
    EventTargetRef target() const { return GetWindowEventTarget(ref); }

    Toolbox::Control& add(Toolbox::ControlKind kind, MenuCommand command = 0) { return addTo(root(), kind, command); }

    Toolbox::Control& addTo(Toolbox::Control& container, Toolbox::ControlKind kind, MenuCommand command = 0)
    {
        container.children.push_back(std::make_unique<Toolbox::Control>(*m_window, kind, &container));
        container.children.back()->command = command;
        return *container.children.back();
    }

    Toolbox::Control& addButton(MenuCommand command, Toolbox::ButtonRole role = Toolbox::ButtonRole::Plain)
    {
        Toolbox::Control& button = add(Toolbox::ControlKind::Button, command);
        button.role = role;
        return button;
    }

    Toolbox::Control& addPopUp(const std::vector<Toolbox::MenuItem>& items)
    {
        Toolbox::Control& popUp = add(Toolbox::ControlKind::PopupButton);
        popUp.items = items;
        popUp.minimum = items.empty() ? 0 : 1;
        popUp.maximum = static_cast<SInt32>(items.size());
        popUp.setValue(1);
        return popUp;
    }

private:
    Toolbox::Window* const m_window;

public:
    const WindowRef ref;
};

/// A handler of commands. It notes each and answers `answer`, after it has done `action`, if it was given one.
class CommandRecorder {
public:
    explicit CommandRecorder(EventTargetRef target, OSStatus itsAnswer = noErr)
        : answer(itsAnswer)
    {
        EXPECT_EQ(InstallEventHandler(target, handle, 1, COMMANDS, this, nullptr), noErr);
    }

    /// The commands so far, without where they came from.
    std::vector<MenuCommand> ids() const
    {
        std::vector<MenuCommand> all;
        for (const HICommand& command : commands)
            all.push_back(command.commandID);
        return all;
    }

    OSStatus answer;
    std::function<void(const HICommand&)> action;
    std::vector<HICommand> commands;

private:
    static OSStatus handle(EventHandlerCallRef, EventRef event, void* userData)
    {
        auto* const recorder = static_cast<CommandRecorder*>(userData);
        HICommand command{};
        EXPECT_EQ(GetEventParameter(
                      event, kEventParamDirectObject, typeHICommand, nullptr, sizeof command, nullptr, &command),
            noErr);
        recorder->commands.push_back(command);
        if (recorder->action)
            recorder->action(command);
        return recorder->answer;
    }
};

/// Runs `window` in a modal loop in which `person` acts, once; returns what the loop returns. A loop that has not been
/// told to end when the person has acted fails.
inline OSStatus runWhile(WindowRef window, std::function<void()> person)
{
    class PersonDisplay : public Toolbox::Display {
    public:
        explicit PersonDisplay(std::function<void()> person)
            : m_person(std::move(person))
        {
        }

        bool runWindow(Toolbox::Window& window, QString* problem) override
        {
            const WindowRef ref = window.ref();
            m_person();
            *problem = QStringLiteral("the person has left \u2026");
            return Toolbox::modalLoopEnded(ref);
        }

        SInt16 runAlert(const Toolbox::Alert& alert) override { return alert.defaultButton; }

    private:
        const std::function<void()> m_person;
    };

    Toolbox::setCurrentDisplay(std::make_unique<PersonDisplay>(std::move(person)));
    return RunAppModalLoopForWindow(window);
}

/// Runs `window` for a person who does nothing but end it.
inline OSStatus runAndQuit(WindowRef window)
{
    return runWhile(window, [window] { QuitAppModalLoopForWindow(window); });
}

#endif
