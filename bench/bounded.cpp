// What the two heap blocks of every new text bound: making short ones. The peer to be near is the bare prototype, which
// makes a text with the same allocations and does nothing else.

#include "bench/compare.h"

#include <absl/strings/str_cat.h>
#include <absl/strings/str_split.h>
#include <absl/strings/substitute.h>
#include <fmt/format.h>

#include <QByteArrayList>
#include <QStringList>

#include <charconv>
#include <cstring>
#include <vector>

namespace bench {

namespace {

const char SHORT[] = "twelve bytes";
const char LONG[] = "forty bytes are more than fit in place..";

void addConstruct(const char* text)
{
    const std::size_t n = std::strlen(text);
    add("construct", "library", n, [text] { return String(text); });
    add("construct", "prototype", n, [text] { return Prototype(text, std::strlen(text)); });
    add("construct", "std", n, [text] { return std::string(text); });
    add("construct", "QByteArray", n, [text] { return QByteArray(text); });
    add("construct", "QString", n, [text] { return QString::fromLatin1(text); });

    const Text whole(std::string(text) + text);
    const unsigned half = static_cast<unsigned>(n);
    add("cut", "library", n, [whole, half] { return whole.own.Mid(half, half); });
    add("cut", "prototype", n, [whole, n] { return Prototype(whole.plain.data() + n, n); });
    add("cut", "std", n, [whole, n] { return whole.plain.substr(n, n); });
    add("cut", "QByteArray", n,
        [whole, n] { return whole.bytes.mid(static_cast<qsizetype>(n), static_cast<qsizetype>(n)); });

    add("copy", "library", n, [whole] { return String(whole.own); });
    add("copy", "std", n, [whole] { return std::string(whole.plain); });
    add("copy", "QByteArray", n, [whole] { return QByteArray(whole.bytes); });
}

void addSplit(std::size_t n)
{
    std::string joined;
    while (joined.size() < n)
        joined += "seven77,";
    const Text text(joined);
    add("split", "library", n, [text] {
        std::vector<String> fields;
        text.own.Split(',', fields);
        return fields.size();
    });
    add("split", "prototype", n, [text] {
        std::vector<Prototype> fields;
        const char* from = text.plain.c_str();
        while (const char* const at = std::strchr(from, ',')) {
            fields.emplace_back(from, static_cast<std::size_t>(at - from));
            from = at + 1;
        }
        return fields.size();
    });
    add("split", "Abseil", n, [text] { return std::vector<std::string>(absl::StrSplit(text.plain, ',')).size(); });
    add("split", "QByteArray", n, [text] { return text.bytes.split(',').size(); });
    add("split", "QString", n, [text] { return text.wide.split(QLatin1Char(',')).size(); });
}

template <typename Number> void addNumber(const std::string& operation, Number number)
{
    add(operation, "library", sizeof number, [number] { return String::Number(number); });
    add(operation, "prototype", sizeof number, [number] {
        char digits[32];
        const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        return Prototype(digits, static_cast<std::size_t>(end - digits));
    });
    add(operation, "std", sizeof number, [number] { return std::to_string(number); });
    add(operation, "fmt", sizeof number, [number] { return fmt::to_string(number); });
    add(operation, "Abseil", sizeof number, [number] { return absl::StrCat(number); });
    add(operation, "QByteArray", sizeof number, [number] { return QByteArray::number(number); });
    add(operation, "QString", sizeof number, [number] { return QString::number(number); });
}

void addSubstitute()
{
    const Text pattern(std::string("%1 is here"));
    const Text value(std::string("a value"));
    const std::size_t n = pattern.plain.size();
    add("substitute a text", "library", n, [=] { return pattern.own.Arg(value.own); });
    add("substitute a text", "prototype", n, [=] {
        std::string filled;
        filled.reserve(pattern.plain.size() - 2 + value.plain.size());
        filled.append(value.plain).append(pattern.plain, 2);
        return Prototype(filled.data(), filled.size());
    });
    add("substitute a text", "QString", n, [=] { return pattern.wide.arg(value.wide); });
    add("substitute a text", "fmt", n, [=] { return fmt::format("{} is here", value.plain); });
    add("substitute a text", "Abseil", n, [=] { return absl::Substitute("$0 is here", value.plain); });

    add("substitute a number", "library", n, [=] { return pattern.own.Arg(12345); });
    add("substitute a number", "QString", n, [=] { return pattern.wide.arg(12345); });
    add("substitute a number", "fmt", n, [=] { return fmt::format("{} is here", 12345); });
    add("substitute a number", "Abseil", n, [=] { return absl::Substitute("$0 is here", 12345); });
}

}  // namespace

void addBounded()
{
    addConstruct(SHORT);
    addConstruct(LONG);
    for (const std::size_t n : LENGTHS)
        addSplit(n);
    addNumber("a small number to text", 42);
    addNumber("an int to text", -1234567890);
    addNumber("a 64-bit number to text", 1234567890123456789LL);
    addSubstitute();
}

}  // namespace bench
