// The object behind a CFStringRef: a text in UTF-16 and, when it has one, its form as a Pascal string.

#ifndef TOOLBOX_CORE_CORE_FOUNDATION_STRINGOBJECT_H
#define TOOLBOX_CORE_CORE_FOUNDATION_STRINGOBJECT_H

#include "toolbox/core/core_foundation/CFObject.h"

#include <CoreFoundation/CFString.h>

#include <QByteArray>
#include <QString>

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

}  // namespace Toolbox

#endif
