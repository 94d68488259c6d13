// The trace point. Each public function begins with a TracedCall of its name and arguments, and hands what it returns
// through gives(). With tracing off that is a test of one flag.
//
// A line names objects by what they are ("window#3", a string's text), codes by their characters, other memory by its
// address; behind a call that succeeded stands what it has given: CreateNibReference(...) = 0 -> nib#2. An argument may
// also be a function without parameters: what it returns is shown for it.

#ifndef TOOLBOX_BASE_TRACEDCALL_H
#define TOOLBOX_BASE_TRACEDCALL_H

#include <Carbon/MacTypes.h>
#include <Toolbox/Trace.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace Toolbox {

/// Where calls are reported to; nothing when tracing is off.
extern TraceSink traceSink;

/// `number` in decimal, or as the four characters in quotes if it is a code such as 'CALL'.
std::string describeNumber(long long number);

/// One call of a public function, reported when it ends, unless it was made from inside another. It is reported as
/// begun, too, when foreign code is called inside it, whose calls then follow: `RunAppModalLoopForWindow(window#9)
/// ...`.
class TracedCall {
public:
    template <typename... Arguments>
    explicit TracedCall(const char* function, const Arguments&... arguments)
        : m_reported(traceSink && begin())
    {
        if (!m_reported)
            return;
        m_line = function;
        m_line += '(';
        [[maybe_unused]] const char* separator = "";
        ((m_line += separator, m_line += describe(arguments), separator = ", "), ...);
        m_line += ')';
        (noteResult(arguments), ...);
    }

    ~TracedCall();
    TracedCall(const TracedCall&) = delete;
    TracedCall& operator=(const TracedCall&) = delete;

    /// Notes `result` as what the call returns, and returns it.
    template <typename Result> Result gives(Result result)
    {
        if (m_reported)
            m_line += " = " + describe(result) + (isSuccess(result) ? describeResults() : std::string());
        return result;
    }

private:
    template <typename Value>
    static constexpr bool isReference = std::is_pointer_v<Value>&& std::is_class_v<std::remove_pointer_t<Value>>;

    // A place where the caller wants a reference, which is a pointer to a structure, or a small number, such as the
    // item of an alert. Other pointers, such as a Handle, point at bytes.
    template <typename Value> void noteResult(const Value& value)
    {
        if constexpr (std::is_pointer_v<Value>) {
            using Place = std::remove_pointer_t<Value>;
            if constexpr (std::is_same_v<Place, SInt16> || isReference<Place>)
                if (value != nullptr)
                    m_results.push_back([value] { return describe(*value); });
        }
    }

    // Only noErr says that the results were written.
    template <typename Result> static bool isSuccess(Result result)
    {
        if constexpr (std::is_integral_v<Result>)
            return result == 0;
        else
            return false;
    }

    // What the call has given, behind arrows.
    std::string describeResults() const;

    friend class ForeignCode;
    bool begin();
    void reportBegun();

    static std::string describePointer(const void* pointer);

    template <typename Value> static std::string describe(const Value& value)
    {
        if constexpr (std::is_function_v<std::remove_pointer_t<Value>>)
            return value == nullptr ? "null" : "procedure";
        else if constexpr (std::is_pointer_v<Value>)
            return describePointer(value);
        else if constexpr (std::is_integral_v<Value>)
            return describeNumber(static_cast<long long>(value));
        else if constexpr (std::is_invocable_v<Value>)
            return value();
        else
            return "...";  // a structure passed by value
    }

    const bool m_reported;
    bool m_reportedBegun = false;
    std::string m_line;
    std::vector<std::function<std::string()>> m_results;
};

/// While this lives, code that is not the toolbox's runs inside one of its calls, and its calls are reported again:
/// stands around every call of a handler.
class ForeignCode {
public:
    ForeignCode();
    ~ForeignCode();
    ForeignCode(const ForeignCode&) = delete;
    ForeignCode& operator=(const ForeignCode&) = delete;

private:
    TracedCall* const m_caller;
};

}  // namespace Toolbox

#endif
