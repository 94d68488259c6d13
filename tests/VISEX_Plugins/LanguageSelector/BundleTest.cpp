// The bundle around the external's code, as it is laid out in the build tree.

#include <map>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/VISEX_Plugins/LanguageSelector/XmlElement.h"

namespace {

const char FACTORY_TYPE[] = "5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8";

const std::regex RANDOM_UUID("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");

class Bundle : public testing::Test {
protected:
    Bundle()
        : bytes(readFile(BUNDLE_FOLDER "/Contents/Info.plist"))
        , list(readXml(bytes))
    {
        const std::vector<XmlElement>& entries = list.children.at(0).children;
        for (std::size_t i = 0; i + 1 < entries.size(); i += 2) {
            EXPECT_EQ(entries[i].tag, "key");
            EXPECT_TRUE(values.emplace(entries[i].text, &entries[i + 1]).second) << "twice: " << entries[i].text;
        }
    }

    // The string under `key`.
    std::string string(const std::string& key) const
    {
        EXPECT_EQ(values.at(key)->tag, "string") << key;
        return values.at(key)->text;
    }

    QByteArray bytes;
    XmlElement list;
    std::map<std::string, const XmlElement*> values;
};

TEST_F(Bundle, ListIsAGenuinePropertyList)
{
    EXPECT_TRUE(bytes.startsWith(
        R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
)"));
    EXPECT_EQ(list.tag, "plist");
    EXPECT_EQ(list.children.size(), 1u);
    EXPECT_EQ(list.children.at(0).tag, "dict");
}

TEST_F(Bundle, SaysWhatItIs)
{
    EXPECT_EQ(string("CFBundlePackageType"), "BNDL");
    EXPECT_EQ(string("CFBundleSignature"), "????");
    EXPECT_EQ(string("CFBundleInfoDictionaryVersion"), "6.0");
    EXPECT_EQ(string("CFBundleName"), "LanguageSelector");
    EXPECT_EQ(string("CFBundleIdentifier"), "visex.plugins.LanguageSelector");
    EXPECT_EQ(string("CFBundleVersion"), PROJECT_VERSION);
    EXPECT_EQ(string("CFPlugInDynamicRegistration"), "NO");
}

TEST_F(Bundle, PackageInformationRepeatsTypeAndSignature)
{
    EXPECT_EQ(readFile(BUNDLE_FOLDER "/Contents/PkgInfo").toStdString(),
        string("CFBundlePackageType") + string("CFBundleSignature"));
}

TEST_F(Bundle, ExecutableStandsInThePlatformsFolder)
{
    const QByteArray executable = readFile(BUNDLE_FOLDER "/Contents/Linux/" + string("CFBundleExecutable"));
    EXPECT_TRUE(executable.mid(1).startsWith("ELF"));
}

TEST_F(Bundle, RegistersOneFactoryForTheType)
{
    const std::vector<XmlElement>& factories = values.at("CFPlugInFactories")->children;
    ASSERT_EQ(factories.size(), 2u);
    const std::string factory = factories[0].text;
    EXPECT_TRUE(std::regex_match(factory, RANDOM_UUID)) << factory;
    EXPECT_NE(factory, FACTORY_TYPE);
    EXPECT_EQ(factories[1].text, "MyFactory");

    const std::vector<XmlElement>& types = values.at("CFPlugInTypes")->children;
    ASSERT_EQ(types.size(), 2u);
    EXPECT_EQ(types[0].text, FACTORY_TYPE);
    ASSERT_EQ(types[1].tag, "array");
    ASSERT_EQ(types[1].children.size(), 1u);
    EXPECT_EQ(types[1].children[0].text, factory);
}

}  // namespace
