#include "toolbox/base/TracedCall.h"

#include "toolbox/base/Referenced.h"

#include <Toolbox/Trace.h>

#include <cstdio>
#include <optional>
#include <utility>

namespace Toolbox {

namespace {

TraceSink traceSink;

// How many public functions the present one was called from. Each thread has its own: texts are converted in several.
thread_local int callDepth = 0;

bool isPrintable(unsigned character)
{
    return character >= ' ' && character <= '~';
}

// The four characters of a code such as 'CALL', or nothing when the number is none.
std::string fourCharacters(long long number)
{
    std::string code;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const unsigned character = static_cast<unsigned>(number >> shift) & 0xFF;
        if (!isPrintable(character))
            return std::string();
        code += static_cast<char>(character);
    }
    return number >> 32 == 0 ? "'" + code + "'" : std::string();
}

}  // namespace

void SetTrace(TraceSink sink)
{
    traceSink = std::move(sink);
}

bool TracedCall::enter()
{
    return callDepth++ == 0 && traceSink;
}

void TracedCall::leave(const std::string* line)
{
    --callDepth;
    if (line != nullptr && traceSink)
        traceSink(*line);
}

std::string describeNumber(long long number)
{
    const std::string code = fourCharacters(number);
    return code.empty() ? std::to_string(number) : code;
}

std::string TracedCall::describePointer(const void* pointer)
{
    if (pointer == nullptr)
        return "null";
    if (const std::optional<std::string> name = traceNameOf(reinterpret_cast<std::uintptr_t>(pointer)))
        return *name;
    char text[32];
    std::snprintf(text, sizeof text, "%p", pointer);
    return text;
}

std::string TracedCall::describeResults() const
{
    std::string text;
    for (const void* const* const result : m_results) {
        if (result != nullptr)
            text += " -> " + describePointer(*result);
    }
    return text;
}

ForeignCode::ForeignCode()
    : m_depth(std::exchange(callDepth, 0))
{
}

ForeignCode::~ForeignCode()
{
    callDepth = m_depth;
}

}  // namespace Toolbox
