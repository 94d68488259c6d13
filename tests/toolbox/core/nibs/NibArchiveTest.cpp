#include "toolbox/core/nibs/NibArchive.h"

#include "tests/toolbox/core/nibs/SampleNib.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using Toolbox::NibArchive;
using Toolbox::NibObject;
using Toolbox::NibReference;

std::optional<NibArchive> read(const std::string& xml)
{
    QString problem;
    const auto archive = NibArchive::read(QByteArray::fromStdString(xml), &problem);
    EXPECT_EQ(archive.has_value(), problem.isEmpty()) << problem.toStdString();
    return archive;
}

// An archive of one object, with the id "1", that has `properties`.
std::optional<NibArchive> readObject(const std::string& properties)
{
    return read("<object class='Demo' id='1'>" + properties + "</object>");
}

const NibObject& theObject(const std::optional<NibArchive>& archive)
{
    static const NibObject nothing;
    const NibObject* const object = archive ? archive->find({QStringLiteral("1")}) : nullptr;
    EXPECT_NE(object, nullptr);
    return object == nullptr ? nothing : *object;
}

// ---- Values

TEST(NibArchiveValues, AreReadByTheirTags)
{
    const auto archive = readObject("<string name='text'> a &lt;b&gt;\n&#233; </string><int name='number'> -12 </int>"
                                    "<unsigned_int name='big'>4294967295</unsigned_int>"
                                    "<boolean name='yes'>TRUE</boolean><boolean name='no'>FALSE</boolean>"
                                    "<float name='ratio'>0.5</float><ostype name='code'>demo</ostype>");
    const NibObject& object = theObject(archive);
    EXPECT_EQ(object.className, QStringLiteral("Demo"));
    EXPECT_EQ(object.text("text"), QStringLiteral(" a <b>\n\u00e9 "));
    EXPECT_EQ(object.number("number", 0), -12);
    EXPECT_EQ(object.number("big", 0), 0x7FFFFFFF);
    EXPECT_TRUE(object.flag("yes", false));
    EXPECT_FALSE(object.flag("no", true));
    EXPECT_EQ(object.code("code"), OSType{'demo'});
}

TEST(NibArchiveValues, ThatAreNotThereOrOfAnotherTypeAreAtTheirDefaults)
{
    for (const std::string tag : {"absent", "string", "array", "dictionary", "float", "thing"}) {
        SCOPED_TRACE(tag);
        const auto archive = readObject(tag == "absent" ? std::string() : "<" + tag + " name='value'/>");
        const NibObject& object = theObject(archive);
        EXPECT_TRUE(object.text("value").isEmpty());
        EXPECT_EQ(object.number("value", 7), 7);
        EXPECT_TRUE(object.flag("value", true));
        EXPECT_EQ(object.code("value"), 0u);
        EXPECT_FALSE(object.reference("value").has_value());
        EXPECT_TRUE(object.array("value").empty());
        EXPECT_FALSE(object.rectangle("value").has_value());
    }
}

TEST(NibArchiveValues, MayBeSplitAndOfOneNameAreTheFirst)
{
    EXPECT_EQ(theObject(readObject("<int name='n'>1</int><int name='n'>2</int>")).number("n", 0), 1);
    EXPECT_TRUE(theObject(readObject("<boolean name='b'> TRUE\n</boolean>")).flag("b", false));
    const auto archive = readObject("<string name='t'>a<!-- no -->b<![CDATA[<c>]]><?no?>d</string>");
    EXPECT_EQ(theObject(archive).text("t"), QStringLiteral("ab<c>d"));
}

TEST(NibArchiveValues, ThatAreCodesKeepEveryCharacter)
{
    const std::pair<const char*, OSType> rows[] = {
        {"demo", 0x64656D6F},
        {"ok  ", 0x6F6B2020},
        {"  ok", 0x20206F6B},
        {"    ", 0x20202020},
        {"ok", 0x6F6B2020},  // shorter ones end in blanks
        {"", 0x20202020},
        {"\u00c4\u20ac\u00f8\u02c7", 0x80DBBFFF},  // as in Mac OS Roman
        {"&lt;&amp;&gt;&#33;", 0x3C263E21},
    };
    for (const auto& [text, code] : rows) {
        const auto archive = readObject(std::string("<ostype name='code'>") + text + "</ostype>");
        EXPECT_EQ(theObject(archive).code("code"), code) << text;
    }
}

TEST(NibArchiveValues, ThatAreRectanglesAreFourNumbersOfSixteenBits)
{
    const auto rectangle = [](const std::string& text) {
        return theObject(readObject("<string name='bounds'>" + text + "</string>")).rectangle("bounds");
    };
    for (const char* const good : {"-1 2 32767 -32768 ", "-1 2 32767 -32768", "  -1  2 32767   -32768 "}) {
        const std::optional<Rect> found = rectangle(good);
        ASSERT_TRUE(found.has_value()) << good;
        EXPECT_EQ(found->top, -1);
        EXPECT_EQ(found->left, 2);
        EXPECT_EQ(found->bottom, 32767);
        EXPECT_EQ(found->right, -32768);
    }
    for (const char* const bad : {"", "1 2 3 ", "1 2 3 4 5 ", "1 2 3 x ", "1 2 3 4.5 ", "-1 2 32768 -32768 ",
             "-1 2 32767 -32769 ", "1 2 3 99999999999999999999 "})
        EXPECT_FALSE(rectangle(bad).has_value()) << bad;
}

// ---- Objects

TEST(NibArchiveObjects, MayStandInPlaceBeforeOrAfterAReference)
{
    const auto archive = readObject("<array name='all'>"
                                    "<reference idRef='after'/>"
                                    "<object class='Before' id='before'/>"
                                    "<object class='InPlace' id='in place'/>"
                                    "<reference idRef='before'/>"
                                    "<object class='After' id='after'/>"
                                    "<object class='WithoutId'><object class='Inside'/></object>"
                                    "<object class='WithoutIdToo'/>"
                                    "<reference idRef='nowhere'/></array>");
    QStringList classes;
    for (const auto& value : theObject(archive).array("all")) {
        ASSERT_NE(value.as<NibReference>(), nullptr);
        const NibObject* const object = archive->find(*value.as<NibReference>());
        classes += object == nullptr ? QStringLiteral("none") : object->className;
    }
    EXPECT_EQ(classes.join(QLatin1Char(' ')),
        QStringLiteral("After Before InPlace Before After WithoutId WithoutIdToo none"));
}

TEST(NibArchiveObjects, MayReferToThemselvesAndEachOther)
{
    const auto archive = readObject("<reference name='self' idRef='1'/>"
                                    "<object name='other' class='Other' id='2'><reference name='back' idRef='1'/>"
                                    "</object>");
    const NibObject& object = theObject(archive);
    ASSERT_TRUE(object.reference("self").has_value());
    EXPECT_EQ(archive->find(*object.reference("self")), &object);
    const NibObject* const other = archive->find(*object.reference("other"));
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(archive->find(*other->reference("back")), &object);
}

// ---- The name table

TEST(NibNameTable, NamesObjectsOfTheArchive)
{
    const auto archive = read(SAMPLE_NIB);
    ASSERT_TRUE(archive.has_value());
    const auto* const window = archive->named(QStringLiteral("Window"));
    ASSERT_NE(window, nullptr);
    ASSERT_NE(window->as<NibReference>(), nullptr);
    EXPECT_EQ(archive->find(*window->as<NibReference>())->className, QStringLiteral("IBCarbonWindow"));
    EXPECT_EQ(archive->named(QStringLiteral("window")), nullptr) << "upper and lower case differ";
    EXPECT_EQ(archive->named(QString()), nullptr);
}

TEST(NibNameTable, MayBeMissing)
{
    for (const char* const properties : {"", "<string name='nameTable'>A</string>"}) {
        const auto archive = readObject(properties);
        ASSERT_TRUE(archive.has_value());
        EXPECT_EQ(archive->named(QStringLiteral("A")), nullptr);
    }
}

// ---- What is no archive

const std::pair<const char*, std::string> REFUSED_CASES[] = {
    {"AnotherRoot", "<plist><dict/></plist>"},
    {"AStringAsRoot", "<string>text</string>"},
    {"TwoRoots", "<object class='A'/><object class='B'/>"},
    {"TextAfterTheRoot", "<object class='A'/>text"},
    {"TagsThatDoNotMatch", "<object class='A'><string>a</object></string>"},
    {"NotUTF8", "<object class='A'><string>\xFF</string></object>"},
    {"TwoObjectsOfOneId", "<object class='A' id='1'><object class='B' id='1'/></object>"},
    {"IntOfLetters", "<object class='A'><int name='n'>x</int></object>"},
    {"IntThatIsEmpty", "<object class='A'><int name='n'/></object>"},
    {"IntWithAFraction", "<object class='A'><int name='n'>1.5</int></object>"},
    {"IntInAnotherBase", "<object class='A'><int name='n'>0x10</int></object>"},
    {"BeyondTheLimits", "<!DOCTYPE object [<!ELEMENT object ANY>]><object class='A'/>"},
    {"IntOfTooManyDigits", "<object class='A'><int name='n'>99999999999999999999</int></object>"},
    {"UnsignedIntOfLetters", "<object class='A'><unsigned_int name='n'>x</unsigned_int></object>"},
    {"BooleanInLowerCase", "<object class='A'><boolean name='b'>true</boolean></object>"},
    {"BooleanThatIsEmpty", "<object class='A'><boolean name='b'/></object>"},
    {"CodeOfFiveCharacters", "<object class='A'><ostype name='c'>abcde</ostype></object>"},
    {"CodeOutsideMacOSRoman", "<object class='A'><ostype name='c'>ab\u65e5d</ostype></object>"},
    {"CodeOfSurrogates", "<object class='A'><ostype name='c'>ab\U0001F600</ostype></object>"},
    {"ElementInAString", "<object class='A'><string name='s'>a<int>1</int></string></object>"},
    {"DictionaryOfAnOddNumber", "<object class='A'><dictionary><string>a</string></dictionary></object>"},
    {"DictionaryWithoutNames", "<object class='A'><dictionary><int>1</int><int>2</int></dictionary></object>"},
    {"EntityOfAnotherDocument",
        "<!DOCTYPE object SYSTEM 'http://127.0.0.1:1/x.dtd'><object class='A'><string name='s'>&e;</string></object>"},
    {"UnknownEntity", "<object class='A'><string name='s'>&e;</string></object>"},
};

TEST(NibArchiveRefused, WhenItIsCorruptOrCutOff)
{
    for (const auto& [name, xml] : REFUSED_CASES)
        EXPECT_FALSE(read(xml).has_value()) << name;
    ASSERT_TRUE(read(SAMPLE_NIB).has_value());
    for (std::size_t length = 0; length < SAMPLE_NIB.size(); ++length)
        EXPECT_FALSE(read(SAMPLE_NIB.substr(0, length)).has_value()) << length;
}

// ---- Limits

TEST(NibArchive, MayHaveAnyNumberOfElementsAndDoesNotBelieveItsCounts)
{
    const auto archive = readObject("<array count='4000000000' name='a'><int>1</int></array>"
                                    "<dictionary count='-1' name='d'><string>k</string><int>1</int></dictionary>");
    EXPECT_EQ(theObject(archive).array("a").size(), 1u);
    const std::string numbers = QByteArray("<int>1</int>").repeated(1000).toStdString();
    EXPECT_TRUE(readObject(numbers).has_value());
    EXPECT_TRUE(readObject("<array>" + numbers + "</array>").has_value());
}

}  // namespace
