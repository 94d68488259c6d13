// A property list in XML:
//
//     list  = <plist> value </plist>
//     value = <dict> { <key> value } </dict> | <array> { value } </array>
//           | <string> | <integer> | <real> | <true/> | <false/> | <date> | <data>
//
// and nothing but white space, comments and processing instructions between the elements.

#include "toolbox/core/bundles/PropertyList.h"

#include "toolbox/core/xml/XmlLimits.h"

#include <QXmlStreamReader>

namespace Toolbox {

namespace {

// Walks the document once, forwards. Whatever is wrong becomes an error of the XML reader, after which no element comes
// any more: so every function below just runs out, and the error is looked for once, at the end.
class PropertyListReader {
public:
    explicit PropertyListReader(const QByteArray& document) { parseWithinLimits(document, m_xml); }

    std::optional<QVariantMap> read(QString* problem)
    {
        require(nextElement() && m_xml.name() == QLatin1String("plist"));
        require(nextElement());
        const QVariant value = readValue();
        require(!nextElement());  // there is one value, and after it the document ends
        while (!m_xml.atEnd())
            m_xml.readNext();
        require(value.typeId() == QMetaType::QVariantMap);
        *problem = problemOf(m_xml);
        return m_xml.hasError() ? std::nullopt : std::optional(value.toMap());
    }

private:
    void require(bool condition)
    {
        if (!condition && !m_xml.hasError())
            m_xml.raiseError(QStringLiteral("it is not a property list of a dictionary"));
    }

    // Goes to the next element within the present one. False when there is none.
    bool nextElement()
    {
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement:
                return true;
            case QXmlStreamReader::EndElement:
                return false;
            case QXmlStreamReader::Characters:
                require(m_xml.isWhitespace());
                break;
            default:
                require(m_xml.tokenType() != QXmlStreamReader::EntityReference);
            }
        }
        return false;
    }

    // The text of the present element, which has no elements within.
    QString readText()
    {
        QString text;
        while (!m_xml.atEnd() && m_xml.readNext() != QXmlStreamReader::EndElement) {
            if (m_xml.isCharacters())
                text += m_xml.text();
            else
                require(m_xml.isComment() || m_xml.isProcessingInstruction());
        }
        return text;
    }

    QVariant readValue()
    {
        const QString type = m_xml.name().toString();
        if (type == QLatin1String("string"))
            return readText();
        if (type == QLatin1String("dict"))
            return readDictionary();
        if (type == QLatin1String("array"))
            return readArray();
        require(NOT_ASKED_FOR.contains(type));
        readText();
        return QVariant();
    }

    QVariantMap readDictionary()
    {
        QVariantMap dictionary;
        while (nextElement()) {
            require(m_xml.name() == QLatin1String("key"));
            const QString key = readText();
            require(nextElement());
            dictionary.insert(key, readValue());
        }
        return dictionary;
    }

    QVariantList readArray()
    {
        QVariantList array;
        while (nextElement())
            array.append(readValue());
        return array;
    }

    static inline const QStringList NOT_ASKED_FOR = {"integer", "real", "true", "false", "date", "data"};

    QXmlStreamReader m_xml;
};

}  // namespace

std::optional<QVariantMap> readPropertyList(const QByteArray& document, QString* problem)
{
    *problem = QStringLiteral("it has more than 1 MiB");
    if (document.size() > LONGEST_PROPERTY_LIST)
        return std::nullopt;
    return PropertyListReader(document).read(problem);
}

}  // namespace Toolbox
