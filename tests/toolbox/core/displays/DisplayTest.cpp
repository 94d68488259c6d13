#include "tests/toolbox/core/dialogs/TestWindow.h"

namespace {

class DisplayChoice : public WindowTest { };

// A display that notes its end.
class MortalDisplay : public Toolbox::Display {
public:
    explicit MortalDisplay(bool& alive)
        : m_alive(alive)
    {
        m_alive = true;
    }

    ~MortalDisplay() override { m_alive = false; }

    bool runWindow(Toolbox::Window& window, QString*) override
    {
        Toolbox::UseUnattendedDisplay({});
        EXPECT_TRUE(m_alive);
        QuitAppModalLoopForWindow(window.ref());
        return true;
    }

    SInt16 runAlert(const Toolbox::Alert&) override { return 1; }

private:
    bool& m_alive;
};

TEST_F(DisplayChoice, EndsTheDisplayBefore)
{
    bool alive = false;
    Toolbox::setCurrentDisplay(std::make_unique<MortalDisplay>(alive));
    EXPECT_TRUE(alive);
    Toolbox::UseUnattendedDisplay({});
    EXPECT_FALSE(alive);
}

TEST_F(DisplayChoice, MayBeMadeWhileTheDisplayBeforeRunsAWindow)
{
    bool alive = false;
    const TestWindow made;
    Toolbox::setCurrentDisplay(std::make_unique<MortalDisplay>(alive));
    EXPECT_EQ(RunAppModalLoopForWindow(made.ref), noErr);
    EXPECT_FALSE(alive);
}

}  // namespace
