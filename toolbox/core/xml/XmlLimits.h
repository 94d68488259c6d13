// What a document may be before the XML parser sees it. Nibs and property lists come from elsewhere, and the parser
// takes time that grows faster than some of what they can hold: it compares each attribute of a tag with every other,
// and multiplies what a document type declares.

#ifndef TOOLBOX_CORE_XML_XMLLIMITS_H
#define TOOLBOX_CORE_XML_XMLLIMITS_H

#include <QByteArrayView>
#include <QString>

class QXmlStreamReader;

namespace Toolbox {

constexpr int DEEPEST_ELEMENT = 200;      // elements inside one another
constexpr int MOST_BRACKETS = 100000;     // pairs of < and >: tags, comments and all else that stands in them
constexpr int MOST_ATTRIBUTES = 16;       // in a tag
constexpr qsizetype LONGEST_TAG = 16384;  // bytes from < to >, names and values of attributes included

/// Whether `document`, in UTF-8, is within the limits above. It is read once, from front to back; whether it is
/// well-formed is left to the parser. A document type with declarations of its own is refused, too; one that only names
/// a definition elsewhere, as every genuine property list does, has no effect: nothing is fetched.
/// Returns what is wrong, as a clause; nothing if nothing is.
QString beyondXmlLimits(QByteArrayView document);

/// Gives `document`, in any encoding that Qt knows, to `parser`, which must be new, if it is within the limits; else
/// stops that with the reason. The parser then takes no notice of namespaces, which nobody here uses.
void parseWithinLimits(const QByteArray& document, QXmlStreamReader& parser);

/// What stopped `parser`, as a clause; with the line, if that is no well-formed XML. Empty if nothing did.
QString problemOf(const QXmlStreamReader& parser);

}  // namespace Toolbox

#endif
