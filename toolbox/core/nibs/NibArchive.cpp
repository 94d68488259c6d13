// What is read of a nib's archive, objects.xib; [] stands around what may be left out:
//
//     archive    = object
//     object     = <object class="..." [id="..."]> { value with name="property" } </object>
//     value      = object | <reference idRef="..."/>     the object of that id, which may stand anywhere
//                | <array> { value } </array> | <dictionary> { string value } </dictionary>
//                | <string> | <int> | <unsigned_int> | <boolean> TRUE or FALSE | <ostype> up to four characters
//
// The root has the property nameTable, a dictionary of what windows and others are asked for by. Elements of other
// names are skipped, and so are attributes, among them `count`, which could only disagree with what is there.

#include "toolbox/core/nibs/NibArchive.h"

#include "toolbox/base/text_encoding/MacRoman.h"
#include "toolbox/core/xml/XmlLimits.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace Toolbox {

// Reads one archive. What is wrong in it stops the stream, which from then on gives nothing more.
class NibArchiveReader {
public:
    explicit NibArchiveReader(const QByteArray& xml) { parseWithinLimits(xml, m_xml); }

    std::optional<NibArchive> read(QString* problem)
    {
        NibValue root;
        if (nextElement())
            root = readValue();
        while (!m_xml.atEnd())
            m_xml.readNext();
        const NibReference* const reference = root.as<NibReference>();
        if (!m_xml.hasError() && reference == nullptr)
            m_xml.raiseError(QStringLiteral("its root is not an object"));
        *problem = problemOf(m_xml);
        if (m_xml.hasError())
            return std::nullopt;
        takeNameTable(m_archive.m_objects[reference->id]);
        return std::move(m_archive);
    }

private:
    // Up to the start of the next element inside this one. False at this one's end, and at an error.
    bool nextElement()
    {
        while (m_xml.readNext() != QXmlStreamReader::Invalid && !m_xml.isEndElement() && !m_xml.isEndDocument())
            if (m_xml.isStartElement())
                return true;
        return false;
    }

    // Each of these begins at an element's start and ends at its end.

    NibValue readValue()
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
        m_xml.skipCurrentElement();  // no property that is read here is of another type
        return {};
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
        m_xml.skipCurrentElement();
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
        while (m_xml.readNext() != QXmlStreamReader::Invalid && !m_xml.isEndElement()) {
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
        const long long number = readText().toLongLong(&isNumber);
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
    NibArchive m_archive;
    int m_withoutId = 0;
};

std::optional<NibArchive> NibArchive::read(const QByteArray& xml, QString* problem)
{
    return NibArchiveReader(xml).read(problem);
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
