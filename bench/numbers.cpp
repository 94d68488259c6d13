// Numbers read from text and written as text.

#include "bench/compare.h"

#include <absl/strings/numbers.h>
#include <absl/strings/str_cat.h>
#include <absl/strings/str_format.h>
#include <fmt/format.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bench {

namespace {

template <typename Number> Number fromChars(const std::string& text, int base = 10)
{
    Number number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number, base);
    return number;
}

void addParse(const std::string& digits)
{
    const Text text(digits);
    const std::size_t n = digits.size();
    add("parse an int, digits", "library", n, [text] { return text.own.ToInt(); });
    add("parse an int, digits", "from_chars", n, [text] { return fromChars<int>(text.plain); });
    add("parse an int, digits", "Abseil", n, [text] {
        int number = 0;
        return absl::SimpleAtoi(text.plain, &number) ? number : 0;
    });
    add("parse an int, digits", "QByteArray", n, [text] { return text.bytes.toInt(); });
    add("parse an int, digits", "GLib", n, [text] { return g_ascii_strtoll(text.plain.c_str(), nullptr, 10); });
}

void addParseOthers()
{
    const Text hexadecimal(std::string("1A2b3C4d"));
    add("parse base 16, digits", "library", 8, [=] { return hexadecimal.own.ToUInt(nullptr, 16); });
    add("parse base 16, digits", "from_chars", 8, [=] { return fromChars<unsigned>(hexadecimal.plain, 16); });
    add("parse base 16, digits", "QByteArray", 8, [=] { return hexadecimal.bytes.toUInt(nullptr, 16); });

    const Text wide(std::string("12345678901234567890"));
    add("parse 64 bits, digits", "library", 20, [=] { return wide.own.ToUInt64(); });
    add("parse 64 bits, digits", "from_chars", 20, [=] { return fromChars<unsigned long long>(wide.plain); });
    add("parse 64 bits, digits", "QByteArray", 20, [=] { return wide.bytes.toULongLong(); });
}

void addParseDouble(const std::string& number, std::size_t digits)
{
    const Text text(number);
    add("parse a double, digits", "library", digits, [text] { return text.own.ToDouble(); });
    add("parse a double, digits", "strtod", digits, [text] { return std::strtod(text.plain.c_str(), nullptr); });
    add("parse a double, digits", "from_chars", digits, [text] {
        double result = 0;
        std::from_chars(text.plain.data(), text.plain.data() + text.plain.size(), result);
        return result;
    });
    add("parse a double, digits", "Abseil", digits, [text] {
        double result = 0;
        return absl::SimpleAtod(text.plain, &result) ? result : 0;
    });
    add("parse a double, digits", "QByteArray", digits, [text] { return text.bytes.toDouble(); });
}

// What a new text of the digits that std::to_chars writes costs.
template <typename... Options> Imposed imposed(Options... options)
{
    char digits[64];
    const char* const end = std::to_chars(digits, digits + sizeof digits, options...).ptr;
    return Imposed({std::string_view(digits, static_cast<std::size_t>(end - digits))});
}

template <typename Number> void addNumber(const std::string& operation, Number number)
{
    const std::size_t digits = std::to_string(number).size();
    add(operation, "library", digits, [number] { return String::Number(number); });
    add(operation, IMPOSED, digits, [number] { return imposed(number); });
    add(operation, "std", digits, [number] { return std::to_string(number); });
    add(operation, "fmt", digits, [number] { return fmt::to_string(number); });
    add(operation, "Abseil", digits, [number] { return absl::StrCat(number); });
    add(operation, "QByteArray", digits, [number] { return QByteArray::number(number); });
    add(operation, "QString", digits, [number] { return QString::number(number); });
}

void addHexadecimal()
{
    const unsigned number = 0x1A2B3C4D;
    const std::string operation = "base 16 to text, digits";
    add(operation, "library", 8, [number] { return String::Number(number, 16); });
    add(operation, IMPOSED, 8, [number] { return imposed(number, 16); });
    add(operation, "fmt", 8, [number] { return fmt::format("{:X}", number); });
    add(operation, "Abseil", 8, [number] { return absl::StrCat(absl::Hex(number)); });
    add(operation, "QByteArray", 8, [number] { return QByteArray::number(number, 16); });
}

void addDouble(double number, int precision, std::size_t digits)
{
    const std::string operation = "a double to text, digits";
    add(operation, "library", digits, [=] { return String::Number(number, static_cast<unsigned>(precision)); });
    add(operation, IMPOSED, digits, [=] { return imposed(number, std::chars_format::fixed, precision); });
    add(operation, "to_chars", digits, [=] {
        char text[64];
        return std::string(
            text, std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, precision).ptr);
    });
    add(operation, "fmt", digits, [=] { return fmt::format("{:.{}f}", number, precision); });
    add(operation, "Abseil", digits, [=] { return absl::StrFormat("%.*f", precision, number); });
    add(operation, "QByteArray", digits, [=] { return QByteArray::number(number, 'f', precision); });
}

}  // namespace

void addNumbers()
{
    addParse("123");
    addParse("1234567890");
    addParseOthers();
    addParseDouble("3.25", 3);
    addParseDouble("-12345.678901234567e-12", 17);
    addNumber("an int to text, digits", 123);
    addNumber("an int to text, digits", 1234567890);
    addNumber("64 bits to text, digits", 1234567890123456789LL);
    addHexadecimal();
    addDouble(1.25, 2, 3);
    addDouble(12345.678, 3, 8);
}

}  // namespace bench
