#include "tests/toolbox/core/bundles/PlugInBundle.h"

#include <tuple>
#include <utility>

namespace {

using CFBundleExecutable = BundleTest;

std::string named(const std::string& executable)
{
    return stringEntry("CFBundleExecutable", executable);
}

std::string namedBy(const std::string& value)
{
    return "<key>CFBundleExecutable</key>" + value;
}

std::string alsoNamed(const std::string& executable)
{
    return stringEntry("NSExecutable", executable);
}

// clang-format off
// info: of the property list; empty for none
const std::tuple<const char*, std::string, const char*, bool> EXECUTABLE_CASES[] = {
    // name                     Info.plist                       code at                       loads
    {"NamedInPlatformsFolder",  named("code"),                   "Contents/Linux/code",        true},
    {"NamedInContents",         named("code"),                   "Contents/code",              true},
    {"NamedAtTheTop",           named("code"),                   "code",                       true},
    {"NamedInOthersFolder",     named("code"),                   "Contents/MacOS/code",        false},
    {"NamedInResources",        named("code"),                   "Contents/Resources/code",    false},
    {"NamedInAFolderBelow",     named("below/code"),             "Contents/Linux/below/code",  true},
    {"NamedInOtherCase",        named("Code"),                   "Contents/Linux/code",        false},
    {"NamedOtherwise",          alsoNamed("code"),               "Contents/Linux/code",        true},
    {"TheFirstNameCounts",      alsoNamed("x") + named("code"),  "code",                       true},
    {"TheFirstNameDecides",     alsoNamed("code") + named("x"),  "code",                       false},
    {"NamedAfterTheBundle",     "<key>k</key><true/>",           "Contents/Linux/test",        true},
    {"NamedAfterItWithoutInfo", "",                              "Contents/Linux/test",        true},
    {"NamedOtherThanTheBundle", named("code"),                   "Contents/Linux/test",        false},
    {"WithTheBundlesExtension", "",                              "Contents/Linux/test.bundle", false},
    {"EmptyName",               named(""),                       "Contents/Linux/test",        true},
    {"NameIsNoString",          namedBy("<array/>"),             "Contents/Linux/test",        true},
    {"NameIsANumber",           namedBy("<integer>1</integer>"), "Contents/Linux/1",           false},
    {"NameIsTheFolder",         named("."),                      "Contents/Linux/test",        false},
    {"NameLeadsOut",            named("../../../outside"),       "../outside",                 false},
    {"NameLeadsOutAndIn",       named("../Linux/code"),          "Contents/Linux/code",        false},
    {"NameOfASystemLibrary",    named("libm.so.6"),              "outside",                    false},
    {"InTheWorkingDirectory",   named("code"),                   "../code",                    false},
};
// clang-format on

TEST_F(CFBundleExecutable, IsLoadedIfItIsTheBundles)
{
    for (const auto& [name, info, executable, loads] : EXECUTABLE_CASES) {
        SCOPED_TRACE(name);
        const fs::path folder = in(name) / "test.bundle";
        fs::create_directories(folder / "Contents");
        if (!info.empty())
            writeFile(folder / "Contents/Info.plist", propertyList(info));
        copyPlugIn(folder / executable);
        const WorkingFolder here(in(name));
        const Owned bundle = createBundle(folder);
        EXPECT_EQ(CFBundleLoadExecutable(bundle), loads);
        EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle, CFSTR("firstFactory")) != nullptr, loads);
    }
}

TEST_F(CFBundleExecutable, DoesNotLoadAnAbsolutePath)
{
    const fs::path outside = in("outside");
    const fs::path inside = in("a.bundle/Contents/Linux/code");
    for (const fs::path& path : {outside, inside}) {
        makeBundle(in("a.bundle"), named(path));
        copyPlugIn(path);
        EXPECT_FALSE(CFBundleLoadExecutable(Owned(createBundle(in("a.bundle"))))) << path;
    }
}

TEST_F(CFBundleExecutable, LoadsThroughALinkWithin)
{
    const fs::path framework = in("Code.framework");
    copyPlugIn(framework / "Versions/A/Code");
    fs::create_directory_symlink("A", framework / "Versions/Current");
    fs::create_symlink("Versions/Current/Code", framework / "Code");
    const Owned bundle = createBundle(framework);
    EXPECT_TRUE(CFBundleLoadExecutable(bundle));
}

TEST_F(CFBundleExecutable, LoadsOnceAlsoWhatWasNotThereBefore)
{
    makeBundle(in("a.bundle"), "");
    const Owned bundle = createBundle(in("a.bundle"));
    EXPECT_FALSE(CFBundleLoadExecutable(bundle));
    makePlugIn(in("a.bundle"), "");
    EXPECT_TRUE(CFBundleLoadExecutable(bundle));
    fs::remove_all(in("a.bundle"));
    EXPECT_TRUE(CFBundleLoadExecutable(bundle)) << "it is loaded already";
    EXPECT_NE(CFBundleGetFunctionPointerForName(bundle, CFSTR("firstFactory")), nullptr);
}

TEST_F(CFBundleExecutable, WhatWasLoadedStaysWhenTheBundleEnds)
{
    makePlugIn(in("a.bundle"), "");
    const CFBundleRef bundle = createBundle(in("a.bundle"));
    const auto factory = reinterpret_cast<CFPlugInFactoryFunction>(
        CFBundleGetFunctionPointerForName(bundle, CFSTR("factoryOfAllocators")));
    ASSERT_NE(factory, nullptr);
    CFRelease(bundle);
    EXPECT_EQ(factory(kCFAllocatorSystemDefault, nullptr), kCFAllocatorSystemDefault);

    const Owned again = createBundle(in("a.bundle"));
    EXPECT_EQ(CFBundleGetFunctionPointerForName(again, CFSTR("factoryOfAllocators")), reinterpret_cast<void*>(factory));
}

TEST_F(CFBundleExecutable, GivesOnlyTheNamesThatItsOwnCodeExports)
{
    makePlugIn(in("a.bundle"), "");
    const Owned bundle = createBundle(in("a.bundle"));
    const UniChar units[] = {'f', 'i', 'r', 's', 't', 'F', 'a', 'c', 't', 'o', 'r', 'y', 0, 'x'};
    const Owned withZero = CFStringCreateWithCharacters(nullptr, units, 14);
    const Owned cutBefore = CFStringCreateWithCharacters(nullptr, units, 12);
    for (const CFStringRef name : {CFSTR("firstFactory"), CFSTR("secondFactory"), CFStringRef(cutBefore)})
        EXPECT_NE(CFBundleGetFunctionPointerForName(bundle, name), nullptr);
    // CFRelease it only uses.
    for (const CFStringRef name :
        {CFSTR("noFactory"), CFSTR(""), CFSTR("CFRelease"), CFSTR("malloc"), CFStringRef(withZero), deadString()})
        EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle, name), nullptr);
}

TEST_F(CFBundleExecutable, KeepsTheNamesOfItsCodeToItself)
{
    void* factories[2];
    for (const int each : {0, 1}) {
        const fs::path folder = in(std::to_string(each) + ".bundle");
        makePlugIn(folder, "");
        factories[each] = CFBundleGetFunctionPointerForName(Owned(createBundle(folder)), CFSTR("firstFactory"));
        EXPECT_NE(factories[each], nullptr);
    }
    EXPECT_NE(factories[0], factories[1]);
}

TEST_F(CFBundleExecutable, RefusesCodeThatIsNone)
{
    const std::string whole = contents(PLUG_IN_FILE);
    const std::pair<const char*, std::string> FILES[] = {
        {"text", "#!/bin/sh\nexit 0\n"},
        {"zeros", std::string(10000, '\0')},
        {"first-kilobyte", whole.substr(0, 1000)},
    };
    for (const auto& [name, content] : FILES) {
        const fs::path folder = in(name);
        writeFile(folder / name, content);
        const Owned bundle = createBundle(folder);
        EXPECT_FALSE(CFBundleLoadExecutable(bundle)) << name;
        EXPECT_FALSE(CFBundleLoadExecutable(bundle)) << name << ", the second time";
    }
}

}  // namespace
