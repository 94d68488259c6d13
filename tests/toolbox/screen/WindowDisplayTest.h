// The window display on a screen that nobody sees.

#ifndef TESTS_TOOLBOX_SCREEN_WINDOWDISPLAYTEST_H
#define TESTS_TOOLBOX_SCREEN_WINDOWDISPLAYTEST_H

#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <cstdlib>

/// Chooses the window display before each test, on Qt's platform without a screen.
class WindowDisplayTest : public WindowTest {
protected:
    WindowDisplayTest()
    {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        std::string problem;
        EXPECT_TRUE(Toolbox::UseWindowDisplay(&problem)) << problem;
    }
};

#endif
