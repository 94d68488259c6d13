#include "toolbox/core/bundles/MainBundle.h"

#include "tests/toolbox/core/bundles/BundleTest.h"

#include <Toolbox/Application.h>

namespace {

using Toolbox::mainBundleResource;
using Toolbox::SetMainBundle;

// The main bundle outlives a test: so these look at what is alive themselves.
class MainBundle : public TestInAFolder<testing::Test> {
protected:
    MainBundle()
    {
        fs::create_directories(in("a.app"));
        fs::create_directories(in("b.app"));
        EXPECT_TRUE(SetMainBundle(in("a.app")));
    }
};

const bool IS_NONE_AT_FIRST = CFBundleGetMainBundle() == nullptr;

TEST_F(MainBundle, IsTheOneThatWasNamed)
{
    EXPECT_TRUE(IS_NONE_AT_FIRST);
    const CFBundleRef bundle = createBundle(in("a.app"));
    EXPECT_EQ(CFBundleGetMainBundle(), bundle);
    CFRelease(bundle);
    EXPECT_EQ(CFBundleGetMainBundle(), bundle);
    EXPECT_TRUE(CFEqual(bundle, bundle)) << "it is borrowed, and lives on";
}

TEST_F(MainBundle, IsTheOneThatWasNamedLastAndStaysWhenItIsNamedAgain)
{
    const CFBundleRef first = CFBundleGetMainBundle();
    const std::size_t alive = liveReferences();
    ASSERT_TRUE(SetMainBundle(in("a.app")));
    EXPECT_EQ(CFBundleGetMainBundle(), first);
    EXPECT_TRUE(CFEqual(first, first));
    EXPECT_EQ(liveReferences(), alive);
    ASSERT_TRUE(SetMainBundle(in("b.app")));
    EXPECT_NE(CFBundleGetMainBundle(), first);
    EXPECT_FALSE(CFEqual(first, first)) << "the one before has ended";
    EXPECT_EQ(liveReferences(), alive);
}

TEST_F(MainBundle, StaysTheOneBeforeWhenThereIsNoSuchFolder)
{
    writeFile(in("file"));
    const CFBundleRef bundle = CFBundleGetMainBundle();
    EXPECT_FALSE(SetMainBundle(in("missing")));
    EXPECT_FALSE(SetMainBundle(in("file")));
    EXPECT_FALSE(SetMainBundle(""));
    EXPECT_EQ(CFBundleGetMainBundle(), bundle);
}

TEST_F(MainBundle, ReleasedByACallerWhoOnlyBorrowedItIsADeadReference)
{
    writeFile(in("a.app/a.txt"));
    CFRelease(CFBundleGetMainBundle());
    EXPECT_EQ(CFBundleCopyResourceURL(CFBundleGetMainBundle(), CFSTR("a"), CFSTR("txt"), nullptr), nullptr);
    EXPECT_TRUE(mainBundleResource("a", "txt").empty());
    EXPECT_TRUE(SetMainBundle(in("b.app")));
}

TEST_F(MainBundle, GivesThePathsOfItsResources)
{
    const fs::path resources = in("c.app/Contents/Resources");
    makeBundle(in("c.app"), stringEntry("CFBundleDevelopmentRegion", "de"));
    writeFile(resources / "About.nib/objects.xib");
    writeFile(resources / "de.lproj/About.nib/objects.xib");
    writeFile(resources / "de.lproj/German.nib/objects.xib");
    writeFile(resources / "xx.lproj/Other.nib/objects.xib");
    writeFile(in("outside"));
    fs::create_symlink(in("outside"), resources / "About.nib/link.xib");
    ASSERT_TRUE(SetMainBundle(in("c.app")));
    EXPECT_EQ(mainBundleResource("About", "nib"), resources / "About.nib");
    EXPECT_EQ(mainBundleResource("German", "nib"), resources / "de.lproj/German.nib");
    EXPECT_EQ(mainBundleResource("objects", "xib", "About.nib"), resources / "About.nib/objects.xib");
    EXPECT_TRUE(mainBundleResource("link", "xib", "About.nib").empty()) << "it leads out of the bundle";
    EXPECT_TRUE(mainBundleResource("Other", "nib").empty());
    EXPECT_TRUE(mainBundleResource("", "nib").empty());
}

}  // namespace
