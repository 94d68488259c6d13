// The object behind a CFStringRef: a text in UTF-16 and, when it has one, its form as a Pascal string; and the forms of
// texts in a trace, and as names of files and symbols.

#ifndef TOOLBOX_CORE_CORE_FOUNDATION_STRINGOBJECT_H
#define TOOLBOX_CORE_CORE_FOUNDATION_STRINGOBJECT_H

#include "toolbox/core/core_foundation/CFObject.h"

#include <CoreFoundation/CFString.h>

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>

namespace Toolbox {

/// A text that never changes.
class StringObject : public CFObject {
public:
    /// The string of `text`.
    explicit StringObject(const QString& text);

    /// The string of `text`, which was made from the Mac OS Roman bytes `macRoman`.
    StringObject(const QString& text, const QByteArray& macRoman);

    const QString& text() const { return m_text; }

    /// A length byte and the text in `encoding`, this object's own; null if it has no such form (CFString.h says when).
    ConstStringPtr pascalString(CFStringEncoding encoding) const;

    bool equals(const CFObject& other) const override;

    /// The text, quoted.
    std::string traceName() const override;

private:
    const QString m_text;
    const bool m_isASCII;
    const QByteArray m_pascalString;  // with its length byte; empty when there is none
};

/// The text of `string`; a null QString for a null, dead or foreign reference. The empty string's is empty, not null.
QString textOf(CFStringRef string);

/// The text of these Mac OS Roman bytes.
QString fromMacRoman(const QByteArray& bytes);

/// `text` in quotes and in UTF-8, on one line, as the trace shows it: what does not print is escaped as \uXXXX, and of
/// a long text there is only the beginning.
std::string quoted(const QString& text);

/// `text` in UTF-8, as a file system and a loader know names. Nothing for a text with a zero, which would end the name
/// early, and with half a surrogate pair, which has no UTF-8: no file and no symbol has such a name.
std::optional<std::string> fileName(const QString& text);

}  // namespace Toolbox

#endif
