#include "toolbox/core/bundles/PropertyList.h"

#include "tests/toolbox/core/bundles/BundleTest.h"

#include <QStringEncoder>

#include <utility>

namespace {

using Toolbox::readPropertyList;

std::optional<QVariantMap> read(const std::string& document)
{
    QString problem;
    auto map = readPropertyList(QByteArray::fromStdString(document), &problem);
    EXPECT_EQ(map.has_value(), problem.isEmpty()) << problem.toStdString();
    return map;
}

TEST(PropertyList, HoldsStringsArraysAndDictionaries)
{
    const auto map = read(propertyList("<key>s</key><string>text</string>"
                                       "<key>a</key><array><string>one</string><string>two</string></array>"
                                       "<key>d</key><dict><key>k</key><string>v</string></dict>"));
    ASSERT_TRUE(map.has_value());
    const QVariantMap expected = {{"s", "text"}, {"a", QVariantList{"one", "two"}}, {"d", QVariantMap{{"k", "v"}}}};
    EXPECT_EQ(*map, expected);
}

TEST(PropertyList, KeepsThePlaceOfWhatNothingAsksFor)
{
    const auto map = read(propertyList("<key>i</key><integer>1</integer><key>r</key><real>1.5</real>"
                                       "<key>t</key><true/><key>f</key><false/>"
                                       "<key>n</key><date>2006-01-01T00:00:00Z</date><key>b</key><data>AAAA</data>"));
    ASSERT_TRUE(map.has_value());
    EXPECT_EQ(map->keys(), QStringList({"b", "f", "i", "n", "r", "t"}));
    for (const QVariant& value : *map)
        EXPECT_FALSE(value.isValid());
}

TEST(PropertyList, OfAKeyThatIsGivenTwiceTheLastCounts)
{
    const auto map = read(propertyList(stringEntry("k", "first") + stringEntry("k", "last")));
    ASSERT_TRUE(map.has_value());
    EXPECT_EQ(map->value("k"), "last");
}

TEST(PropertyList, IsReadAsXMLSaysIt)
{
    const char* const text = "  &lt;&#228;<![CDATA[<a>&b;]]><!-- not this --><?not this?>\xF0\x9F\x98\x80 ";
    const auto map = read(propertyList(stringEntry("k", text) + stringEntry("empty", "")));
    ASSERT_TRUE(map.has_value());
    EXPECT_EQ(map->value("k").toString(), QStringLiteral("  <\u00E4<a>&b;\U0001F600 "));
    EXPECT_EQ(map->value("empty"), QVariant(QString()));
}

const char* const DICTIONARY = "<plist><dict><key>k</key><string>v</string></dict></plist>";

// With a byte order mark.
std::string inUTF16(const std::string& document)
{
    QStringEncoder encode(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    return QByteArray(encode(QString::fromStdString(document))).toStdString();
}

const std::pair<const char*, std::string> ACCEPTED_CASES[] = {
    {"NoDocumentType", DICTIONARY},
    {"ExternalDocumentType", propertyList(stringEntry("k", "v"))},
    {"ExternalDocumentTypeThatIsNowhere", std::string("<!DOCTYPE plist SYSTEM 'file:///nowhere.dtd'>") + DICTIONARY},
    {"ByteOrderMark", std::string("\xEF\xBB\xBF") + DICTIONARY},
    {"Comments", "<!--a--><plist><!--b--><dict><!--c--><key>k</key><!--d--><string>v</string></dict></plist><!--e-->"},
    {"Blanks", "\n<plist>\n<dict>\t<key>k</key> <string>v</string> </dict> </plist>\n"},
    {"Latin1",
        "<?xml version='1.0' "
        "encoding='ISO-8859-1'?><!--\xE9--><plist><dict><key>k</key><string>v</string></dict></plist>"},
    {"UTF16", inUTF16(std::string("<?xml version='1.0' encoding='UTF-16'?>") + DICTIONARY)},
};

TEST(PropertyList, MayBeWrittenInManyWays)
{
    for (const auto& [name, document] : ACCEPTED_CASES) {
        const auto map = read(document);
        ASSERT_TRUE(map.has_value()) << name;
        EXPECT_EQ(map->value("k"), "v") << name;
    }
}

// A document of exactly `size` bytes.
std::string documentOfSize(std::size_t size)
{
    const std::string document = propertyList(stringEntry("k", "v"));
    return document + std::string(size - document.size(), '\n');
}

constexpr std::size_t MEBIBYTE = 1024 * 1024;

TEST(PropertyList, MayBeWideAndAsLongAsTheLimit)
{
    EXPECT_TRUE(
        read(propertyList("<key>k</key><array>" + QByteArray("<dict></dict>").repeated(100).toStdString() + "</array>"))
            .has_value());
    EXPECT_TRUE(read(documentOfSize(MEBIBYTE - 1)).has_value());
    EXPECT_TRUE(read(documentOfSize(MEBIBYTE)).has_value());
    EXPECT_FALSE(read(documentOfSize(MEBIBYTE + 1)).has_value());
}

TEST(PropertyList, IsRefusedWhereverItIsCutShort)
{
    const std::string document = propertyList(stringEntry("k", "v") + "<key>a</key><array><true/></array>");
    const std::size_t end = document.rfind('>') + 1;
    for (std::size_t length = 0; length < end; ++length)
        EXPECT_FALSE(read(document.substr(0, length)).has_value()) << "after " << length << " bytes";
    EXPECT_TRUE(read(document.substr(0, end)).has_value());
}

// One that is not read, so that it may well declare the entity that follows.
const std::string EXTERNAL_TYPE = "<!DOCTYPE plist SYSTEM 'file:///nowhere.dtd'>";
const std::string WITH_ENTITY = "<plist><dict><key>k</key><string>&e;</string></dict></plist>";

const std::pair<const char*, std::string> REFUSED_CASES[] = {
    {"OldStyle", "{ CFBundleExecutable = Name; }"},
    {"Binary", std::string("bplist00\xD1\x01\x02QkQv\x08\x0B\x0D\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x03", 35)},
    {"InvalidUTF8", propertyList(stringEntry("k", "\xFF"))},
    {"UnknownEncoding", std::string("<?xml version='1.0' encoding='x-none'?>") + DICTIONARY},
    {"AnotherRoot", "<html><dict/></html>"},
    {"NoValue", "<plist></plist>"},
    {"TwoValues", "<plist><dict/><dict/></plist>"},
    {"TextBesideTheValue", "<plist>text<dict/></plist>"},
    {"TwoRoots", "<plist><dict/></plist><plist><dict/></plist>"},
    {"TextBehind", "<plist><dict/></plist>text"},
    {"ValueIsAString", "<plist><string>v</string></plist>"},
    {"ValueIsAnArray", "<plist><array/></plist>"},
    {"UnknownElement", propertyList("<key>k</key><set/>")},
    {"UpperCaseElement", propertyList("<key>k</key><STRING>v</STRING>")},
    {"ValueWithoutKey", propertyList("<string>v</string>")},
    {"StringAsKey", propertyList("<string>k</string><string>v</string>")},
    {"KeyWithoutValue", propertyList("<key>k</key>")},
    {"TwoKeys", propertyList("<key>k</key><key>l</key>")},
    {"KeyInArray", propertyList("<key>k</key><array><key>k</key></array>")},
    {"TextInDictionary", propertyList("text")},
    {"TextInArray", propertyList("<key>k</key><array>text</array>")},
    {"ElementInString", propertyList("<key>k</key><string>a<b/>c</string>")},
    {"ElementInKey", propertyList("<key>k<b/></key><string>v</string>")},
    {"ElementInTrue", propertyList("<key>k</key><true><dict/></true>")},
    {"BeyondTheLimits", std::string("<!DOCTYPE plist [<!ELEMENT plist ANY>]>") + DICTIONARY},
    {"UndeclaredEntity", WITH_ENTITY},
    {"EntityOfAnExternalDocumentType", EXTERNAL_TYPE + WITH_ENTITY},
    {"EntityBetweenKeyAndValue", EXTERNAL_TYPE + "<plist><dict><key>k</key>&e;<string>v</string></dict></plist>"},
    {"EntityInAnArray", EXTERNAL_TYPE + "<plist><dict><key>k</key><array>&e;</array></dict></plist>"},
    {"EntityBesideTheValue", EXTERNAL_TYPE + "<plist>&e;<dict/></plist>"},
};

TEST(PropertyList, IsRefusedWhenItIsCorrupt)
{
    for (const auto& [name, document] : REFUSED_CASES)
        EXPECT_FALSE(read(document).has_value()) << name;
}

}  // namespace
