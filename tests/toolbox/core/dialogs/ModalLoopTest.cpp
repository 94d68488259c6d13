#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <unistd.h>

#include <cstdlib>
#include <new>

namespace {

class ModalLoop : public WindowTest {
protected:
    const TestWindow made;
    const TestWindow inner;  // for a loop inside another
};

TEST_F(ModalLoop, RunsUntilItIsToldToEndHoweverOften)
{
    for (int time = 1; time <= 2; ++time) {
        bool ran = false;
        const OSStatus status = runWhile(made.ref, [&] {
            EXPECT_FALSE(Toolbox::modalLoopEnded(made.ref));
            EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), noErr);
            EXPECT_TRUE(Toolbox::modalLoopEnded(made.ref));
            ran = true;
        });
        EXPECT_EQ(status, noErr);
        EXPECT_TRUE(ran);
        EXPECT_EQ(Toolbox::TakeReport().displayProblem, "");
    }
    ASSERT_EQ(Toolbox::Window::find(made.ref), &made.window()) << "it is not disposed of";
    EXPECT_TRUE(made.window().visible) << "nor hidden";
}

TEST_F(ModalLoop, CannotBeQuitWhereThereIsNone)
{
    EXPECT_TRUE(Toolbox::modalLoopEnded(made.ref));
    EXPECT_TRUE(Toolbox::modalLoopEnded(nullptr));
    EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), windowNoAppModalStateErr);
    runWhile(made.ref, [&] {
        EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), noErr);
        EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), noErr);  // it was told already, but has not ended yet
    });
    EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), windowNoAppModalStateErr);
}

TEST_F(ModalLoop, IsNotRunTwiceForOneWindow)
{
    runWhile(made.ref, [&] {
        EXPECT_EQ(RunAppModalLoopForWindow(made.ref), windowAppModalStateAlreadyExistsErr);
        runWhile(inner.ref, [&] {
            EXPECT_EQ(RunAppModalLoopForWindow(made.ref), windowAppModalStateAlreadyExistsErr);
            QuitAppModalLoopForWindow(inner.ref);
        });
        EXPECT_FALSE(Toolbox::modalLoopEnded(made.ref));
        QuitAppModalLoopForWindow(made.ref);
    });
}

TEST_F(ModalLoop, OfAnOuterWindowThatIsQuitOrDisposedOfEndsWhenTheInnerOneHas)
{
    for (const bool isDisposedOf : {false, true}) {
        OSStatus ofInner = paramErr;
        const OSStatus ofOuter = runWhile(made.ref, [&] {
            ofInner = runWhile(inner.ref, [&] {
                if (isDisposedOf)
                    DisposeWindow(made.ref);
                else
                    EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), noErr);
                EXPECT_FALSE(Toolbox::modalLoopEnded(inner.ref));
                EXPECT_EQ(QuitAppModalLoopForWindow(inner.ref), noErr);
            });
            EXPECT_TRUE(Toolbox::modalLoopEnded(made.ref));
        });
        EXPECT_EQ(ofInner, noErr);
        EXPECT_EQ(ofOuter, noErr);
    }
}

TEST_F(ModalLoop, EndsWithItsWindow)
{
    const OSStatus status = runWhile(made.ref, [&] {
        DisposeWindow(made.ref);
        EXPECT_TRUE(Toolbox::modalLoopEnded(made.ref));
        EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), errInvalidWindowRef);
    });
    EXPECT_EQ(status, noErr);
}

TEST_F(ModalLoop, FailsWhenTheDisplayCannotGoOnOrThrows)
{
    EXPECT_EQ(runWhile(made.ref, [] {}), eventInternalErr);
    EXPECT_EQ(Toolbox::TakeReport().displayProblem, "the person has left \u2026");
    EXPECT_FALSE(Toolbox::takesCommands(made.ref));
    EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), windowNoAppModalStateErr);
    EXPECT_THROW(runWhile(made.ref, [] { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_EQ(QuitAppModalLoopForWindow(made.ref), windowNoAppModalStateErr);
}

TEST_F(ModalLoop, KeepsItsDisplayUntilItEndsThoughAnotherIsChosen)
{
    auto part = std::make_shared<int>();
    const OSStatus status = runWhile(made.ref, [this, part] {
        Toolbox::UseUnattendedDisplay({});
        EXPECT_EQ(part.use_count(), 2) << "the display still has it";
        QuitAppModalLoopForWindow(made.ref);
    });
    EXPECT_EQ(status, noErr);
    EXPECT_EQ(part.use_count(), 1) << "the display is gone";
}

TEST_F(ModalLoop, FailsForAWindowThatIsNotShown)
{
    HideWindow(made.ref);
    EXPECT_EQ(runWhile(made.ref, [&] { ADD_FAILURE() << "it was run"; }), eventInternalErr);
    const Toolbox::CallReport report = Toolbox::TakeReport();
    EXPECT_EQ(report.displayProblem, "the window is not shown");
    EXPECT_FALSE(report.windowShown);
    ShowWindow(made.ref);
    runAndQuit(made.ref);
    HideWindow(made.ref);
    RunAppModalLoopForWindow(made.ref);
    EXPECT_TRUE(Toolbox::TakeReport().windowShown) << "another was";
    EXPECT_TRUE(made.window().wasRun) << "before it was hidden";
}

// What is left when the process ends is dropped, and no handler hears of it.
TEST_F(ModalLoop, EndsInSilenceWithTheProcess)
{
    const auto leave = [] {
        auto* const left = new TestWindow;
        Toolbox::Control& button = left->addButton('butt');
        static int calls = 0;
        const auto count = [](EventHandlerCallRef, EventRef, void*) -> OSStatus {
            if (++calls > 1)
                _exit(1);
            std::exit(0);
        };
        InstallEventHandler(left->target(), count, 1, COMMANDS, nullptr, nullptr);
        runWhile(left->ref, [&button] { Toolbox::pressControl(button); });
    };
    EXPECT_EXIT(leave(), testing::ExitedWithCode(0), "");
}

// ---- Which window gets what is done in it

TEST_F(ModalLoop, OfTheInnermostWindowAloneTakesCommands)
{
    EXPECT_FALSE(Toolbox::takesCommands(made.ref)) << "before its loop";
    runWhile(made.ref, [&] {
        EXPECT_TRUE(Toolbox::takesCommands(made.ref));
        EXPECT_FALSE(Toolbox::takesCommands(inner.ref));
        runWhile(inner.ref, [&] {
            EXPECT_FALSE(Toolbox::takesCommands(made.ref));
            EXPECT_TRUE(Toolbox::takesCommands(inner.ref));
            QuitAppModalLoopForWindow(inner.ref);
            EXPECT_FALSE(Toolbox::takesCommands(inner.ref)) << "told to end";
        });
        EXPECT_TRUE(Toolbox::takesCommands(made.ref));
        EXPECT_EQ(runWhile(inner.ref, [] {}), eventInternalErr);
        EXPECT_TRUE(Toolbox::takesCommands(made.ref)) << "also after one that failed";
        QuitAppModalLoopForWindow(made.ref);
    });
    EXPECT_FALSE(Toolbox::takesCommands(made.ref)) << "after its loop";
    EXPECT_FALSE(Toolbox::takesCommands(nullptr));
}

}  // namespace
