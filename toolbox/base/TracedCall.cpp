#include "toolbox/base/TracedCall.h"

#include "toolbox/base/Referenced.h"

#include <cstdio>
#include <optional>
#include <utility>

namespace Toolbox {

TraceSink traceSink;

namespace {

// The call that whatever happens now belongs to, or null. Each thread has its own: texts are converted in several.
thread_local TracedCall* currentCall = nullptr;

bool isPrintable(unsigned character)
{
    return character >= ' ' && character <= '~';
}

// The four characters of `number` if it is a code such as 'CALL', else an empty text.
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

bool TracedCall::begin()
{
    if (currentCall != nullptr)
        return false;
    currentCall = this;
    return true;
}

TracedCall::~TracedCall()
{
    if (!m_reported)
        return;
    currentCall = nullptr;
    if (traceSink)
        traceSink(m_line);
}

void TracedCall::reportBegun()
{
    if (!std::exchange(m_reportedBegun, true) && traceSink)
        traceSink(m_line + " ...");
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
    for (const auto& describeResult : m_results)
        text += " -> " + describeResult();
    return text;
}

ForeignCode::ForeignCode()
    : m_caller(std::exchange(currentCall, nullptr))
{
    if (m_caller != nullptr)
        m_caller->reportBegun();
}

ForeignCode::~ForeignCode()
{
    currentCall = m_caller;
}

}  // namespace Toolbox
