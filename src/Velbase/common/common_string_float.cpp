// Floating-point numbers from text and as text.

#include "Velbase/common/common_string.h"

#include <algorithm>
#include <cfenv>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// What separates the fraction in the current locale.
const char* decimalPoint()
{
    const std::lconv* const conventions = std::localeconv();
    return conventions == nullptr || conventions->decimal_point == nullptr ? "." : conventions->decimal_point;
}

// The text of a number: at most 309 digits before the point and 99 behind it.
struct FloatText {
    char characters[512];
    std::size_t length;

    std::string_view view() const { return std::string_view(characters, length); }
};

#ifdef __cpp_lib_to_chars

// Whether <charconv>, which knows neither locale nor rounding mode, gives here what strtod and snprintf do. It takes a
// third of their time.
bool isPlain()
{
    return std::strcmp(decimalPoint(), ".") == 0 && std::fegetround() == FE_TONEAREST;
}

// Reads all of `text`, if it is a finite number in plain decimals. False for all else that strtod may know.
bool readPlain(std::string_view text, double& value)
{
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stopped == end && std::isfinite(value) && isPlain();
}

// Writes what snprintf does with "%.*" and `conversion`. False where that is for snprintf to know.
bool writePlain(FloatText& text, double value, int precision, char conversion)
{
    if (!std::isfinite(value) || !isPlain())
        return false;
    const char style = Char(conversion).ToLower();
    const std::chars_format format = style == 'e' ? std::chars_format::scientific
        : style == 'g'                            ? std::chars_format::general
                                                  : std::chars_format::fixed;
    char* const end =
        std::to_chars(text.characters, text.characters + sizeof text.characters, value, format, precision).ptr;
    text.length = static_cast<std::size_t>(end - text.characters);
    if (style != conversion)
        std::replace(text.characters, end, 'e', 'E');
    return true;
}

#else

bool readPlain(std::string_view, double&)
{
    return false;
}

bool writePlain(FloatText&, double, int, char)
{
    return false;
}

#endif

FloatText formatFloat(double value, const checked_uint& precision, char format)
{
    const bool isKnown = format != '\0' && std::strchr("fFeEgG", format) != nullptr;
    const char conversion[] = {'%', '.', '*', isKnown ? format : 'f', '\0'};
    const int digits = precision.valid() ? static_cast<int>(std::min(precision.value(), 99u)) : 6;
    FloatText text;
    if (!writePlain(text, value, digits, conversion[3]))
        text.length =
            static_cast<std::size_t>(std::snprintf(text.characters, sizeof text.characters, conversion, digits, value));
    return text;
}

FloatText formatFloat(double value, unsigned precision, char format)
{
    const bool isGiven = precision != String::DEFAULT_PRECISION;
    return formatFloat(value, isGiven ? checked_uint(precision) : checked_uint(), format);
}

}  // namespace

double String::ToDouble(bool* ok) const
{
    // The whole text must be the number: white space around it, which would be left out below, makes it fail, on
    // purpose.
    double value = 0.0;
    bool success = readPlain(view(), value);
    if (!success && !IsEmpty() && !At(0).IsSpace() && !At(Length() - 1).IsSpace()) {
        const char point = *decimalPoint();
        String number = *this;
        for (const char separator : {'.', ','}) {
            if (separator != point && number.Contains(separator))
                number = number.ReplaceChar(separator, point);
        }
        const char* const start = number.Latin1();
        char* end = nullptr;
        value = std::strtod(start, &end);
        success = end != nullptr && static_cast<std::size_t>(end - start) == Length();
    }
    if (ok != nullptr)
        *ok = success;
    return success ? value : 0.0;
}

float String::ToFloat(bool* ok) const
{
    return static_cast<float>(ToDouble(ok));
}

String String::Number(double value, unsigned precision, char format)
{
    return String(Buffer::make(formatFloat(value, precision, format).view()));
}

String String::Number(float value, unsigned precision, char format)
{
    return Number(static_cast<double>(value), precision, format);
}

String String::Arg(double v, unsigned precision, char format) const
{
    return fill(formatFloat(v, precision, format).view());
}

String String::Arg(float v, unsigned precision, char format) const
{
    return Arg(static_cast<double>(v), precision, format);
}
