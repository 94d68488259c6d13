// Core Foundation: references, strings, UUIDs, instances of plug-ins.

#include "tests/double/Call.h"
#include "tests/double/State.h"

#include <CoreFoundation/CoreFoundation.h>

#include <cstring>

using namespace ToolboxDouble;

namespace {

struct StringObject : CFObject {
    void end() override
    {
        Object::end();
        pascal.resize(1 + 0xFF);
        poison(pascal);
    }

    std::vector<unsigned char> pascal;  // empty if it has no such form
};

// One object for equal bytes, constant or not. It may be the constant one too, which does not end.
struct UUIDObject : CFObject {
    bool isLeft() const override { return references > 0; }
    void end() override { }

    CFUUIDBytes bytes = {};
};

std::vector<unsigned char> pascalForm(const std::string& text)
{
    if (text.size() > 255)
        return {};
    std::vector<unsigned char> pascal(text.begin(), text.end());
    pascal.insert(pascal.begin(), static_cast<unsigned char>(text.size()));
    pascal.reserve(1 + 0xFF);  // so that its end does not move it
    return pascal;
}

std::string textForm(const CFUUIDBytes& bytes)
{
    UInt8 raw[sizeof bytes];
    std::memcpy(raw, &bytes, sizeof bytes);
    std::string text;
    for (std::size_t i = 0; i < sizeof raw; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += "0123456789ABCDEF"[raw[i] >> 4];
        text += "0123456789ABCDEF"[raw[i] & 0xF];
    }
    return text;
}

UUIDObject& uniqueUUID(const CFUUIDBytes& bytes)
{
    const std::string name = "uuid " + textForm(bytes);
    for (const auto& object : state().objects) {
        if (object->name == name)
            return dynamic_cast<UUIDObject&>(*object);
    }
    UUIDObject& uuid = add(std::make_unique<UUIDObject>(), name);
    uuid.bytes = bytes;
    uuid.references = 0;
    return uuid;
}

// Only its address is of interest.
const char SYSTEM_DEFAULT_ALLOCATOR = 0;

}  // namespace

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFAllocatorRef kCFAllocatorSystemDefault = reinterpret_cast<CFAllocatorRef>(&SYSTEM_DEFAULT_ALLOCATOR);

void CFRelease(CFTypeRef object)
{
    Call call("CFRelease", object);
    CFObject* const released = find<CFObject>(object);
    if (released == nullptr || !released->alive || released->references == 0)
        return;
    if (--released->references == 0)
        released->end();
}

Boolean CFEqual(CFTypeRef first, CFTypeRef second)
{
    Call call("CFEqual", first, second);
    return call.returns<Boolean>(first == second && first != nullptr);
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text, CFStringEncoding encoding)
{
    Call call(
        "CFStringCreateWithCString", allocator, [&] { return quoted(std::string(text)); }, encoding);
    if (call.fails())
        return call.returns<CFStringRef>(nullptr);
    StringObject& string = add(std::make_unique<StringObject>(), numbered("string"));
    string.pascal = pascalForm(text);
    return call.returns(referenceTo<CFStringRef>(string));
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* units, CFIndex count)
{
    Call call(
        "CFStringCreateWithCharacters", allocator, [&] { return quoted(units, static_cast<std::size_t>(count)); },
        count);
    return create<StringObject, CFStringRef>(call, "string");
}

ConstStringPtr CFStringGetPascalStringPtr(CFStringRef string, CFStringEncoding encoding)
{
    Call call("CFStringGetPascalStringPtr", string, encoding);
    const StringObject* const found = find<StringObject>(string);
    const bool answers = !call.fails() && found != nullptr && found->alive && !found->pascal.empty();
    const ConstStringPtr bytes = answers ? found->pascal.data() : nullptr;
    call.returns(quoted(bytes));
    return bytes;
}

CFStringRef __CFStringMakeConstantString(const char* text)
{
    const AtWork own(AtWork::Double);
    const std::string name = quoted(std::string(text));
    for (const auto& object : state().objects) {
        if (object->name == name)
            return referenceTo<CFStringRef>(*object);
    }
    StringObject& string = add(std::make_unique<StringObject>(), name);
    string.borrowed = true;
    return referenceTo<CFStringRef>(string);
}

CFUUIDRef CFUUIDGetConstantUUIDWithBytes(CFAllocatorRef allocator, UInt8 byte0, UInt8 byte1, UInt8 byte2, UInt8 byte3,
    UInt8 byte4, UInt8 byte5, UInt8 byte6, UInt8 byte7, UInt8 byte8, UInt8 byte9, UInt8 byte10, UInt8 byte11,
    UInt8 byte12, UInt8 byte13, UInt8 byte14, UInt8 byte15)
{
    const CFUUIDBytes bytes = {byte0, byte1, byte2, byte3, byte4, byte5, byte6, byte7, byte8, byte9, byte10, byte11,
        byte12, byte13, byte14, byte15};
    Call call("CFUUIDGetConstantUUIDWithBytes", allocator, [&] { return textForm(bytes); });
    return referenceTo<CFUUIDRef>(uniqueUUID(bytes));
}

CFUUIDRef CFUUIDCreateFromUUIDBytes(CFAllocatorRef allocator, CFUUIDBytes bytes)
{
    Call call("CFUUIDCreateFromUUIDBytes", allocator, [&] { return textForm(bytes); });
    if (call.fails())
        return call.returns<CFUUIDRef>(nullptr);
    UUIDObject& uuid = uniqueUUID(bytes);
    ++uuid.references;
    return referenceTo<CFUUIDRef>(uuid);
}

void CFPlugInRemoveInstanceForFactory(CFUUIDRef factory)
{
    Call call("CFPlugInRemoveInstanceForFactory", factory);
}
