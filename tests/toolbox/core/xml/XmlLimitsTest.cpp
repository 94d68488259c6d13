#include "toolbox/core/xml/XmlLimits.h"

#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <tuple>
#include <utility>

namespace {

using Toolbox::beyondXmlLimits;

std::string repeated(const std::string& text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

std::string attributes(int count, const std::string& name = "a")
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += ' ' + name + std::to_string(i) + "='u'";
    return all;
}

// What has more bytes than a tag may, and is none.
const std::string LONG = std::string(20000, 'x');

// problem: empty where there is none
const std::tuple<const char*, std::string, const char*> LIMIT_CASES[] = {
    {"Empty", "", ""},
    {"NoXML", "a > b", ""},
    {"DeepestElement", repeated("<a>", 199) + "<a></a><a/>" + repeated("</a>", 199), ""},
    {"TooDeep", repeated("<a>", 201), "elements nested too deeply"},
    {"TooDeepByAnEmptyElement", repeated("<a>", 200) + "<a/>", "elements nested too deeply"},
    {"MostElements", repeated("<a/>", 100000), ""},
    {"TooManyElements", repeated("<a/>", 100001), "too many elements"},
    {"MostAttributes", "<a" + attributes(16) + "/>", ""},
    {"TooManyAttributes", "<a" + attributes(17) + "/>", "a tag with too many attributes"},
    {"TooManyAttributesAtAnElementsEnd", "<a></a" + attributes(17) + ">", "a tag with too many attributes"},
    {"EqualsSignsInAValue", "<a b='" + std::string(100, '=') + "'/>", ""},
    {"AngleBracketInAValue", "<a b='>' c=\">\"" + attributes(15) + "/>", "a tag with too many attributes"},
    {"OtherQuoteInAValue", "<a b='\"' c=\"'\"" + attributes(15) + "/>", "a tag with too many attributes"},
    {"LongestTag", "<a b='" + std::string(16375, 'x') + "'/>", ""},
    {"TooLongATag", "<a b='" + std::string(16376, 'x') + "'/>", "a tag that is too long"},
    {"TagWithoutEnd", "<a ", ""},
    {"LongText", "<a>" + LONG + "</a>", ""},
    {"LongComment", "<!--" + LONG + "<a" + attributes(17) + ">-->", ""},
    {"LongInstruction", "<?a" + LONG + "<a" + attributes(17) + ">?>", ""},
    {"LongCharacterData", "<a><![CDATA[" + LONG + "<a" + attributes(17) + ">]]></a>", ""},
    {"TooManyComments", repeated("<!---->", 100001), "too many elements"},
    {"BehindAComment", "<!-- > --><a" + attributes(17) + "/>", "a tag with too many attributes"},
    {"WithinWhatIsPassedOver", "<a><!-- > <b ====== ====== ======> --><![CDATA[> <b =================>]]></a>", ""},
    {"DocumentTypeThatIsElsewhere", "<!DOCTYPE a PUBLIC \"-//D//EN\" 'http://127.0.0.1:1/x.dtd'><a/>", ""},
    {"DocumentTypeWithDeclarations", "<!DOCTYPE a [<!ELEMENT a ANY>]><a/>", "a document type with declarations"},
    {"Entity", "<!DOCTYPE a [<!ENTITY e 'x'>]><a/>", "a document type with declarations"},
    {"ExternalEntity", "<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///a'>]><a/>", "a document type with declarations"},
    {"ParameterEntity", "<!DOCTYPE a [<!ENTITY % p SYSTEM 'file:///a'> %p;]><a/>", "a document type with declarations"},
    {"DocumentTypeThatIsTooLong", "<!DOCTYPE a '" + LONG + "'>", "a tag that is too long"},
    {"ZeroByte", std::string("<a>\0</a>", 8), "a zero byte"},
};

TEST(XmlLimits, AreKeptOrNamed)
{
    for (const auto& [name, document, problem] : LIMIT_CASES)
        EXPECT_EQ(beyondXmlLimits(QByteArrayView(document.data(), static_cast<qsizetype>(document.size()))),
            QLatin1String(problem))
            << name;
}

// ---- What the limits are for: the longest documents that are read, each bad in a way of its own, in little time

// As many as there is room for in 2 MiB.
std::string filled(const std::string& start, const std::string& part)
{
    return start + repeated(part, static_cast<int>((2 * 1024 * 1024 - start.size()) / part.size()));
}

const std::pair<const char*, std::string> WORST_CASES[] = {
    {"Attributes", filled("<a ", "b='' ")},
    {"TagsFullOfAttributes", filled("<r>", "<a" + attributes(16) + "/>")},
    {"NamesThatAreLong", filled("<r>", "<" + std::string(16000, 'x') + "/>")},
    {"AttributesThatAreLong", filled("<r>", "<a " + std::string(8000, 'x') + "='" + std::string(8000, 'y') + "'/>")},
    {"Depth", filled("", "<a>")},
    {"Elements", filled("<r>", "<a/>")},
    {"Objects", filled("<object class='A'>", "<object/>")},
    {"Namespaces",
        "<a xmlns:n='u'>" + repeated("<a" + attributes(16, "xmlns:a") + ">", 198) + repeated("<n:b/>", 99000)},
    {"DocumentType", filled("<!DOCTYPE a [", "<!ATTLIST a b CDATA ''>")},
    {"Entities", filled("<r>", "&amp;")},
    {"Comments", filled("<r>", "<!---->")},
    {"CommentsWithoutEnd", filled("<r>", "<!--")},
    {"QuotesWithoutEnd", filled("<r>", "<a b='")},
    {"CharacterData", filled("<r>", "<![CDATA[]]>")},
    {"Text", filled("<r>", "\r\n")},
};

TEST(WorstXml, TakesLittleTime)
{
    for (const auto& [name, document] : WORST_CASES) {
        const std::clock_t start = std::clock();
        QXmlStreamReader parser;
        Toolbox::parseWithinLimits(QByteArray::fromStdString(document), parser);
        while (!parser.atEnd())
            parser.readNext();
        EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 2) << name << ", of the processor's time";
    }
}

}  // namespace
