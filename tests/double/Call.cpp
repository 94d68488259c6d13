#include "tests/double/Call.h"

#include <cstdint>
#include <cstdio>

namespace ToolboxDouble {

namespace {

std::string printable(unsigned unit, const char* escape)
{
    if (unit >= 0x20 && unit < 0x7F)
        return std::string(1, static_cast<char>(unit));
    char escaped[16];
    std::snprintf(escaped, sizeof escaped, escape, unit);
    return escaped;
}

}  // namespace

std::string quoted(const std::string& text)
{
    std::string result;
    for (const char c : text)
        result += printable(static_cast<unsigned char>(c), "\\x%02X");
    return '"' + result + '"';
}

std::string quoted(const UniChar* units, std::size_t count)
{
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += printable(units[i], "\\u%04X");
    return '"' + result + '"';
}

std::string quoted(ConstStringPtr pascalString)
{
    if (pascalString == nullptr)
        return "null";
    if (reinterpret_cast<std::intptr_t>(pascalString) == -1)
        return "-1";
    return quoted(std::string(pascalString + 1, pascalString + 1 + pascalString[0]));
}

std::string describe(Code code)
{
    std::string result;
    for (int shift = 24; shift >= 0; shift -= 8)
        result += printable(static_cast<unsigned>(code.code >> shift & 0xFF), "\\x%02X");
    return "'" + result + "'";
}

std::string describe(Given pointer)
{
    return pointer.given ? "given" : "null";
}

std::string nameOf(const void* reference)
{
    if (reference == nullptr)
        return "null";
    if (reference == kCFAllocatorSystemDefault)
        return "system default";
    const Object* const object = find<Object>(reference);
    if (object == nullptr)
        return "unknown";
    return object->alive ? object->name : "dead " + object->name;
}

void Call::begin(const char* function)
{
    State& all = state();
    // The one call that takes a pointer into a block which may not be locked, and is sure not to move it.
    if (function != std::string("BlockMoveData")) {
        for (const auto& object : all.objects)
            object->move();
    }
    all.log.push_back(std::string(2 * all.depth, ' ') + function);
    ++all.depth;

    const int occurrence = ++all.callCounts[function];
    for (const FailingCall& failing : all.failingCalls) {
        if (failing.function == function && (failing.occurrence == EVERY_CALL || failing.occurrence == occurrence)) {
            m_fails = true;
            m_failure = failing.result;
        }
    }
}

}  // namespace ToolboxDouble
