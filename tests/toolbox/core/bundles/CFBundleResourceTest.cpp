#include "tests/toolbox/core/bundles/BundleTest.h"
#include "toolbox/core/bundles/Bundle.h"

#include <tuple>
#include <vector>

namespace {

using CFBundleResource = BundleTest;
using Toolbox::Bundle;
using Toolbox::findObject;

// In a bundle whose user knows German, as in Austria, and French, and whose development region is English.
// clang-format off
// found: null when it is not
const std::tuple<const char*, std::vector<std::string>, const char*, const char*, const char*, const char*>
    RESOURCE_CASES[] = {
    // name                files                                     resource    type     in      found
    {"Missing",            {},                                       "a",        "x",     "",     nullptr},
    {"WithoutALanguage",   {"a.x"},                                  "a",        "x",     "",     "a.x"},
    {"WithoutAType",       {"a.x"},                                  "a.x",      "",      "",     "a.x"},
    {"TypeLeftOut",        {"a.x"},                                  "a",        "",      "",     nullptr},
    {"OtherType",          {"a.x"},                                  "a",        "nib",   "",     nullptr},
    {"OtherCaseOfName",    {"a.x"},                                  "A",        "x",     "",     nullptr},
    {"OtherCaseOfType",    {"a.x"},                                  "a",        "X",     "",     nullptr},
    {"NotASCII",           {"\xC3\xA4.x"},                           "\xC3\xA4", "x",     "",     "\xC3\xA4.x"},
    {"Folder",             {"a.nib/o.x"},                            "a",        "nib",   "",     "a.nib"},
    {"Subfolder",          {"s/a.x"},                                "a",        "x",     "s",    "s/a.x"},
    {"NotInTheSubfolder",  {"a.x"},                                  "a",        "x",     "s",    nullptr},
    {"OnlyInASubfolder",   {"s/a.x"},                                "a",        "x",     "",     nullptr},
    {"InsideAFolder",      {"de.lproj/n/o.x"},                       "o",        "x",     "n",    "de.lproj/n/o.x"},
    {"GlobalFirst",        {"a.x", "de.lproj/a.x"},                  "a",        "x",     "",     "a.x"},
    {"Region",             {"de_AT.lproj/a.x", "de.lproj/a.x"},      "a",        "x",     "",     "de_AT.lproj/a.x"},
    {"FirstLanguage",      {"de.lproj/a.x", "fr.lproj/a.x"},         "a",        "x",     "",     "de.lproj/a.x"},
    {"ByLongName",         {"German.lproj/a.x", "French.lproj/a.x"}, "a",        "x",     "",     "German.lproj/a.x"},
    {"SecondLanguage",     {"fr.lproj/a.x", "English.lproj/a.x"},    "a",        "x",     "",     "fr.lproj/a.x"},
    {"DevelopmentRegion",  {"English.lproj/a.x", "it.lproj/a.x"},    "a",        "x",     "",     "English.lproj/a.x"},
    {"RegionByCode",       {"en.lproj/a.x"},                         "a",        "x",     "",     "en.lproj/a.x"},
    {"OtherLanguage",      {"it.lproj/a.x"},                         "a",        "x",     "",     nullptr},
    {"LanguagesSubfolder", {"de.lproj/s/a.x"},                       "a",        "x",     "s",    "de.lproj/s/a.x"},
    {"SubfoldersLanguage", {"s/de.lproj/a.x"},                       "a",        "x",     "s",    nullptr},
    {"NoName",             {"a.x", ".x"},                            "",         "x",     "",     nullptr},
    {"PathInTheName",      {"s/a.x"},                                "s/a",      "x",     "",     "s/a.x"},
    {"NameLeadsOut",       {"a.x", "../Info.x"},                     "../Info",  "x",     "",     nullptr},
    {"TypeLeadsOut",       {"a./b", "b"},                            "a",        "/../b", "",     nullptr},
    {"SubfolderLeadsOut",  {"a.x", "../b.x"},                        "b",        "x",     "..",   nullptr},
    {"AbsoluteName",       {"a.x"},                                  "/a",       "x",     "",     nullptr},
    {"AbsoluteSubfolder",  {"s/a.x"},                                "a",        "x",     "/s",   nullptr},
};
// clang-format on

TEST_F(CFBundleResource, IsFoundInTheOrderOfLanguages)
{
    for (const auto& [name, files, resource, type, subfolder, expected] : RESOURCE_CASES) {
        const fs::path resources = in(name) / "Contents/Resources";
        makeBundle(in(name), stringEntry("CFBundleDevelopmentRegion", "English"));
        fs::create_directories(resources);
        for (const std::string& file : files)
            writeFile(resources / file);
        const Owned bundle = createBundle(in(name));
        const fs::path found = findObject<Bundle>(bundle)->findResource(resource, type, subfolder, {"de-AT", "fr"});
        EXPECT_EQ(found, expected == nullptr ? fs::path() : resources / expected) << name;
    }
}

TEST_F(CFBundleResource, IsNotLookedForInTheWorkingDirectory)
{
    for (const char* const file : {"a.x", "Resources/a.x", "Contents/Resources/a.x"})
        writeFile(in(file));
    const WorkingFolder here(in(""));
    makeBundle(in("a.bundle"), "");
    EXPECT_EQ(findObject<Bundle>(Owned(createBundle(in("a.bundle"))))->findResource("a", "x", "", {}), fs::path());
}

TEST_F(CFBundleResource, FindsNoResourceThroughALinkThatLeadsOut)
{
    const fs::path resources = in("a.bundle/Contents/Resources");
    writeFile(in("outside/a.txt"));
    fs::create_directories(resources);
    fs::create_symlink("../../../outside/a.txt", resources / "a.txt");
    fs::create_symlink("../../../outside", resources / "s");
    fs::create_symlink("../../../outside", resources / "de.lproj");
    const Owned bundle = createBundle(in("a.bundle"));
    const Bundle& object = *findObject<Bundle>(bundle);
    EXPECT_EQ(object.findResource("a", "txt", "", {"de"}), fs::path());
    EXPECT_EQ(object.findResource("a", "txt", "s", {"de"}), fs::path());
    writeFile(resources / "fr.lproj/a.txt");
    EXPECT_EQ(object.findResource("a", "txt", "", {"de", "fr"}), resources / "fr.lproj/a.txt");
}

TEST_F(CFBundleResource, ADevelopmentRegionThatLeadsOutFindsNothing)
{
    writeFile(in("outside.lproj/a.txt"));
    writeFile(in("a.bundle/Contents/Resources/b.txt"));
    for (const std::string& region : {std::string("../../../outside"), in("outside").string()}) {
        writeFile(in("a.bundle/Contents/Info.plist"), propertyList(stringEntry("CFBundleDevelopmentRegion", region)));
        const Owned bundle = createBundle(in("a.bundle"));
        EXPECT_EQ(findObject<Bundle>(bundle)->findResource("a", "txt", "", {}), fs::path()) << region;
    }
}

TEST_F(CFBundleResource, HasTheURLOfItsPath)
{
    const fs::path resources = in("a.bundle/Contents/Resources");
    writeFile(resources / "a.txt");
    writeFile(resources / "s/a.nib/objects.xib");
    const Owned bundle = createBundle(in("a.bundle"));
    EXPECT_EQ(takePath(CFBundleCopyResourceURL(bundle, CFSTR("a"), CFSTR("txt"), nullptr)), resources / "a.txt");
    EXPECT_EQ(takePath(CFBundleCopyResourceURL(bundle, CFSTR("a.txt"), nullptr, nullptr)), resources / "a.txt");
    EXPECT_EQ(takePath(CFBundleCopyResourceURL(bundle, CFSTR("a"), CFSTR("nib"), CFSTR("s"))), resources / "s/a.nib");
    EXPECT_EQ(CFBundleCopyResourceURL(bundle, CFSTR("b"), CFSTR("txt"), nullptr), nullptr);
}

}  // namespace
