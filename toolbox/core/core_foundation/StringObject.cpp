#include "toolbox/core/core_foundation/StringObject.h"

#include "toolbox/core/core_foundation/Quoted.h"

#include <algorithm>

namespace Toolbox {

namespace {

constexpr qsizetype LONGEST_PASCAL_STRING = 255;  // what the length byte can say

bool isASCII(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x80; });
}

QByteArray makePascalString(const QByteArray& bytes)
{
    if (bytes.size() > LONGEST_PASCAL_STRING)
        return QByteArray();
    return QByteArray(1, static_cast<char>(bytes.size())) + bytes;
}

}  // namespace

StringObject::StringObject(const QString& text)
    : m_text(text.isNull() ? QLatin1String("") : text)
    , m_isASCII(isASCII(text))
    , m_pascalString(m_isASCII ? makePascalString(text.toLatin1()) : QByteArray())
{
}

StringObject::StringObject(const QString& text, const QByteArray& macRoman)
    : m_text(text.isNull() ? QLatin1String("") : text)
    , m_isASCII(isASCII(text))
    , m_pascalString(makePascalString(macRoman))
{
}

ConstStringPtr StringObject::pascalString(CFStringEncoding encoding) const
{
    const bool hasForm = encoding == kCFStringEncodingMacRoman || (encoding == kCFStringEncodingASCII && m_isASCII);
    if (!hasForm || m_pascalString.isEmpty())
        return nullptr;
    return reinterpret_cast<ConstStringPtr>(m_pascalString.constData());
}

bool StringObject::equals(const CFObject& other) const
{
    const auto* const string = dynamic_cast<const StringObject*>(&other);
    return string != nullptr && string->m_text == m_text;
}

std::string StringObject::traceName() const
{
    return quoted(m_text);
}

QString textOf(CFStringRef string)
{
    const auto* const found = findObject<StringObject>(string);
    return found == nullptr ? QString() : found->text();
}

}  // namespace Toolbox
