#include "tests/toolbox/core/bundles/PlugInBundle.h"
#include "toolbox/core/bundles/Bundle.h"

#include <sys/stat.h>

#include <utility>

namespace {

using CFBundle = BundleTest;
using Toolbox::Bundle;
using Toolbox::findObject;

TEST_F(CFBundle, IsMadeOfAnyFolderAndOfNothingElse)
{
    fs::create_directories(in("folder"));
    writeFile(in("file"));
    EXPECT_NE(Owned(createBundle(in("folder"))), nullptr);
    EXPECT_EQ(createBundle(in("missing")), nullptr);
    EXPECT_EQ(createBundle(in("file")), nullptr);
}

TEST_F(CFBundle, OfTheSameFolderIsTheSameObjectWithOneOwnerMore)
{
    fs::create_directories(in("a.bundle"));
    fs::create_directory_symlink("a.bundle", in("link.bundle"));
    const CFBundleRef bundle = createBundle(in("a.bundle"));
    for (const char* const name : {"a.bundle", "a.bundle/", "./a.bundle", "a.bundle/.", "link.bundle"}) {
        EXPECT_EQ(createBundle(in(name)), bundle) << name;
        CFRelease(bundle);
    }
    CFRelease(bundle);
    EXPECT_FALSE(CFEqual(bundle, bundle)) << "the last owner is gone";
    const Owned next = createBundle(in("a.bundle"));
    EXPECT_NE(next, bundle);
    fs::create_directories(in("b.bundle"));
    const Owned other = createBundle(in("b.bundle"));
    EXPECT_NE(next, other);
    EXPECT_FALSE(CFEqual(next, other));
}

TEST_F(CFBundle, WithAnInfoThatCannotBeReadIsOneWithoutInfo)
{
    const std::string genuine = propertyList(stringEntry("CFBundleExecutable", "code"));
    const std::pair<const char*, std::string> FILES[] = {
        {"corrupt", "CFBundleExecutable = code"},
        {"empty", ""},
        {"huge", genuine + std::string(1024 * 1024, '\n')},
    };
    for (const auto& [name, info] : FILES) {
        const fs::path folder = in(name);
        writeFile(folder / "Contents/Info.plist", info);
        copyPlugIn(folder / "Contents/Linux/code");
        const Owned bundle = createBundle(folder);
        EXPECT_NE(bundle, nullptr) << name;
        EXPECT_FALSE(CFBundleLoadExecutable(bundle)) << name << ": its executable is named after the bundle";
        copyPlugIn(folder / "Contents/Linux" / name);
        EXPECT_TRUE(CFBundleLoadExecutable(bundle)) << name;
    }
}

TEST_F(CFBundle, ReadsNoInfoThatIsNoFileOfItsOwn)
{
    writeFile(in("outside.plist"), propertyList(stringEntry("CFBundleExecutable", "code")));
    fs::create_directories(in("link.bundle/Contents"));
    fs::create_symlink("../../outside.plist", in("link.bundle/Contents/Info.plist"));
    fs::create_directories(in("folder.bundle/Contents/Info.plist"));
    fs::create_directories(in("pipe.bundle/Contents"));
    ASSERT_EQ(mkfifo(in("pipe.bundle/Contents/Info.plist").c_str(), 0600), 0);
    for (const char* const name : {"link.bundle", "folder.bundle", "pipe.bundle"}) {
        const Owned bundle = createBundle(in(name));
        ASSERT_NE(bundle, nullptr) << name;
        EXPECT_TRUE(findObject<Bundle>(bundle)->info().isEmpty()) << name;
    }
}

TEST_F(CFBundle, ItsBuiltInPlugInsLieByItsLayout)
{
    fs::create_directories(in("a.app/Contents"));
    fs::create_directories(in("b.app"));
    const Owned a = createBundle(in("a.app"));
    const Owned b = createBundle(in("b.app"));
    EXPECT_EQ(takePath(CFBundleCopyBuiltInPlugInsURL(a)), in("a.app/Contents/PlugIns"));
    EXPECT_EQ(takePath(CFBundleCopyBuiltInPlugInsURL(b)), in("b.app/PlugIns"));
}

}  // namespace
