// What is looked at here of XML:
//
//     document = { text | '<' name attributes [ '/' ] '>' | '</' name '>'
//                | '<?' ... '?>' | '<!--' ... '-->' | '<![CDATA[' ... ']]>' | '<!DOCTYPE' ... '>' }
//     attributes = { name '=' ( '"' ... '"' | "'" ... "'" ) }
//
// All of that is ASCII, which stands for nothing else in UTF-8.

#include "toolbox/core/xml/XmlLimits.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <optional>

namespace Toolbox {

namespace {

constexpr qsizetype LONGEST_DECLARATION = 256;  // of the encoding, and all that may stand before it

class Scanner {
public:
    explicit Scanner(QByteArrayView document)
        : m_document(document)
    {
    }

    QString problem()
    {
        if (m_document.contains('\0'))
            return QStringLiteral("a zero byte");
        while (m_problem.isEmpty() && skipBehind("<"))
            scanMarkup();
        return m_problem;
    }

private:
    // Behind the next `end`, or to the end of the document: false then.
    bool skipBehind(QByteArrayView end)
    {
        const qsizetype found = m_document.indexOf(end, m_at);
        m_at = found < 0 ? m_document.size() : found + end.size();
        return found >= 0;
    }

    bool takes(QByteArrayView beginning)
    {
        const bool isThere = m_document.sliced(m_at).startsWith(beginning);
        m_at += isThere ? beginning.size() : 0;
        return isThere;
    }

    void require(bool condition, const char* otherwise)
    {
        if (!condition && m_problem.isEmpty())
            m_problem = QLatin1String(otherwise);
    }

    // From behind a '<'.
    void scanMarkup()
    {
        require(++m_brackets <= MOST_BRACKETS, "too many elements");
        if (takes("?"))
            skipBehind("?>");
        else if (takes("!--"))
            skipBehind("-->");
        else if (takes("![CDATA["))
            skipBehind("]]>");
        else if (takes("!"))
            require(!scanTag().contains('['), "a document type with declarations");
        else if (takes("/"))
            closeElement();
        else
            openElement();
    }

    void closeElement()
    {
        scanTag();
        --m_depth;
    }

    void openElement()
    {
        const bool isEmpty = scanTag().endsWith("/>");
        require(++m_depth <= DEEPEST_ELEMENT, "elements nested too deeply");
        if (isEmpty)
            --m_depth;
    }

    // To the '>' that ends a tag; one within quotes does not. Returns what was passed.
    QByteArrayView scanTag()
    {
        const qsizetype start = m_at;
        int attributes = 0;
        char quote = '\0';
        for (bool isOpen = true; isOpen && m_at < m_document.size() && m_at - start < LONGEST_TAG; ++m_at) {
            const char next = m_document[m_at];
            if (quote != '\0')
                quote = next == quote ? '\0' : quote;
            else if (next == '"' || next == '\'')
                quote = next;
            else if (next == '=')
                ++attributes;
            else
                isOpen = next != '>';
        }
        require(m_at - start < LONGEST_TAG, "a tag that is too long");
        require(attributes <= MOST_ATTRIBUTES, "a tag with too many attributes");
        return m_document.sliced(start, m_at - start);
    }

    const QByteArrayView m_document;
    qsizetype m_at = 0;
    int m_depth = 0;
    int m_brackets = 0;
    QString m_problem;
};

// `document` in UTF-8, which it is unless a byte order mark or its declaration says otherwise. Nothing if it is not
// what they say, or if that is unknown.
std::optional<QByteArray> inUTF8(const QByteArray& document)
{
    std::optional<QStringConverter::Encoding> encoding = QStringConverter::encodingForData(document, u'<');
    if (!encoding) {
        static const QRegularExpression DECLARATION(
            QStringLiteral(R"(^<\?xml\s[^>]*\bencoding\s*=\s*["']([^"']*)["'])"));
        const auto declared = DECLARATION.match(QString::fromLatin1(document.left(LONGEST_DECLARATION)));
        if (!declared.hasMatch())
            return document;
        encoding = QStringConverter::encodingForName(declared.captured(1).toLatin1().constData());
        if (!encoding)
            return std::nullopt;
    }
    if (*encoding == QStringConverter::Utf8)
        return document;
    QStringDecoder decoder(*encoding);
    const QString text = decoder.decode(document);
    return decoder.hasError() ? std::nullopt : std::optional(text.toUtf8());
}

}  // namespace

QString beyondXmlLimits(QByteArrayView document)
{
    return Scanner(document).problem();
}

void parseWithinLimits(const QByteArray& document, QXmlStreamReader& parser)
{
    parser.setNamespaceProcessing(false);
    const std::optional<QByteArray> text = inUTF8(document);
    const QString problem = text ? beyondXmlLimits(*text) : QStringLiteral("an encoding that is not known");
    if (problem.isEmpty()) {
        parser.addData(QString());  // what follows a text is UTF-8 too, whatever its declaration says
        parser.addData(*text);
    } else {
        parser.raiseError(problem);
    }
}

QString problemOf(const QXmlStreamReader& parser)
{
    const bool isOurs = parser.error() == QXmlStreamReader::NoError || parser.error() == QXmlStreamReader::CustomError;
    return isOurs ? parser.errorString()
                  : QStringLiteral("line %1 is not correct XML: %2").arg(parser.lineNumber()).arg(parser.errorString());
}

}  // namespace Toolbox
