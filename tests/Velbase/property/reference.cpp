#include "reference.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace reference {

namespace {

const char DIGITS[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// The low 8 bits, read as a signed number.
int signedByte(std::uint32_t word)
{
    const int low = static_cast<int>(word & 0xFF);
    return low < 128 ? low : low - 256;
}

int unsignedByte(char c)
{
    return static_cast<unsigned char>(c);
}

// The value of a character that checkCharInBase accepts.
std::uint32_t digitValue(char c)
{
    const int code = signedByte(static_cast<std::uint32_t>(unsignedByte(c)));
    if (isDigit(c))
        return static_cast<std::uint32_t>(code - 48);
    return static_cast<std::uint32_t>(code >= 97 && code <= 122 ? code - 87 : code - 55);
}

std::uint64_t largest(unsigned bits)
{
    return bits == 64 ? UINT64_MAX : (UINT64_C(1) << bits) - 1;
}

// The digits from `position` on, which is moved behind them; no value when they are too many for `bits` bits.
std::optional<std::uint64_t> scan(const std::string& text, std::size_t& position, std::uint32_t base, unsigned bits)
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

void skipSpace(const std::string& text, std::size_t& position)
{
    while (position < text.size() && isSpace(text[position]))
        ++position;
}

// White space, one of `signs`, digits, white space; the sign that was there in `*sign`.
std::optional<std::uint64_t> parse(
    const Text& text, std::uint32_t base, unsigned bits, const std::string& signs, char* sign)
{
    const std::string all = bytes(text);
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

std::string mapped(std::string text, char (*map)(char))
{
    std::transform(text.begin(), text.end(), text.begin(), map);
    return text;
}

}  // namespace

Text newText(const std::string& bytes)
{
    return std::make_shared<std::string>(bytes);
}

std::string bytes(const Text& text)
{
    return text == nullptr ? std::string() : *text;
}

std::string cString(const Text& text)
{
    return bytes(text).c_str();
}

Text fromCString(const char* text, std::uint32_t maxLength)
{
    if (text == nullptr)
        return nullptr;
    std::string taken;
    while (taken.size() < maxLength && text[taken.size()] != '\0')
        taken += text[taken.size()];
    return newText(taken);
}

std::uint32_t length(const Text& text)
{
    return static_cast<std::uint32_t>(bytes(text).size());
}

char at(const Text& text, std::uint32_t index)
{
    return index < length(text) ? (*text)[index] : '\0';
}

bool isSpace(char c)
{
    const int code = unsignedByte(c);
    return (code >= 0x09 && code <= 0x0D) || code == 0x20 || code == 0xA0;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

char toLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
}

char toUpper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
}

int compare(const std::string& a, const std::string& b)
{
    std::size_t i = 0;
    while (a.c_str()[i] != '\0' && a.c_str()[i] == b.c_str()[i])
        ++i;
    return unsignedByte(a.c_str()[i]) - unsignedByte(b.c_str()[i]);
}

Position find(const Text& text, char c, std::uint32_t from, bool caseSensitive)
{
    for (std::uint32_t i = from; i < length(text); ++i) {
        if (caseSensitive ? (*text)[i] == c : toLower((*text)[i]) == toLower(c))
            return i;
    }
    return std::nullopt;
}

Position find(const Text& text, const std::string& needle, std::uint32_t from, bool caseSensitive)
{
    if (from >= length(text))
        return std::nullopt;
    // The lowered copy ends at the text's first zero byte; from there on there is nothing to find but an empty needle.
    const std::string searched = caseSensitive ? *text : mapped(cString(text), toLower);
    const std::string rest = from < searched.size() ? searched.substr(from).c_str() : std::string();
    const std::string sought = caseSensitive ? needle.c_str() : mapped(needle.c_str(), toLower);
    const std::size_t hit = rest.find(sought);
    if (hit == std::string::npos)
        return std::nullopt;
    return static_cast<std::uint32_t>(from + hit);
}

Position findRev(const Text& text, char c, const Position& from, bool caseSensitive)
{
    if (length(text) == 0)
        return std::nullopt;
    const std::uint32_t start = from.value_or(length(text) - 1);
    if (start >= length(text))
        return std::nullopt;
    for (std::uint32_t i = start + 1; i-- > 0;) {
        if (caseSensitive ? (*text)[i] == c : toLower((*text)[i]) == toLower(c))
            return i;
    }
    return std::nullopt;
}

bool beginsWith(const Text& text, const Text& other, bool caseSensitive)
{
    if (length(text) < length(other))
        return false;
    const Text piece = left(text, length(other));
    if (caseSensitive)
        return compare(bytes(piece), bytes(other)) == 0;
    return compare(bytes(toLower(piece)), bytes(toLower(other))) == 0;
}

bool endsWith(const Text& text, const Text& other, bool caseSensitive)
{
    if (length(text) < length(other))
        return false;
    const Text piece = right(text, length(other));
    if (caseSensitive)
        return compare(bytes(piece), bytes(other)) == 0;
    return compare(bytes(toLower(piece)), bytes(toLower(other))) == 0;
}

Text left(const Text& text, std::uint32_t count)
{
    if (text == nullptr)
        return nullptr;
    return newText(text->substr(0, count));
}

Text right(const Text& text, std::uint32_t count)
{
    if (text == nullptr)
        return nullptr;
    return newText(text->substr(length(text) - std::min(count, length(text))));
}

Text mid(const Text& text, std::uint32_t start, const Position& count)
{
    if (start >= length(text))
        return nullptr;
    return newText(text->substr(start, count.value_or(length(text))));
}

Text append(const Text& text, const Text& tail)
{
    if (length(tail) == 0)
        return text;
    if (length(text) == 0)
        return tail;
    return newText(*text + *tail);
}

Text insert(const Text& text, std::uint32_t position, const Text& inserted)
{
    return append(append(left(text, position), inserted), mid(text, position));
}

Text remove(const Text& text, std::uint32_t start, const Position& count)
{
    const std::uint32_t removed = count.value_or(length(text));
    if (start >= length(text) || removed == 0)
        return text;
    const std::uint32_t end = start + removed;
    if (end < length(text))
        return append(left(text, start), right(text, length(text) - end));
    return left(text, start);
}

Text truncate(const Text& text, std::uint32_t newLength)
{
    return newLength >= length(text) ? text : left(text, newLength);
}

Text detachAndExtend(const Text& text, std::uint32_t index)
{
    std::string extended = bytes(text);
    if (index >= extended.size())
        extended.resize(index + std::size_t(1), '\0');
    return newText(extended);
}

Text write(const Text& text, std::uint32_t index, char c)
{
    const bool inPlace = text.use_count() == 1 && index < length(text);
    const Text written = inPlace ? text : detachAndExtend(text, index);
    (*written)[index] = c;
    return written;
}

Text replace(const Text& text, const Text& pattern, const Text& replacement)
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

Text replaceChar(const Text& text, char from, char to)
{
    std::string result = cString(text);
    for (char& c : result)
        c = c == from ? to : c;
    return newText(result);
}

Text toUpper(const Text& text)
{
    return length(text) == 0 ? text : newText(mapped(cString(text), toUpper));
}

Text toLower(const Text& text)
{
    return text == nullptr ? nullptr : newText(mapped(cString(text), toLower));
}

Text stripWhiteSpace(const Text& text)
{
    if (length(text) == 0 || (!isSpace(text->front()) && !isSpace(text->back())))
        return text;
    std::string stripped = *text;
    while (!stripped.empty() && isSpace(stripped.front()))
        stripped.erase(0, 1);
    while (!stripped.empty() && isSpace(stripped.back()))
        stripped.pop_back();
    return newText(stripped);
}

Text simplifyWhiteSpace(const Text& text)
{
    if (length(text) == 0)
        return text;
    std::string simplified;
    bool spaceIsDue = false;
    for (const char c : *text) {
        if (isSpace(c)) {
            spaceIsDue = !simplified.empty();
            continue;
        }
        if (spaceIsDue)
            simplified += ' ';
        spaceIsDue = false;
        simplified += c;
    }
    return newText(simplified);
}

std::vector<Text> split(const Text& text, char separator)
{
    std::vector<std::uint32_t> separators;
    for (Position p = find(text, separator, 0, true); p; p = find(text, separator, *p + 1, true))
        separators.push_back(*p);
    if (separators.empty())
        return {text};
    std::vector<Text> fields = {left(text, separators.front())};
    for (std::size_t i = 0; i + 1 < separators.size(); ++i)
        fields.push_back(mid(text, separators[i] + 1, separators[i + 1] - separators[i] - 1));
    fields.push_back(mid(text, separators.back() + 1));
    return fields;
}

Text join(const Text& separator, const std::vector<Text>& parts)
{
    Text result;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        result = append(result, parts[i]);
        if (i + 1 < parts.size())
            result = append(result, separator);
    }
    return result;
}

bool checkCharInBase(char c, std::uint32_t base)
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

std::optional<std::uint64_t> parseUnsigned(const Text& text, std::uint32_t base, unsigned bits)
{
    char sign;
    return parse(text, base, bits, "+", &sign);
}

std::optional<std::int64_t> parseSigned(const Text& text, std::uint32_t base, unsigned bits)
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

std::optional<double> parseDouble(const Text& text)
{
    const std::string number = cString(replaceChar(stripWhiteSpace(text), ',', '.'));
    char* end = nullptr;
    const double value = std::strtod(number.c_str(), &end);
    if (length(text) == 0 || end - number.c_str() != static_cast<std::ptrdiff_t>(length(text)))
        return std::nullopt;
    return value;
}

std::string formatUnsigned(std::uint64_t n, std::uint32_t base)
{
    const std::uint32_t used = base < 2 || base > 36 ? 10 : base;
    std::string digits;
    do {
        digits.insert(digits.begin(), DIGITS[n % used]);
        n /= used;
    } while (n != 0);
    return digits;
}

std::string formatSigned(std::int64_t n, std::uint32_t base)
{
    const std::uint64_t sameBits = static_cast<std::uint64_t>(n);
    return n < 0 ? "-" + formatUnsigned(0 - sameBits, base) : formatUnsigned(sameBits, base);
}

std::string formatUnsigned64(std::uint64_t n, std::uint32_t base)
{
    return formatUnsigned(n, base == 16 ? 16 : 10);
}

std::string formatSigned64(std::int64_t n, std::uint32_t base)
{
    return base == 16 ? formatUnsigned(static_cast<std::uint64_t>(n), 16) : formatSigned(n, 10);
}

std::string formatFloat(double value, const Position& precision, char format)
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

Text arg(const Text& text, const Text& a)
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

std::string argument(std::int64_t n, std::uint32_t base)
{
    if (base != 16)
        return formatSigned(n, base);
    const bool fits32Bits = n >= INT32_MIN && n <= INT32_MAX;
    return formatUnsigned(fits32Bits ? static_cast<std::uint32_t>(n) : static_cast<std::uint64_t>(n), 16);
}

}  // namespace reference
