#include "toolbox/base/TracedCall.h"
#include "toolbox/base/text_encoding/MacRoman.h"
#include "toolbox/core/core_foundation/StringObject.h"

#include <QStringDecoder>

#include <algorithm>
#include <map>

using Toolbox::findObject;
using Toolbox::referenceTo;
using Toolbox::StringObject;
using Toolbox::TracedCall;

namespace {

// Never null: every byte is a character of Mac OS Roman.
StringObject* makeFromMacRoman(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    Toolbox::macRomanToUnicode(reinterpret_cast<const UInt8*>(bytes.constData()),
        static_cast<std::size_t>(bytes.size()), reinterpret_cast<UniChar*>(text.data()));
    return new StringObject(text, bytes);
}

// Null when a byte is not ASCII.
StringObject* makeFromASCII(const QByteArray& bytes)
{
    const bool isASCII =
        std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<UInt8>(byte) < 0x80; });
    return isASCII ? new StringObject(QString::fromLatin1(bytes)) : nullptr;
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
        return makeFromMacRoman(bytes);
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
    static auto* const constants = new std::map<QByteArray, CFStringRef>;
    if (text == nullptr)
        return call.gives<CFStringRef>(nullptr);
    const auto [constant, isNew] = constants->try_emplace(text);
    if (isNew)
        constant->second = makeConstant(text);
    return call.gives(constant->second);
}
