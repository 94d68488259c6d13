#include "toolbox/core/core_foundation/StringObject.h"

#include "toolbox/base/NeverDestroyed.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/base/text_encoding/MacRoman.h"

#include <QStringDecoder>

#include <algorithm>
#include <map>

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

QString fromMacRoman(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    macRomanToUnicode(reinterpret_cast<const UInt8*>(bytes.constData()), static_cast<std::size_t>(bytes.size()),
        reinterpret_cast<UniChar*>(text.data()));
    return text;
}

std::string quoted(const QString& text)
{
    constexpr qsizetype LONGEST = 80;
    QString line;
    for (const QChar unit : text.left(LONGEST)) {
        if (unit == QLatin1Char('"') || unit == QLatin1Char('\\'))
            line += QLatin1Char('\\');
        if (unit.isPrint() || unit.isSurrogate())
            line += unit;
        else
            line += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    }
    if (text.size() > LONGEST)
        line += QStringLiteral("...");
    return '"' + line.toStdString() + '"';
}

std::optional<std::string> fileName(const QString& text)
{
    const bool isName = text.isValidUtf16() && !text.contains(QChar(0));
    return isName ? std::optional(text.toStdString()) : std::nullopt;
}

namespace {

// Null when a byte is not ASCII.
StringObject* makeFromASCII(const QByteArray& bytes)
{
    const QString text = QString::fromLatin1(bytes);
    return isASCII(text) ? new StringObject(text) : nullptr;
}

// Null when `bytes` is not UTF-8. A byte order mark is a character like any other: the text is taken as it is.
StringObject* makeFromUTF8(const QByteArray& bytes)
{
    QStringDecoder decoder(
        QStringDecoder::Utf8, QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? nullptr : new StringObject(text);
}

StringObject* makeString(const QByteArray& bytes, CFStringEncoding encoding)
{
    switch (encoding) {
    case kCFStringEncodingMacRoman:
        return new StringObject(fromMacRoman(bytes), bytes);
    case kCFStringEncodingASCII:
        return makeFromASCII(bytes);
    case kCFStringEncodingUTF8:
        return makeFromUTF8(bytes);
    default:
        return nullptr;
    }
}

CFStringRef referenceOrNull(const StringObject* string)
{
    return string == nullptr ? nullptr : referenceTo<CFStringRef>(*string);
}

CFStringRef makeConstant(const QByteArray& text)
{
    StringObject* const string = makeFromASCII(text);
    if (string != nullptr)
        string->makeConstant();
    return referenceOrNull(string);
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text, CFStringEncoding encoding)
{
    TracedCall call("CFStringCreateWithCString", allocator, text, encoding);
    return call.gives(text == nullptr ? nullptr : referenceOrNull(makeString(text, encoding)));
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* units, CFIndex count)
{
    TracedCall call("CFStringCreateWithCharacters", allocator, units, count);
    if (count < 0 || (units == nullptr && count > 0))
        return call.gives<CFStringRef>(nullptr);
    const QString text = count == 0 ? QString() : QString(reinterpret_cast<const QChar*>(units), count);
    return call.gives(referenceTo<CFStringRef>(*new StringObject(text)));
}

ConstStringPtr CFStringGetPascalStringPtr(CFStringRef string, CFStringEncoding encoding)
{
    TracedCall call("CFStringGetPascalStringPtr", string, encoding);
    const auto* const found = findObject<StringObject>(string);
    return call.gives(found == nullptr ? nullptr : found->pascalString(encoding));
}

CFStringRef __CFStringMakeConstantString(const char* text)
{
    TracedCall call("__CFStringMakeConstantString", text);
    if (text == nullptr)
        return call.gives<CFStringRef>(nullptr);
    const auto [constant, isNew] =
        neverDestroyed<struct Constants, std::map<QByteArray, CFStringRef>>().try_emplace(text);
    if (isNew)
        constant->second = makeConstant(text);
    return call.gives(constant->second);
}
