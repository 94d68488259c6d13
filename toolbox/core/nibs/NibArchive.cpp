#include "toolbox/core/nibs/NibArchive.h"

#include "toolbox/base/text_encoding/MacRoman.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace Toolbox {

namespace {

// Elements inside one another. Each control inside another takes two; no dialog comes near.
constexpr int DEEPEST = 200;

// The bytes given to the stream at a time, and how many times for one token: a tag or text of more than 16 KiB is
// refused. The stream compares each attribute of a tag with every other, so a tag of megabytes would take it hours.
constexpr qsizetype PIECE = 1024;
constexpr int MOST_PIECES = 16;

}  // namespace

// Reads one archive. What is wrong in it stops the stream, which from then on gives nothing more.
class NibArchiveReader {
public:
    explicit NibArchiveReader(const QByteArray& xml)
        : m_rest(xml)
    {
    }

    std::optional<NibArchive> read()
    {
        readProlog();
        const NibValue root = readValue();
        const NibReference* const reference = root.as<NibReference>();
        if (m_xml.hasError() || reference == nullptr || !isAtEnd())
            return std::nullopt;
        takeNameTable(m_archive.m_objects[reference->id]);
        return std::move(m_archive);
    }

private:
    // The next token; Invalid at an error, and when the archive ends too early.
    QXmlStreamReader::TokenType next()
    {
        QXmlStreamReader::TokenType token = m_xml.readNext();
        for (int pieces = 0; m_xml.error() == QXmlStreamReader::PrematureEndOfDocumentError && !m_rest.isEmpty();) {
            if (++pieces > MOST_PIECES) {
                m_xml.raiseError(QStringLiteral("a tag or text is too long"));
                return QXmlStreamReader::Invalid;
            }
            m_xml.addData(m_rest.first(std::min(PIECE, m_rest.size())).toByteArray());
            m_rest = m_rest.sliced(std::min(PIECE, m_rest.size()));
            token = m_xml.readNext();
        }
        return token;
    }

    // Up to the start of the next element inside this one. False at this one's end, and at an error.
    bool nextElement()
    {
        while (next() != QXmlStreamReader::Invalid && !m_xml.isEndElement())
            if (m_xml.isStartElement())
                return true;
        return false;
    }

    // Up to the root's start. A type of document may be named: its definition is never fetched.
    void readProlog()
    {
        while (next() != QXmlStreamReader::Invalid && !m_xml.isStartElement())
            if (m_xml.isDTD() && !m_xml.entityDeclarations().isEmpty())
                m_xml.raiseError(QStringLiteral("entities are declared"));
    }

    // Whether nothing but white space follows the root. The stream tells that of what it was given, and no more, since
    // it takes the end of that for the document's.
    bool isAtEnd() { return m_xml.readNext() == QXmlStreamReader::EndDocument && m_rest.trimmed().isEmpty(); }

    // Each of these begins at an element's start and ends at its end.

    NibValue readValue()
    {
        if (m_depth == DEEPEST) {
            m_xml.raiseError(QStringLiteral("nested too deeply"));
            return {};
        }
        ++m_depth;
        NibValue value = readContent();
        --m_depth;
        return value;
    }

    NibValue readContent()
    {
        const auto tag = m_xml.name();
        if (tag == QLatin1String("object"))
            return {readObject()};
        if (tag == QLatin1String("reference"))
            return {readReference()};
        if (tag == QLatin1String("array"))
            return {readArray()};
        if (tag == QLatin1String("dictionary"))
            return {readDictionary()};
        if (tag == QLatin1String("string"))
            return {readText()};
        if (tag == QLatin1String("int"))
            return {readNumber()};
        if (tag == QLatin1String("unsigned_int"))
            return {readNumber()};
        if (tag == QLatin1String("boolean"))
            return {readBoolean()};
        if (tag == QLatin1String("ostype"))
            return {readCode()};
        skipElement();  // no property that is read here is of another type
        return {};
    }

    void skipElement()
    {
        for (int depth = 1; depth > 0 && next() != QXmlStreamReader::Invalid;)
            depth += m_xml.isStartElement() ? 1 : m_xml.isEndElement() ? -1 : 0;
    }

    NibReference readObject()
    {
        NibObject object;
        object.className = attribute("class");
        QString id = attribute("id");
        if (id.isEmpty())  // nothing else refers to it, so any name will do that no other has
            id = QStringLiteral("without id ") + QString::number(m_withoutId++);
        while (nextElement()) {
            const QString name = attribute("name");
            object.properties.emplace(name, readValue());
        }
        if (!m_archive.m_objects.emplace(id, std::move(object)).second)
            m_xml.raiseError(QStringLiteral("two objects of one id"));
        return {id};
    }

    NibReference readReference()
    {
        const QString id = attribute("idRef");
        skipElement();
        return {id};
    }

    NibArray readArray()
    {
        NibArray elements;
        while (nextElement())
            elements.push_back(readValue());
        return elements;
    }

    NibDictionary readDictionary()
    {
        NibDictionary entries;
        while (nextElement()) {
            const NibValue key = readValue();
            if (key.as<QString>() == nullptr || !nextElement()) {
                m_xml.raiseError(QStringLiteral("a dictionary of something else than pairs"));
                return {};
            }
            entries.emplace_back(*key.as<QString>(), readValue());
        }
        return entries;
    }

    QString readText()
    {
        QString text;
        while (next() != QXmlStreamReader::Invalid && !m_xml.isEndElement()) {
            if (m_xml.isStartElement() || m_xml.isEntityReference())
                m_xml.raiseError(QStringLiteral("something else than text"));
            else if (m_xml.isCharacters())
                text += m_xml.text();
        }
        return text;
    }

    long long readNumber()
    {
        bool isNumber = false;
        const long long number = readText().trimmed().toLongLong(&isNumber);
        if (!isNumber)
            m_xml.raiseError(QStringLiteral("not a number"));
        return number;
    }

    bool readBoolean()
    {
        const QString text = readText().trimmed();
        const bool isTrue = text == QLatin1String("TRUE");
        if (!isTrue && text != QLatin1String("FALSE"))
            m_xml.raiseError(QStringLiteral("not a boolean"));
        return isTrue;
    }

    // Blanks count, and a shorter code ends in blanks.
    NibCode readCode()
    {
        const QString text = readText().leftJustified(4, QLatin1Char(' '));
        UInt8 bytes[4] = {};
        if (text.size() != 4 || unicodeToMacRoman(text.utf16(), 4, bytes) != 4)
            m_xml.raiseError(QStringLiteral("not four characters of Mac OS Roman"));
        return {static_cast<OSType>(bytes[0]) << 24 | static_cast<OSType>(bytes[1]) << 16
            | static_cast<OSType>(bytes[2]) << 8 | bytes[3]};
    }

    void takeNameTable(const NibObject& root)
    {
        const auto found = root.properties.find(QStringLiteral("nameTable"));
        if (found != root.properties.end() && found->second.as<NibDictionary>() != nullptr)
            m_archive.m_nameTable = *found->second.as<NibDictionary>();
    }

    QString attribute(const char* name) const { return m_xml.attributes().value(QLatin1String(name)).toString(); }

    QXmlStreamReader m_xml;
    QByteArrayView m_rest;  // what the stream was not given yet
    NibArchive m_archive;
    int m_depth = 0;
    int m_withoutId = 0;
};

std::optional<NibArchive> NibArchive::read(const QByteArray& xml)
{
    return NibArchiveReader(xml).read();
}

const NibObject* NibArchive::find(const NibReference& reference) const
{
    const auto found = m_objects.find(reference.id);
    return found == m_objects.end() ? nullptr : &found->second;
}

const NibValue* NibArchive::named(const QString& name) const
{
    const auto found = std::find_if(
        m_nameTable.begin(), m_nameTable.end(), [&name](const auto& entry) { return entry.first == name; });
    return found == m_nameTable.end() ? nullptr : &found->second;
}

}  // namespace Toolbox
