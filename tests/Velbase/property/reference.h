// The text library a second time, as a model to test it against: each operation in the plainest form that follows its
// definition step by step, byte by byte and piece by piece, with no thought for speed and nothing of the library in it.
//
// A text of the model is a pointer to its buffer, null for a null string. Equal pointers are one shared buffer, so that
// the model also says which results share and which have a buffer of their own.

#ifndef TESTS_VELBASE_PROPERTY_REFERENCE_H
#define TESTS_VELBASE_PROPERTY_REFERENCE_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace reference {

typedef std::shared_ptr<std::string> Text;

/// A position that was found, a count that is given.
typedef std::optional<std::uint32_t> Position;

// ---- Texts

/// `bytes` in a new buffer.
Text newText(const std::string& bytes);

/// The bytes of `text`, none for a null one.
std::string bytes(const Text& text);

/// The bytes of `text` up to its first zero byte.
std::string cString(const Text& text);

/// The bytes up to the zero byte, at most `maxLength` of them; null for a null pointer.
Text fromCString(const char* text, std::uint32_t maxLength = 0xFFFFFFFF);

std::uint32_t length(const Text& text);

/// The byte at `index`, 0 past the end.
char at(const Text& text, std::uint32_t index);

// ---- Characters

bool isSpace(char c);
bool isDigit(char c);
char toLower(char c);
char toUpper(char c);

// ---- Comparison and search

/// Less than, equal to or greater than 0, as the C strings `a` and `b` compare with their bytes read as unsigned.
int compare(const std::string& a, const std::string& b);

Position find(const Text& text, char c, std::uint32_t from, bool caseSensitive);
Position find(const Text& text, const std::string& needle, std::uint32_t from, bool caseSensitive);
Position findRev(const Text& text, char c, const Position& from, bool caseSensitive);
bool beginsWith(const Text& text, const Text& other, bool caseSensitive);
bool endsWith(const Text& text, const Text& other, bool caseSensitive);

// ---- Pieces

Text left(const Text& text, std::uint32_t count);
Text right(const Text& text, std::uint32_t count);
Text mid(const Text& text, std::uint32_t start, const Position& count = Position());

// ---- Changes: what the text becomes. The same pointer when it keeps its buffer.

Text append(const Text& text, const Text& tail);
Text insert(const Text& text, std::uint32_t position, const Text& inserted);
Text remove(const Text& text, std::uint32_t start, const Position& count);
Text truncate(const Text& text, std::uint32_t length);
Text detachAndExtend(const Text& text, std::uint32_t index);

/// In place if `text` is the only pointer to its buffer and has such a position.
Text write(const Text& text, std::uint32_t index, char c);

// ---- Changed copies

Text replace(const Text& text, const Text& pattern, const Text& replacement);
Text replaceChar(const Text& text, char from, char to);
Text toUpper(const Text& text);
Text toLower(const Text& text);
Text stripWhiteSpace(const Text& text);
Text simplifyWhiteSpace(const Text& text);

// ---- Lists

std::vector<Text> split(const Text& text, char separator);
Text join(const Text& separator, const std::vector<Text>& parts);

// ---- Numbers from text

bool checkCharInBase(char c, std::uint32_t base);

/// The number that the whole text is, for an unsigned type of 16, 32 or 64 bits; no value if it is none.
std::optional<std::uint64_t> parseUnsigned(const Text& text, std::uint32_t base, unsigned bits);

/// The same for a signed type.
std::optional<std::int64_t> parseSigned(const Text& text, std::uint32_t base, unsigned bits);

/// The same for a double, in a locale whose decimal point is ".".
std::optional<double> parseDouble(const Text& text);

// ---- Text from numbers

/// The digits of `n` in `base`, which counts as 10 outside 2 to 36.
std::string formatUnsigned(std::uint64_t n, std::uint32_t base);

/// "-" if `n` is negative and the digits of its magnitude.
std::string formatSigned(std::int64_t n, std::uint32_t base);

/// Base 16, or decimal in every other base.
std::string formatUnsigned64(std::uint64_t n, std::uint32_t base);
std::string formatSigned64(std::int64_t n, std::uint32_t base);

std::string formatFloat(double value, const Position& precision, char format);

// ---- Templates

Text arg(const Text& text, const Text& a);

/// What is filled in for an integer of at most 32 bits, or a long: as formatSigned, but for base 16.
std::string argument(std::int64_t n, std::uint32_t base);

}  // namespace reference

#endif
