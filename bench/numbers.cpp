// Numbers read from text, and floating-point numbers in both directions.

#include "bench/compare.h"

#include <absl/strings/numbers.h>
#include <absl/strings/str_format.h>
#include <fmt/format.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bench {

namespace {

void addParse(const std::string& digits)
{
    const Text text(digits);
    const std::size_t n = digits.size();
    add("parse an int", "library", n, [text] { return text.own.ToInt(); });
    add("parse an int", "from_chars", n, [text] {
        int number = 0;
        std::from_chars(text.plain.data(), text.plain.data() + text.plain.size(), number);
        return number;
    });
    add("parse an int", "Abseil", n, [text] {
        int number = 0;
        return absl::SimpleAtoi(text.plain, &number) ? number : 0;
    });
    add("parse an int", "QByteArray", n, [text] { return text.bytes.toInt(); });
    add("parse an int", "GLib", n, [text] { return g_ascii_strtoll(text.plain.c_str(), nullptr, 10); });
}

void addParseHexadecimal()
{
    const Text text(std::string("1A2b3C4d"));
    const std::size_t n = text.plain.size();
    add("parse base 16", "library", n, [text] { return text.own.ToUInt(nullptr, 16); });
    add("parse base 16", "from_chars", n, [text] {
        unsigned number = 0;
        std::from_chars(text.plain.data(), text.plain.data() + text.plain.size(), number, 16);
        return number;
    });
    add("parse base 16", "QByteArray", n, [text] { return text.bytes.toUInt(nullptr, 16); });
}

void addParse64()
{
    const Text text(std::string("12345678901234567890"));
    const std::size_t n = text.plain.size();
    add("parse 64 bits", "library", n, [text] { return text.own.ToUInt64(); });
    add("parse 64 bits", "from_chars", n, [text] {
        unsigned long long number = 0;
        std::from_chars(text.plain.data(), text.plain.data() + text.plain.size(), number);
        return number;
    });
    add("parse 64 bits", "QByteArray", n, [text] { return text.bytes.toULongLong(); });
}

void addFloatingPoint(const std::string& digits)
{
    const Text text(digits);
    const std::size_t n = digits.size();
    add("parse a double", "library", n, [text] { return text.own.ToDouble(); });
    // The grammar and the locale are strtod's, so that this is the bound.
    add("parse a double", "prototype", n, [text] { return std::strtod(text.plain.c_str(), nullptr); });
    add("parse a double", "from_chars", n, [text] {
        double number = 0;
        std::from_chars(text.plain.data(), text.plain.data() + text.plain.size(), number);
        return number;
    });
    add("parse a double", "Abseil", n, [text] {
        double number = 0;
        return absl::SimpleAtod(text.plain, &number) ? number : 0;
    });
    add("parse a double", "QByteArray", n, [text] { return text.bytes.toDouble(); });
}

void addFormat()
{
    const double number = 12345.678;
    add("a double to text", "library", 9, [number] { return String::Number(number, 3); });
    // The text is printf's, in the current locale, so that this is the bound.
    add("a double to text", "prototype", 9, [number] {
        char digits[64];
        std::snprintf(digits, sizeof digits, "%.3f", number);
        return Prototype(digits, std::strlen(digits));
    });
    add("a double to text", "fmt", 9, [number] { return fmt::format("{:.3f}", number); });
    add("a double to text", "Abseil", 9, [number] { return absl::StrFormat("%.3f", number); });
    add("a double to text", "QByteArray", 9, [number] { return QByteArray::number(number, 'f', 3); });
}

}  // namespace

void addNumbers()
{
    addParse("42");
    addParse("1234567890");
    addParseHexadecimal();
    addParse64();
    addFloatingPoint("3.25");
    addFloatingPoint("-1234567.890123e-12");
    addFormat();
}

}  // namespace bench
