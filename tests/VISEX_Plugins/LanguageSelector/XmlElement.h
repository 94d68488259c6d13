// An XML document as a tree, for tests that look at all of a file.

#ifndef TESTS_VISEX_PLUGINS_LANGUAGESELECTOR_XMLELEMENT_H
#define TESTS_VISEX_PLUGINS_LANGUAGESELECTOR_XMLELEMENT_H

#include <QFile>
#include <QXmlStreamReader>

#include <stdexcept>
#include <string>
#include <vector>

/// One element. `text` is what stands in it outside its children.
struct XmlElement {
    std::string tag;
    QXmlStreamAttributes attributes;
    std::string text;
    std::vector<XmlElement> children;

    /// The attribute `key`; "" if it has none.
    std::string attribute(const char* key) const
    {
        return attributes.value(QLatin1String(key)).toString().toStdString();
    }

    /// The child whose attribute name is `value`; null if it has none.
    const XmlElement* named(const char* value) const
    {
        for (const XmlElement& child : children) {
            if (child.attribute("name") == value)
                return &child;
        }
        return nullptr;
    }

    /// The text of that child; "" if it has none.
    std::string property(const char* value) const
    {
        const XmlElement* const child = named(value);
        return child != nullptr ? child->text : std::string();
    }
};

/// The bytes of the file. Throws if it cannot be read.
inline QByteArray readFile(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path);
    return file.readAll();
}

/// The element at which `reader` stands, up to its end.
inline XmlElement readElement(QXmlStreamReader& reader)
{
    XmlElement element;
    element.tag = reader.name().toString().toStdString();
    element.attributes = reader.attributes();
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement())
            element.children.push_back(readElement(reader));
        else if (reader.isCharacters())
            element.text += reader.text().toString().toStdString();
        else if (reader.isEndElement())
            break;
    }
    return element;
}

/// The root of the document `bytes`. Throws if they are not well-formed XML.
inline XmlElement readXml(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    XmlElement root;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement)
            root = readElement(reader);
    }
    if (reader.hasError())
        throw std::runtime_error("not well-formed: " + reader.errorString().toStdString());
    return root;
}

#endif
