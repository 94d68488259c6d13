#include "twin.h"

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

namespace {

String stringOf(const std::string& bytes)
{
    if (bytes.find('\0') == std::string::npos)
        return String(bytes.c_str());
    String string;
    const unsigned length = static_cast<unsigned>(bytes.size());
    string.detachAndExtend(length - 1);
    for (unsigned i = 0; i < length; ++i)
        string[i] = bytes[i];
    return string;
}

AssertionResult sameText(const String& string, const reference::Text& text)
{
    const bool same = string.IsNull() == (text == nullptr) && string.Length() == reference::length(text)
        && string.IsEmpty() == reference::bytes(text).empty()
        && std::string(string.Latin1(), string.Length() + std::size_t(1)) == reference::bytes(text) + '\0';
    if (same)
        return AssertionSuccess();
    return AssertionFailure() << "  expected " << shown(text) << "\n  came     " << shown(string) << "\n";
}

bool shares(const String& a, const String& b)
{
    return !a.IsNull() && !b.IsNull() && a.Latin1() == b.Latin1();
}

// Both sides of what `twin` holds, in a buffer of their own.
Twin ownCopy(const Twin& twin)
{
    return twin.text == nullptr ? nullTwin() : twinOf(*twin.text);
}

}  // namespace

Twin nullTwin()
{
    return {String(), nullptr};
}

Twin twinOf(const std::string& bytes)
{
    return {stringOf(bytes), reference::newText(bytes)};
}

AssertionResult agrees(const String& string, const reference::Text& text, const Twins& others)
{
    AssertionResult result = sameText(string, text);
    for (std::size_t i = 0; result && i < others.size(); ++i) {
        const Twin& other = others[i];
        const bool shareExpected = text != nullptr && text == other.text;
        result = sameText(other.string, other.text);
        if (!result)
            result << "  in another string\n";
        else if (shares(string, other.string) != shareExpected)
            result = AssertionFailure() << "  the text " << shown(string) << " is right, but "
                                        << (shareExpected ? "does not share" : "shares") << " the buffer of "
                                        << shown(other) << ", operand " << i + 1 << "\n";
    }
    return result;
}

AssertionResult agrees(const checked_uint& position, const reference::Position& expected)
{
    if (position.valid() == expected.has_value() && position.value() == expected.value_or(0))
        return AssertionSuccess();
    return AssertionFailure() << "  expected " << shown(expected) << "\n  came     " << shown(position) << ", holding "
                              << position.value() << "\n";
}

reference::Position modelOf(const checked_uint& number)
{
    return number.valid() ? reference::Position(number.value()) : reference::Position();
}

AssertionResult changes(const Twin& text, const Twin& argument,
    const std::function<void(String&, const String&)>& change,
    const std::function<reference::Text(const reference::Text&, const reference::Text&)>& model)
{
    const bool onItself = &text == &argument;
    for (const bool shared : {true, false}) {
        Twin changed = shared ? text : ownCopy(text);
        const char* const address = changed.string.Latin1();
        const bool wasNull = changed.string.IsNull();

        const reference::Text before = changed.text;
        changed.text.reset();
        reference::Text expected = model(before, onItself ? before : argument.text);
        change(changed.string, onItself ? changed.string : argument.string);

        AssertionResult result = agrees(changed.string, expected, {text, argument});
        const bool keptBuffer = !wasNull && changed.string.Latin1() == address;
        const bool keepExpected = !wasNull && expected == before;
        if (result && keptBuffer != keepExpected)
            result = AssertionFailure() << "  the text " << shown(expected) << " is right, but "
                                        << (keptBuffer ? "not in a new buffer" : "in a new buffer") << "\n";
        if (!result)
            return result << (shared ? "  changing a string that shares its buffer\n"
                                     : "  changing a string with a buffer of its own\n");
    }
    return AssertionSuccess();
}

AssertionResult changes(const Twin& text, const std::function<void(String&)>& change,
    const std::function<reference::Text(const reference::Text&)>& model)
{
    const Twin none = nullTwin();
    return changes(
        text, none, [&](String& string, const String&) { change(string); },
        [&](const reference::Text& before, const reference::Text&) { return model(before); });
}

std::string shown(const reference::Text& text)
{
    return text == nullptr ? "null" : testing::PrintToString(*text);
}

std::string shown(const String& string)
{
    return string.IsNull() ? "null" : testing::PrintToString(std::string(string.Latin1(), string.Length()));
}

std::string shown(const Twin& twin)
{
    return shown(twin.text);
}

std::string shown(const std::vector<Twin>& twins)
{
    std::string list;
    for (const Twin& twin : twins)
        list += (list.empty() ? "" : ", ") + shown(twin);
    return "{" + list + "}";
}

std::string shown(const reference::Position& position)
{
    return position ? std::to_string(*position) : "none";
}

std::string shown(const checked_uint& position)
{
    return shown(modelOf(position));
}
