// A call of one of the platform's functions: its line in the log, and whether a test wants it to fail.

#ifndef TESTS_DOUBLE_CALL_H
#define TESTS_DOUBLE_CALL_H

#include "tests/double/State.h"

#include <Carbon/Carbon.h>

#include <string>
#include <type_traits>

namespace ToolboxDouble {

/// `text` between quotes, bytes that are not printable ASCII as \xE9.
std::string quoted(const std::string& text);

/// The same for UTF-16, units that are not printable ASCII as \u00E9.
std::string quoted(const UniChar* units, std::size_t count);

/// The same for a Pascal string; "null", and "-1" for the system's own word.
std::string quoted(ConstStringPtr pascalString);

/// A four-character code, described as 'lsel'.
struct Code {
    UInt32 code;
};
std::string describe(Code code);

/// For pointers that the log need not tell apart: "given" or "null".
struct Given {
    bool given;
};
std::string describe(Given pointer);

/// The name of the object that `reference` refers to; "null", "dead window1", "unknown".
std::string nameOf(const void* reference);

/// Numbers in decimal, references by name, texts as they are; for anything else, a function that gives its text.
template <typename T> std::string describe(const T& value)
{
    if constexpr (std::is_integral<T>::value)
        return std::to_string(value);
    else if constexpr (std::is_pointer<T>::value || std::is_null_pointer<T>::value)
        return nameOf(value);
    else if constexpr (std::is_invocable<T>::value)
        return value();
    else
        return value;
}

/// One call, from its beginning to its end.
class Call {
public:
    /// Notes what it is called with. A text is to be given by a function, so that making it is the call's work.
    template <typename... Arguments>
    explicit Call(const char* function, const Arguments&... arguments)
        : m_line(state().log.size())
    {
        begin(function);
        const char* separator = "(";
        ((append(separator + describe(arguments)), separator = ", "), ...);
        append(")");
    }

    ~Call() { --state().depth; }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    /// Whether a test wants it to fail.
    bool fails() const { return m_fails; }

    /// What it is to return then.
    long failure() const { return m_failure; }

    /// Notes `result` as what it returns, and returns it.
    template <typename T> T returns(T result)
    {
        append(" = " + describe(result));
        return result;
    }

    /// The same for an error code, of whichever width: that of its failure, if it is to fail.
    OSStatus returnsStatus(long status) { return returns(static_cast<OSStatus>(m_fails ? m_failure : status)); }

    /// The same for noErr, and notes `value` as what the out-parameter is given.
    template <typename T> OSStatus succeeds(const T& value)
    {
        append(" = 0 -> " + describe(value));
        return noErr;
    }

    /// Notes `text` behind all else.
    void append(const std::string& text) { state().log[m_line] += text; }

private:
    void begin(const char* function);

    const AtWork m_atWork = AtWork(AtWork::Double);
    const std::size_t m_line;
    bool m_fails = false;
    long m_failure = 0;
};

/// Makes an object and returns its reference from `call`; null if that is to fail.
template <typename T, typename Reference> Reference create(Call& call, const char* kind)
{
    return call.returns(
        call.fails() ? Reference(nullptr) : referenceTo<Reference>(add(std::make_unique<T>(), numbered(kind))));
}

/// The same for a call that returns a status and has the reference in `*made`; a wrong one if it is to fail.
template <typename T, typename Reference> OSStatus create(Call& call, const char* kind, Reference* made)
{
    *made = wrongReference<Reference>();
    if (call.fails())
        return call.returnsStatus(noErr);
    *made = referenceTo<Reference>(add(std::make_unique<T>(), numbered(kind)));
    return call.succeeds(*made);
}

/// Disposes of the object that `reference` refers to, if it is a T and `call` is not to fail.
template <typename T> void dispose(const Call& call, const void* reference)
{
    T* const found = find<T>(reference);
    if (found != nullptr && !call.fails())
        found->end();
}

}  // namespace ToolboxDouble

#endif
