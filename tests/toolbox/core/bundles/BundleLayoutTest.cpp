#include "toolbox/core/bundles/BundleLayout.h"

#include "tests/toolbox/core/bundles/BundleTest.h"

#include <tuple>
#include <vector>

namespace {

using Toolbox::findExecutable;
using Toolbox::findInside;
using Toolbox::layoutOf;

using BundleLayout = BundleTest;

// In a folder with: file, folder/file, and the links that the names say.
// clang-format off
// found: in the folder; null when it is not to be found
const std::tuple<const char*, const char*, const char*> INSIDE_CASES[] = {
    // name                               relative                      found
    {"File",                              "file",                       "file"},
    {"Folder",                            "folder",                     "folder"},
    {"FileInFolder",                      "folder/file",                "folder/file"},
    {"SeveralSlashes",                    "folder//file",               "folder/file"},
    {"Dots",                              "./folder/./file",            "folder/file"},
    {"Missing",                           "missing",                    nullptr},
    {"BelowAFile",                        "file/file",                  nullptr},
    {"OtherCase",                         "File",                       nullptr},
    {"Empty",                             "",                           nullptr},
    {"Absolute",                          "/etc/passwd",                nullptr},
    {"Root",                              "/",                          nullptr},
    {"Parent",                            "..",                         nullptr},
    {"ParentInFront",                     "../outside/file",            nullptr},
    {"ParentWithin",                      "folder/../file",             nullptr},
    {"ParentAtTheEnd",                    "folder/..",                  nullptr},
    {"NameWithDots",                      "..file",                     "..file"},
    {"LinkInside",                        "link inside",                "file"},
    {"LinkInsideByAbsolutePath",          "absolute link inside",       "file"},
    {"LinkedFolderInside",                "linked folder inside/file",  "folder/file"},
    {"LinkToTheTop",                      "link to the top/file",       "file"},
    {"LinkOutside",                       "link outside",               nullptr},
    {"LinkOutsideByAbsolutePath",         "absolute link outside",      nullptr},
    {"LinkedFolderOutside",               "linked folder outside/file", nullptr},
    {"LinkToAFolderWhoseNameBeginsAlike", "link beside/file",           nullptr},
    {"LinkToNothing",                     "link to nothing",            nullptr},
    {"LinkToItself",                      "link to itself",             nullptr},
};
// clang-format on

TEST_F(BundleLayout, FindsTheRealPathOfWhatIsInAFolder)
{
    writeFile(in("root/file"));
    writeFile(in("root/..file"));
    writeFile(in("root/folder/file"));
    writeFile(in("outside/file"));
    writeFile(in("root beside/file"));
    fs::create_symlink("file", in("root/link inside"));
    fs::create_symlink(in("root/file"), in("root/absolute link inside"));
    fs::create_symlink("folder", in("root/linked folder inside"));
    fs::create_symlink(".", in("root/link to the top"));
    fs::create_symlink("../outside/file", in("root/link outside"));
    fs::create_symlink(in("outside/file"), in("root/absolute link outside"));
    fs::create_symlink("../outside", in("root/linked folder outside"));
    fs::create_symlink("../root beside", in("root/link beside"));
    fs::create_symlink("nothing", in("root/link to nothing"));
    fs::create_symlink("link to itself", in("root/link to itself"));
    for (const auto& [name, relative, found] : INSIDE_CASES)
        EXPECT_EQ(findInside(in("root"), relative), found == nullptr ? fs::path() : in("root") / found) << name;
}

TEST_F(BundleLayout, TheRootFolderHoldsEverythingAndOneThatIsNotThereNothing)
{
    writeFile(in("file"));
    EXPECT_EQ(findInside("/", in("file").relative_path()), in("file"));
    EXPECT_EQ(findInside(in("missing"), "file"), fs::path());
}

const Toolbox::BundleLayout IN_CONTENTS = {"Contents/Info.plist", "Contents/Resources", "Contents/PlugIns"};
const Toolbox::BundleLayout IN_RESOURCES = {"Resources/Info.plist", "Resources", "PlugIns"};
const Toolbox::BundleLayout AT_THE_TOP = {"Info.plist", "", "PlugIns"};

// clang-format off
const std::tuple<const char*, const char*, std::vector<std::string>, Toolbox::BundleLayout> LAYOUT_CASES[] = {
    // name                   bundle         folders                    layout
    {"Contents",              "a.bundle",    {"Contents"},              IN_CONTENTS},
    {"Both",                  "a.bundle",    {"Contents", "Resources"}, IN_CONTENTS},
    {"Resources",             "a.bundle",    {"Resources"},             IN_RESOURCES},
    {"Flat",                  "a.bundle",    {},                        AT_THE_TOP},
    {"Framework",             "a.framework", {"Resources"},             IN_RESOURCES},
    {"FrameworkWithBoth",     "a.framework", {"Contents", "Resources"}, IN_RESOURCES},
    {"FrameworkWithContents", "a.framework", {"Contents"},              IN_CONTENTS},
    {"FlatFramework",         "a.framework", {},                        AT_THE_TOP},
    {"OtherCase",             "a.bundle",    {"contents", "resources"}, AT_THE_TOP},
};
// clang-format on

TEST_F(BundleLayout, GoesByTheFoldersThatAreThere)
{
    for (const auto& [name, folderName, made, expected] : LAYOUT_CASES) {
        SCOPED_TRACE(name);
        const fs::path bundle = in(name) / folderName;
        fs::create_directories(bundle);
        for (const std::string& folder : made)
            fs::create_directories(bundle / folder);
        const Toolbox::BundleLayout& layout = layoutOf(bundle);
        EXPECT_STREQ(layout.info, expected.info);
        EXPECT_STREQ(layout.resources, expected.resources);
        EXPECT_STREQ(layout.builtInPlugIns, expected.builtInPlugIns);
    }
}

TEST_F(BundleLayout, AFileOrALinkThatLeadsOutIsNoContentsFolder)
{
    writeFile(in("a.bundle/Contents"));
    EXPECT_STREQ(layoutOf(in("a.bundle")).info, "Info.plist");
    fs::create_directories(in("outside"));
    fs::create_directories(in("b.bundle"));
    fs::create_symlink("../outside", in("b.bundle/Contents"));
    EXPECT_STREQ(layoutOf(in("b.bundle")).info, "Info.plist");
}

TEST_F(BundleLayout, ExecutablesAreLookedForInThePlatformsFolderThenInContentsThenAtTheTop)
{
    const fs::path root = in("a.bundle");
    writeFile(in("outside/code"));
    fs::create_directories(root / "Contents" / PLATFORM_FOLDER / "code");
    fs::create_symlink("../../outside/code", root / "Contents/code");
    EXPECT_EQ(findExecutable(root, "code"), fs::path()) << "a folder, or a link that leads out, is passed over";
    writeFile(root / "code");
    EXPECT_EQ(findExecutable(root, "code"), root / "code");
    fs::remove_all(root / "Contents");
    writeFile(root / "Contents/code");
    EXPECT_EQ(findExecutable(root, "code"), root / "Contents/code");
    writeFile(root / "Contents" / PLATFORM_FOLDER / "code");
    EXPECT_EQ(findExecutable(root, "code"), root / "Contents" / PLATFORM_FOLDER / "code");
}

}  // namespace
