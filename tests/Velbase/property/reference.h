// The text library a second time, as a model to test it against: each operation in the plainest form that follows its
// definition step by step, byte by byte and piece by piece, with no thought for speed and nothing of the library in it.
//
// A text of the model is a pointer to its buffer, null for a null string. Equal pointers are one shared buffer, so that
// the model also says which results share and which have a buffer of their own.

#ifndef TESTS_VELBASE_PROPERTY_REFERENCE_H
#define TESTS_VELBASE_PROPERTY_REFERENCE_H

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace reference {

typedef std::shared_ptr<std::string> Text;

/// A position that was found, a count that is given.
typedef std::optional<std::uint32_t> Position;

// ---- Texts

/// `bytes` in a new buffer.
inline Text newText(const std::string& bytes)
{
    return std::make_shared<std::string>(bytes);
}

/// The bytes of `text`, none for a null one.
inline const std::string& bytes(const Text& text)
{
    static const std::string none;
    return text == nullptr ? none : *text;
}

/// The bytes of `text` up to its first zero byte.
inline std::string cString(const Text& text)
{
    return bytes(text).c_str();
}

/// The bytes up to the zero byte, at most `maxLength` of them; null for a null pointer.
inline Text fromCString(const char* text, std::uint32_t maxLength = 0xFFFFFFFF)
{
    return text == nullptr ? nullptr : newText(std::string(text, strnlen(text, maxLength)));
}

inline std::uint32_t length(const Text& text)
{
    return text == nullptr ? 0 : static_cast<std::uint32_t>(text->size());
}

/// The byte at `index`, 0 past the end.
inline char at(const Text& text, std::uint32_t index)
{
    return index < length(text) ? (*text)[index] : '\0';
}

// ---- Characters

inline int unsignedByte(char c)
{
    return static_cast<unsigned char>(c);
}

inline bool isSpace(char c)
{
    const int code = unsignedByte(c);
    return (code >= 0x09 && code <= 0x0D) || code == 0x20 || code == 0xA0;
}

inline bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

inline char lowerOf(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
}

inline char upperOf(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
}

inline std::string mapped(std::string text, char (*map)(char))
{
    std::transform(text.begin(), text.end(), text.begin(), map);
    return text;
}

// ---- Pieces

inline Text left(const Text& text, std::uint32_t count)
{
    return text == nullptr ? nullptr : newText(text->substr(0, count));
}

inline Text right(const Text& text, std::uint32_t count)
{
    return text == nullptr ? nullptr : newText(text->substr(length(text) - std::min(count, length(text))));
}

inline Text mid(const Text& text, std::uint32_t start, const Position& count = Position())
{
    return start >= length(text) ? nullptr : newText(text->substr(start, count.value_or(length(text))));
}

// ---- Changes: what the text becomes. The same pointer when it keeps its buffer.

inline Text append(const Text& text, const Text& tail)
{
    if (length(tail) == 0)
        return text;
    if (length(text) == 0)
        return tail;
    return newText(*text + *tail);
}

inline Text insert(const Text& text, std::uint32_t position, const Text& inserted)
{
    return append(append(left(text, position), inserted), mid(text, position));
}

inline Text remove(const Text& text, std::uint32_t start, const Position& count)
{
    const std::uint32_t removed = count.value_or(length(text));
    if (start >= length(text) || removed == 0)
        return text;
    const std::uint32_t end = start + removed;
    if (end < length(text))
        return append(left(text, start), right(text, length(text) - end));
    return left(text, start);
}

inline Text truncate(const Text& text, std::uint32_t newLength)
{
    return newLength >= length(text) ? text : left(text, newLength);
}

inline Text detachAndExtend(const Text& text, std::uint32_t index)
{
    std::string extended = bytes(text);
    if (index >= extended.size())
        extended.resize(index + std::size_t(1), '\0');
    return newText(extended);
}

/// In place if `text` is the only pointer to its buffer and has such a position.
inline Text write(const Text& text, std::uint32_t index, char c)
{
    const bool inPlace = text.use_count() == 1 && index < length(text);
    const Text written = inPlace ? text : detachAndExtend(text, index);
    (*written)[index] = c;
    return written;
}

// ---- Comparison and search

/// Less than, equal to or greater than 0, as the C strings `a` and `b` compare, with their bytes read as unsigned.
inline int compare(const std::string& a, const std::string& b)
{
    return std::strcmp(a.c_str(), b.c_str());
}

/// What std::string found.
inline Position positionOf(std::size_t hit)
{
    return hit == std::string::npos ? Position() : Position(static_cast<std::uint32_t>(hit));
}

inline Position find(const Text& text, char c, std::uint32_t from, bool caseSensitive)
{
    return positionOf(caseSensitive ? bytes(text).find(c, from) : mapped(bytes(text), lowerOf).find(lowerOf(c), from));
}

inline Position find(const Text& text, const std::string& needle, std::uint32_t from, bool caseSensitive)
{
    if (from >= length(text))
        return std::nullopt;
    // The lowered copy ends at the text's first zero byte; from there on there is nothing to find but an empty needle.
    const std::string searched = caseSensitive ? *text : mapped(cString(text), lowerOf);
    const std::string rest = from < searched.size() ? searched.substr(from).c_str() : std::string();
    const std::string sought = caseSensitive ? needle.c_str() : mapped(needle.c_str(), lowerOf);
    const Position hit = positionOf(rest.find(sought));
    return hit ? Position(from + *hit) : hit;
}

inline Position findRev(const Text& text, char c, const Position& from, bool caseSensitive)
{
    if (from && *from >= length(text))
        return std::nullopt;
    const std::size_t start = from ? *from : std::string::npos;
    // As a text: the C++ library's rfind() of a character was compiled for PowerPC's own, whatever sign this has here.
    const std::string sought(1, caseSensitive ? c : lowerOf(c));
    return positionOf((caseSensitive ? bytes(text) : mapped(bytes(text), lowerOf)).rfind(sought, start));
}

// ---- Changed copies

inline Text replace(const Text& text, const Text& pattern, const Text& replacement)
{
    if (text == nullptr)
        return nullptr;
    if (text->empty())
        return newText("");
    if (length(pattern) == 0)
        return text;
    Text result;
    std::uint32_t i = 0;
    while (i < length(text)) {
        // For a pattern longer than the text and one more, this bound wraps and every position is tried.
        const bool tried = i < length(text) - length(pattern) + 1;
        if (tried && compare(bytes(mid(text, i, length(pattern))), bytes(pattern)) == 0) {
            result = append(result, replacement);
            i += length(pattern);
        } else {
            result = append(result, newText(std::string(1, (*text)[i])));
            ++i;
        }
    }
    return result;
}

inline Text replaceChar(const Text& text, char from, char to)
{
    std::string result = cString(text);
    std::replace(result.begin(), result.end(), from, to);
    return newText(result);
}

inline Text toUpper(const Text& text)
{
    return length(text) == 0 ? text : newText(mapped(cString(text), upperOf));
}

inline Text toLower(const Text& text)
{
    return text == nullptr ? nullptr : newText(mapped(cString(text), lowerOf));
}

inline Text stripWhiteSpace(const Text& text)
{
    if (length(text) == 0 || (!isSpace(text->front()) && !isSpace(text->back())))
        return text;
    const auto begin = std::find_if_not(text->begin(), text->end(), isSpace);
    const auto end = std::find_if_not(text->rbegin(), std::make_reverse_iterator(begin), isSpace).base();
    return newText(std::string(begin, end));
}

inline Text simplifyWhiteSpace(const Text& text)
{
    if (length(text) == 0)
        return text;
    std::istringstream words(mapped(*text, [](char c) { return isSpace(c) ? ' ' : c; }));
    std::string simplified;
    for (std::string word; words >> word;)
        simplified += (simplified.empty() ? "" : " ") + word;
    return newText(simplified);
}

// ---- What a text begins and ends with

inline bool isPiece(const Text& piece, const Text& other, bool caseSensitive)
{
    return caseSensitive ? cString(piece) == cString(other) : cString(toLower(piece)) == cString(toLower(other));
}

inline bool beginsWith(const Text& text, const Text& other, bool caseSensitive)
{
    return length(text) >= length(other) && isPiece(left(text, length(other)), other, caseSensitive);
}

inline bool endsWith(const Text& text, const Text& other, bool caseSensitive)
{
    return length(text) >= length(other) && isPiece(right(text, length(other)), other, caseSensitive);
}

// ---- Lists

inline std::vector<Text> split(const Text& text, char separator)
{
    std::vector<Text> fields;
    std::uint32_t start = 0;
    for (Position p; (p = find(text, separator, start, true)); start = *p + 1)
        fields.push_back(mid(text, start, *p - start));
    fields.push_back(fields.empty() ? text : mid(text, start));
    return fields;
}

inline Text join(const Text& separator, const std::vector<Text>& parts)
{
    Text result;
    for (std::size_t i = 0; i < parts.size(); ++i)
        result = append(i == 0 ? result : append(result, separator), parts[i]);
    return result;
}

// ---- Numbers from text

/// The low 8 bits, read as a signed number.
inline int signedByte(std::uint32_t word)
{
    return static_cast<signed char>(word);
}

inline bool checkCharInBase(char c, std::uint32_t base)
{
    if (base <= 10)
        return isDigit(c) && static_cast<std::uint32_t>(c - '0') < base;
    if (isDigit(c))
        return true;
    const int code = signedByte(static_cast<std::uint32_t>(unsignedByte(c)));
    const int lowerLimit = signedByte(base + 87);
    const int upperLimit = signedByte(base + 55);
    if (code >= 0x61)
        return code < lowerLimit || code < upperLimit;
    return code >= 0x41 && code < upperLimit;
}

/// The value of a character that checkCharInBase accepts.
inline std::uint32_t digitValue(char c)
{
    const int code = signedByte(static_cast<std::uint32_t>(unsignedByte(c)));
    if (isDigit(c))
        return static_cast<std::uint32_t>(code - 48);
    return static_cast<std::uint32_t>(code >= 97 && code <= 122 ? code - 87 : code - 55);
}

inline std::uint64_t largest(unsigned bits)
{
    return bits == 64 ? UINT64_MAX : (UINT64_C(1) << bits) - 1;
}

/// The digits from `position` on, which is moved behind them; no value when they are too many for `bits` bits.
inline std::optional<std::uint64_t> scan(
    const std::string& text, std::size_t& position, std::uint32_t base, unsigned bits)
{
    const std::uint64_t limit = largest(bits) / base;
    const std::uint64_t last = largest(bits) % base;
    std::uint64_t accumulator = 0;
    while (position < text.size() && checkCharInBase(text[position], base)) {
        const std::uint32_t digit = digitValue(text[position]);
        if (accumulator > limit || (accumulator == limit && digit > last))
            return std::nullopt;
        // In bases above 36 a digit can be larger than the base, and the sum too large for the type: it wraps.
        accumulator = (accumulator * base + digit) & largest(bits);
        ++position;
    }
    return accumulator;
}

inline void skipSpace(const std::string& text, std::size_t& position)
{
    while (position < text.size() && isSpace(text[position]))
        ++position;
}

/// White space, one of `signs`, digits, white space; the sign that was there in `*sign`.
inline std::optional<std::uint64_t> parse(
    const Text& text, std::uint32_t base, unsigned bits, const std::string& signs, char* sign)
{
    const std::string& all = bytes(text);
    std::size_t position = 0;
    skipSpace(all, position);
    *sign = '+';
    if (position < all.size() && signs.find(all[position]) != std::string::npos)
        *sign = all[position++];
    if (position == all.size() || !checkCharInBase(all[position], base))
        return std::nullopt;
    const std::optional<std::uint64_t> magnitude = scan(all, position, base, bits);
    skipSpace(all, position);
    return position == all.size() ? magnitude : std::nullopt;
}

/// The number that the whole text is, for an unsigned type of 16, 32 or 64 bits; no value if it is none.
inline std::optional<std::uint64_t> parseUnsigned(const Text& text, std::uint32_t base, unsigned bits)
{
    char sign;
    return parse(text, base, bits, "+", &sign);
}

/// The same for a signed type.
inline std::optional<std::int64_t> parseSigned(const Text& text, std::uint32_t base, unsigned bits)
{
    char sign;
    const std::optional<std::uint64_t> magnitude = parse(text, base, bits, "+-", &sign);
    // The largest magnitude that each sign allows is made in 32 bits, whatever the type's width.
    const std::uint64_t positiveLimit = bits == 16 ? 32767 : bits == 32 ? 2147483647 : 4294967295;
    const std::uint64_t negativeLimit = bits == 16 ? 4294934528 : bits == 32 ? 2147483648 : 0;
    if (!magnitude || *magnitude > (sign == '-' ? negativeLimit : positiveLimit))
        return std::nullopt;
    // The 32 bits, or the 16 that are kept of them, of the number or its negative, read as signed.
    const std::uint64_t modulus = bits == 16 ? UINT64_C(1) << 16 : UINT64_C(1) << 32;
    const std::uint64_t kept = (sign == '-' ? modulus - *magnitude : *magnitude) % modulus;
    return static_cast<std::int64_t>(kept) - static_cast<std::int64_t>(kept < modulus / 2 ? 0 : modulus);
}

/// The same for a double, with "." or "," or the current locale's decimal point, of which only the first byte is put.
inline std::optional<double> parseDouble(const Text& text)
{
    const char point = *std::localeconv()->decimal_point;
    const std::string number = cString(replaceChar(replaceChar(stripWhiteSpace(text), ',', point), '.', point));
    char* end = nullptr;
    const double value = std::strtod(number.c_str(), &end);
    if (length(text) == 0 || end - number.c_str() != static_cast<std::ptrdiff_t>(length(text)))
        return std::nullopt;
    return value;
}

// ---- Text from numbers

/// The digits of `n` in `base`, which counts as 10 outside 2 to 36.
inline std::string formatUnsigned(std::uint64_t n, std::uint32_t base)
{
    const std::uint32_t used = base < 2 || base > 36 ? 10 : base;
    std::string digits;
    do {
        digits.insert(digits.begin(), "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[n % used]);
        n /= used;
    } while (n != 0);
    return digits;
}

/// "-" if `n` is negative and the digits of its magnitude.
inline std::string formatSigned(std::int64_t n, std::uint32_t base)
{
    const std::uint64_t sameBits = static_cast<std::uint64_t>(n);
    return n < 0 ? "-" + formatUnsigned(0 - sameBits, base) : formatUnsigned(sameBits, base);
}

/// Base 16, or decimal in every other base.
inline std::string formatUnsigned64(std::uint64_t n, std::uint32_t base)
{
    return formatUnsigned(n, base == 16 ? 16 : 10);
}

inline std::string formatSigned64(std::int64_t n, std::uint32_t base)
{
    return base == 16 ? formatUnsigned(static_cast<std::uint64_t>(n), 16) : formatSigned(n, 10);
}

inline std::string formatFloat(double value, const Position& precision, char format)
{
    const char conversion = std::string("fFeEgG").find(format) == std::string::npos ? 'f' : format;
    std::string whole = "%";
    if (precision)
        whole += "." + std::to_string(std::min<std::uint32_t>(*precision, 99));
    whole += conversion;
    char text[1024];
    std::snprintf(text, sizeof text, whole.c_str(), value);
    return text;
}

// ---- Templates

inline Text arg(const Text& text, const Text& a)
{
    for (char number = '0'; number <= '9'; ++number) {
        const std::size_t place = bytes(text).find(std::string("%") + number);
        if (place == std::string::npos)
            continue;
        const std::uint32_t p = static_cast<std::uint32_t>(place);
        return append(append(left(text, p), a), mid(text, p + 2));
    }
    return append(text, a);
}

/// What is filled in for an integer of at most 32 bits, or a long: as formatSigned, but for base 16.
inline std::string argument(std::int64_t n, std::uint32_t base)
{
    if (base != 16)
        return formatSigned(n, base);
    const bool fits32Bits = n >= INT32_MIN && n <= INT32_MAX;
    return formatUnsigned(fits32Bits ? static_cast<std::uint32_t>(n) : static_cast<std::uint64_t>(n), 16);
}

}  // namespace reference

#endif
