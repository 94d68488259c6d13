// Nothing is picked up from the environment or the working directory, however much of it lies there. A program of its
// own, since it changes both.

#include "tests/toolbox/core/bundles/PlugInBundle.h"
#include "toolbox/core/bundles/MainBundle.h"

#include <Toolbox/Application.h>

namespace {

// In a process of its own, so that no main bundle was named before, and the loader has read the variables at its start.
class EnvironmentDeathTest : public TestInAFolder<testing::Test> {
protected:
    void SetUp() override
    {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        copyPlugIn(in("decoy/Contents/Linux/test"));
        copyPlugIn(in("decoy/Contents/test"));
        copyPlugIn(in("decoy/test"));
        copyPlugIn(in("decoy/libtest.so"));
        copyPlugIn(in("decoy/test.framework/test"));
        writeFile(in("decoy/Contents/Info.plist"), propertyList(stringEntry("CFBundleExecutable", "test")));
        writeFile(in("decoy/Contents/Resources/test.nib"));
        writeFile(in("decoy/Resources/test.nib"));
        writeFile(in("decoy/test.nib"));
        makeBundle(in("test.bundle"), stringEntry("CFBundleExecutable", "test"));
        for (const char* const name :
            {"LD_LIBRARY_PATH", "DYLD_LIBRARY_PATH", "DYLD_FRAMEWORK_PATH", "DYLD_FALLBACK_LIBRARY_PATH",
                "CFProcessPath", "PATH", "HOME", "PWD", "XDG_DATA_DIRS", "QT_PLUGIN_PATH"})
            setenv(name, in("decoy").c_str(), 1);
        fs::current_path(in("decoy"));
    }

    void TearDown() override { fs::current_path("/"); }  // before the folder goes

    // Ends the process, whose folder nobody would remove afterwards.
    [[noreturn]] void exitWith(bool success) const
    {
        fs::remove_all(in(""));
        std::exit(success ? EXIT_SUCCESS : EXIT_FAILURE);
    }
};

TEST_F(EnvironmentDeathTest, NamesNoMainBundleAndLendsNoResource)
{
    EXPECT_EXIT(exitWith(CFBundleGetMainBundle() == nullptr && Toolbox::mainBundleResource("test", "nib").empty()
                    && !Toolbox::SetMainBundle("") && CFBundleGetMainBundle() == nullptr),
        testing::ExitedWithCode(EXIT_SUCCESS), "");
    EXPECT_EXIT(
        exitWith(Toolbox::SetMainBundle(in("test.bundle")) && Toolbox::mainBundleResource("test", "nib").empty()),
        testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST_F(EnvironmentDeathTest, LendsNoExecutable)
{
    EXPECT_EXIT(
        exitWith(!CFBundleLoadExecutable(createBundle(in("test.bundle")))), testing::ExitedWithCode(EXIT_SUCCESS), "");
    copyPlugIn(in("test.bundle/Contents/Linux/test"));
    EXPECT_EXIT(
        exitWith(CFBundleLoadExecutable(createBundle(in("test.bundle")))), testing::ExitedWithCode(EXIT_SUCCESS), "")
        << "with one of its own it does load";
}

}  // namespace
