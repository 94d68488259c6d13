// String, the library's text value: 8-bit text in a buffer that copies share, so that passing and returning a text
// costs one increment.
//
// Null and empty. A string is null (it has no buffer), empty (a buffer of length 0) or non-empty, and each operation
// says which it gives. Both null and empty have Length() 0 and Latin1() "" and compare equal. Unless an operation says
// otherwise, it treats a null string as an empty one.
//
// Sharing. No operation changes a text that another string shares. "A new buffer" below is one of the result's own;
// where a result shares a buffer, its operation says so. Any argument may be the string itself, or an element of the
// list that is being filled.
//
// Text. Bytes, without an encoding (only the UTF-16 members have one: Mac OS Roman). Positions are bytes from 0.
// Letters are folded and mapped in ASCII only. Zero bytes inside the text are kept by the operations that work by
// length and end the text for those that work on C strings: comparisons, searches for a text, case mapping, ReplaceChar
// and the UTF-16 members. So they are not supported, but never read past.
//
// Failure. Positions out of range give what each operation says, never an error. Whatever allocates may throw
// std::bad_alloc, leaving every string and list as it was; a text of more than 4294967295 bytes counts as such a
// failure.
//
// Cost. A text is two heap blocks: its buffer, of 5 bytes and the characters, and its count, of 4; a null string has
// its count alone. Copying, assigning and destroying allocate nothing. Every change makes a new buffer, so that what is
// put together piece by piece with operator+= takes time in the square of its length: use Join, Arg or Replace for
// that.
//
// Threads. Counts are plain integers: strings that share a buffer must be used from one thread at a time.

#ifndef VELBASE_COMMON_STRING_H
#define VELBASE_COMMON_STRING_H

#include "Velbase/common/common_char.h"
#include "Velbase/common/common_checked_types.h"
#include "Velbase/common/common_smart_ptr.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

class CharRef;

/// A text of 8-bit characters. What holds for all its operations is said at the head of common_string.h.
/// The compiler warns where one is made or returned and not used: what returns a String changes none.
class [[nodiscard]] String {
    // Conditions for the overloads that are deleted below.
    template <typename T, typename U> using if_same = std::enable_if_t<std::is_same_v<T, U>, int>;
    template <typename T, typename U> using if_not_same = std::enable_if_t<!std::is_same_v<T, U>, int>;

public:
    // ---- Making one

    /// A null string.
    String();
    String(std::nullptr_t);

    /// The characters up to the zero byte, in a new buffer; "" gives an empty string, a null pointer a null string.
    String(const char* text);

    /// As above, but at most `maxLength` bytes: 0 gives an empty string. Nothing behind the zero byte is read.
    String(const char* text, unsigned maxLength);

    /// The zero-terminated UTF-16 `text` in Mac OS Roman; a null pointer gives a null string.
    /// So do a text of 100,000 units or more, one with a character that Mac OS Roman does not have, and a failure of
    /// the Text Encoding Converter.
    String(const unsigned short* text);

    /// Shares `other`'s buffer. There is no move: a copy is as cheap.
    String(const String& other) = default;
    String& operator=(const String& other) = default;

    // ---- Asking it

    /// Whether it has no buffer at all.
    bool IsNull() const { return m_text.get() == nullptr; }

    /// Whether it has no characters: Length() is 0.
    bool IsEmpty() const { return Length() == 0; }

    /// The number of bytes; 0 for a null string.
    unsigned Length() const { return IsNull() ? 0 : m_text->length(); }

    /// The zero-terminated text, "" for a null string; never null. It stays the buffer's: valid until the last string
    /// that shares it is changed or destroyed.
    const char* Latin1() const { return IsNull() ? "" : m_text->characters(); }

    /// The text as zero-terminated UTF-16, read as Mac OS Roman up to the first zero byte; "" for a null string.
    /// A null array for a text of 100,000 bytes or more and after a failure of the Text Encoding Converter.
    shared_array<unsigned short> Unicode() const;

    /// The character at `index`; Char() at and past the end.
    Char At(unsigned index) const { return index < Length() ? Char(Latin1()[index]) : Char(); }
    Char operator[](unsigned index) const& { return At(index); }

    /// The character at `index`, to be read or written. Writing gives this string a buffer of its own first if it
    /// shares one, and at or past the end extends it as detachAndExtend does.
    CharRef operator[](unsigned index) &;

    // ---- Searching: the position of what was found, or an invalid number. Nothing is found in a null string, or with
    // `from` at or past the end. Without `caseSensitive`, ASCII letters match in either case.

    /// The first `c` at or after `from`. Allocates nothing.
    checked_uint Find(char c, unsigned from = 0, bool caseSensitive = true) const;
    checked_uint Find(const Char& c, unsigned from = 0, bool caseSensitive = true) const;

    /// The first place at or after `from` where `needle` begins. An empty needle is found at `from`. The text searched
    /// ends at its first zero byte after `from`, or without `caseSensitive` at the first of all. A null pointer counts
    /// as empty without `caseSensitive`, and is not allowed with it. Allocates only without `caseSensitive`.
    checked_uint Find(const char* needle, unsigned from = 0, bool caseSensitive = true) const;
    checked_uint Find(const String& needle, unsigned from = 0, bool caseSensitive = true) const;

    /// `Find(x, false)` would take the false for a position.
    template <typename X, typename Bool, if_same<Bool, bool> = 0>
    checked_uint Find(const X& x, Bool from, bool caseSensitive = true) const = delete;

    /// The last `c` at or before `from`, or in the whole text when that is not given. Allocates nothing.
    checked_uint FindRev(char c, const checked_uint& from = checked_uint(), bool caseSensitive = true) const;
    checked_uint FindRev(const Char& c, const checked_uint& from = checked_uint(), bool caseSensitive = true) const;

    /// Whether Find finds it. So an empty needle is in every text but null and empty ones.
    bool Contains(char c, bool caseSensitive = true) const;
    bool Contains(const Char& c, bool caseSensitive = true) const;
    bool Contains(const char* needle, bool caseSensitive = true) const;
    bool Contains(const String& needle, bool caseSensitive = true) const;

    /// Whether the text starts or ends with `other`, compared as C strings. Null and empty match always.
    /// Allocates only without `caseSensitive`.
    bool BeginsWith(const String& other, bool caseSensitive = true) const;
    bool EndsWith(const String& other, bool caseSensitive = true) const;

    // ---- Cutting pieces: each in a new buffer, and a null string for a null string

    /// The first or last `count` bytes, or all if there are fewer; an empty string for 0.
    String Left(unsigned count) const;
    String Right(unsigned count) const;

    /// The `count` bytes from `start`, or all that follow when `count` is not given or reaches past the end.
    /// A `start` at or past the end gives a null string, of an empty string too; otherwise a `count` of 0 gives an
    /// empty one.
    String Mid(unsigned start, const checked_uint& count = checked_uint()) const;

    // ---- Changing it: the new text is in a new buffer

    /// Appends `tail`. Nothing changes if that is null or empty; a null or empty string takes `tail`'s buffer and
    /// shares it.
    String& operator+=(const String& tail);

    /// Puts `text` before the character at `position`, or at the end if there is none. A null or empty string takes a
    /// non-empty `text`'s buffer and shares it; a null string stays null if there is nothing to insert.
    String& Insert(unsigned position, const String& text);

    /// Takes out `count` bytes from `start`, or all that follow when `count` is not given or reaches past the end.
    /// Nothing changes for a null string, a `start` at or past the end or a `count` of 0; a text that loses all is
    /// empty, not null. start + count is 32-bit arithmetic: where it wraps to an `end` before the length, the text from
    /// `end` on is kept.
    String& Remove(unsigned start, const checked_uint& count = checked_uint());

    /// Keeps the first `length` bytes. Nothing changes for a null string or if there are no more; 0 leaves an empty
    /// string.
    void Truncate(unsigned length);

    /// Gives this string a new buffer of at least `index` + 1 bytes, even if it has one alone: what was there, then
    /// zero bytes. Every position up to `index` can then be written.
    void detachAndExtend(unsigned index);

    // ---- Changed copies

    /// The text with each `pattern`, from left to right without overlap, replaced by `replacement`; pieces are compared
    /// with the pattern as C strings. A null or empty replacement deletes; if nothing is left the result is null. A
    /// null string gives a null one, an empty string an empty one. The result shares this buffer if the pattern is null
    /// or empty, and the replacement's if all of the text was one occurrence. Takes time linear in the text and the
    /// result.
    String Replace(const String& pattern, const String& replacement) const;

    /// The text up to its first zero byte, in a new buffer, with every `from` turned into `to`. A null string gives an
    /// empty one.
    String ReplaceChar(const Char& from, const Char& to) const;

    /// The text up to its first zero byte, in a new buffer, in upper or lower case. A null string gives a null one, and
    /// the upper case of an empty one shares its buffer.
    String ToUpper() const;
    String ToLower() const;

    /// The text without the white space (see Char::IsSpace) around it. Shares this buffer if there is none; a text of
    /// white space alone gives an empty string.
    String StripWhiteSpace() const;

    /// The text without the white space around it, and one space for each run of it inside. A null or empty string is
    /// shared; any other gives a new buffer, and a text of white space alone an empty one.
    String SimplifyWhiteSpace() const;

    // ---- Lists

    /// Replaces the contents of `fields` with the texts between the separators, one more than there are separators.
    /// Fields without text are empty, but the last one is null. Without a separator, the one field shares this buffer.
    void Split(char separator, std::vector<String>& fields) const;

    /// All `parts`, with `separator` between each two. Null if there is no text in them; if all of it comes from one
    /// part or one separator, the result shares that buffer. Takes time linear in the result.
    static String Join(const String& separator, const std::vector<String>& parts);

    // ---- Numbers from text. `*ok` tells whether the whole text was one number; if not, the result is 0. `ok` may be
    // null.

    /// White space, one sign, digits, white space. "-" is for the signed types only. Letters are digits from 10 on, in
    /// either case, and there is no prefix. Allocates nothing. Bases are 2 to 36; 0 and 1 have no digit and the digit 0
    /// alone, larger ones are not refused (see checkCharInBase in common_string_parse.cpp).
    ///
    /// The signed conversions are not alike, and on purpose. ToInt takes exactly the numbers of an int. ToShort takes
    /// -65535 to 32767 and gives the low 16 bits: "-40000" is 25536. ToInt64 takes 0 to 4294967295 and gives them as a
    /// signed 32-bit number: "4294967295" is -1; of the negative numbers it takes "-0" alone.
    short ToShort(bool* ok = nullptr, unsigned base = 10) const;
    unsigned short ToUShort(bool* ok = nullptr, unsigned base = 10) const;
    int ToInt(bool* ok = nullptr, unsigned base = 10) const;
    unsigned ToUInt(bool* ok = nullptr, unsigned base = 10) const;
    long long ToInt64(bool* ok = nullptr, unsigned base = 10) const;
    unsigned long long ToUInt64(bool* ok = nullptr, unsigned base = 10) const;

    /// What strtod reads, in any form that it knows, where "." and "," both are the current locale's decimal point.
    /// White space around the number makes it fail, unlike above. A number beyond a float's range is an infinity, and
    /// ok.
    double ToDouble(bool* ok = nullptr) const;
    float ToFloat(bool* ok = nullptr) const;

    // ---- Text from numbers: never a null string

    /// The digits of `n`, letters in upper case, after "-" if it is negative. A base outside 2 to 36 counts as 10.
    static String Number(int n, unsigned base = 10);
    static String Number(unsigned n, unsigned base = 10);
    static String Number(long n, unsigned base = 10);
    static String Number(unsigned long n, unsigned base = 10);

    /// In base 16 the digits of the 64 bits, without a sign; in every other base, decimal.
    static String Number(long long n, unsigned base = 10);
    static String Number(unsigned long long n, unsigned base = 10);

    /// What printf writes in the current locale for `format`, one of f F e E g G, else f, and `precision`, at most 99.
    /// DEFAULT_PRECISION leaves it to printf.
    static String Number(double value, unsigned precision = DEFAULT_PRECISION, char format = 'f');
    static String Number(float value, unsigned precision = DEFAULT_PRECISION, char format = 'f');

    /// `Number(1.5, 'e')` would take the 'e' for a precision.
    template <typename N, typename C, if_same<C, char> = 0>
    static String Number(N value, C precision, char format = 'f') = delete;

    /// The precision that stands for none.
    static constexpr unsigned DEFAULT_PRECISION = 0xFFFFFFFF;

    // ---- Filling templates

    /// This text with `a` in place of the placeholder of the lowest number, the leftmost of these. A placeholder is "%"
    /// and one digit; there is no way to write a "%" before a digit that is none. Without a placeholder `a` is
    /// appended. `String("%1 of %2").Arg(3).Arg("5")` is "3 of 5". The result shares `a`'s buffer if the text is a
    /// placeholder alone, or null or empty, and `a` is not; and this one if there is no placeholder and `a` is null or
    /// empty.
    String Arg(const String& a) const;
    String Arg(const char* a) const;

    /// Fills in the character, a zero byte too.
    String Arg(char c) const;
    String Arg(const Char& c) const;

    /// Fills in "true" or "false".
    String Arg(bool b) const;

    /// Fills in the text that Number gives, but in base 16 that of the same bits read as unsigned: -1 is "FFFFFFFF".
    /// A long beyond 32 bits keeps all its bits.
    String Arg(int v, unsigned base = 10) const;
    String Arg(long v, unsigned base = 10) const;

    /// Fills in the text that Number gives.
    String Arg(short v, unsigned base = 10) const;
    String Arg(unsigned short v, unsigned base = 10) const;
    String Arg(unsigned v, unsigned base = 10) const;
    String Arg(unsigned long v, unsigned base = 10) const;
    String Arg(long long v, unsigned base = 10) const;
    String Arg(unsigned long long v, unsigned base = 10) const;
    String Arg(double v, unsigned precision = DEFAULT_PRECISION, char format = 'f') const;
    String Arg(float v, unsigned precision = DEFAULT_PRECISION, char format = 'f') const;

    /// As for Number. And a pointer to anything but char would be taken for a truth.
    template <typename N, typename C, if_same<C, char> = 0>
    String Arg(N v, C precision, char format = 'f') const = delete;
    template <typename T, if_not_same<std::remove_const_t<T>, char> = 0> String Arg(T* p) const = delete;

private:
    friend class CharRef;

    // The length, the characters and a zero byte, in one heap block of just that size.
    class Buffer {
    public:
        // With room for `length` characters, to be written, or with a text, or with pieces one behind the other.
        // Throws std::bad_alloc, also for a length beyond 32 bits.
        static std::unique_ptr<Buffer> make(std::uint64_t length);
        static std::unique_ptr<Buffer> make(std::string_view text);
        static std::unique_ptr<Buffer> make(std::initializer_list<std::string_view> pieces);

        Buffer(const Buffer&) = delete;
        Buffer& operator=(const Buffer&) = delete;

        std::uint32_t length() const { return m_length; }
        char* characters() { return reinterpret_cast<char*>(this + 1); }

        // Keeps the first `length` characters, in the same block.
        void truncate(std::uint32_t length);

        // Frees the whole block: the delete that is told a size would be told that of the length alone.
        static void operator delete(void* block) { ::operator delete(block); }

    private:
        explicit Buffer(std::uint32_t length);

        std::uint32_t m_length;
    };

    // Takes over `text`.
    explicit String(std::unique_ptr<Buffer> text)
        : m_text(text.release())
    {
    }

    // The text in lower case, without a count.
    static std::unique_ptr<Buffer> lowered(std::string_view text);

    // The whole text, zero bytes included; "" for a null string.
    std::string_view view() const { return std::string_view(Latin1(), Length()); }

    // This text with `a`, which is not empty, in place of the next placeholder or at its end, in a new buffer.
    String fill(std::string_view a) const;

    // Writes `c` at `index`, in place if the buffer is this string's alone and long enough.
    void write(unsigned index, char c);

    shared_ptr<Buffer> m_text;
};

static_assert(sizeof(String) == 2 * sizeof(void*), "a string is its owner of the text and nothing else");

/// Compare as C strings, bytes as unsigned: zero bytes end the text, null and empty are equal. With a null pointer all
/// three are false. There are no other operators, and none for a const char* on the left: those are deleted, or the
/// language would make them of these, by a String of the pointer, or in C++20 by turning one round.
bool operator==(const String& a, const String& b);
bool operator==(const String& a, const char* b);
bool operator<(const String& a, const String& b);
bool operator<(const String& a, const char* b);
bool operator<=(const String& a, const String& b);
bool operator<=(const String& a, const char* b);
bool operator==(const char* a, const String& b) = delete;
bool operator<(const char* a, const String& b) = delete;
bool operator<=(const char* a, const String& b) = delete;
bool operator!=(const String& a, const String& b) = delete;
bool operator!=(const String& a, const char* b) = delete;
bool operator!=(const char* a, const String& b) = delete;

/// A character of a string that can be read and assigned to, by position. It stays good while the string lives,
/// whatever becomes of the text; at or past the end it reads as Char() and a write extends the text.
class CharRef {
public:
    /// The character at `index` of `str`.
    CharRef(String& str, unsigned index)
        : m_str(str)
        , m_iChar(index)
    {
    }

    /// The same character of the same string.
    CharRef(const CharRef& other) = default;

    /// Write the character, not the reference.
    CharRef& operator=(char c)
    {
        m_str.write(m_iChar, c);
        return *this;
    }
    CharRef& operator=(const Char& c) { return *this = static_cast<char>(c); }
    CharRef& operator=(const CharRef& other) { return *this = other.ToChar(); }

    /// The character; Char() at and past the end.
    operator Char() const { return m_str.At(m_iChar); }
    char ToChar() const { return m_str.At(m_iChar); }

    /// What Char answers for the character.
    Char::Category GetCategory() const { return Char(*this).GetCategory(); }
    bool IsNull() const { return Char(*this).IsNull(); }
    bool IsSpace() const { return Char(*this).IsSpace(); }
    bool IsDigit() const { return Char(*this).IsDigit(); }
    checked_uint GetDigitValue() const { return Char(*this).GetDigitValue(); }
    Char ToLower() const { return Char(*this).ToLower(); }
    Char ToUpper() const { return Char(*this).ToUpper(); }
    bool IsPrintable() const { return Char(*this).IsPrintable(); }
    bool IsPunctuation() const { return Char(*this).IsPunctuation(); }
    bool IsLetter() const { return Char(*this).IsLetter(); }
    bool IsNumber() const { return Char(*this).IsNumber(); }
    bool IsAlphaNumeric() const { return Char(*this).IsAlphaNumeric(); }
    bool IsSymbol() const { return Char(*this).IsSymbol(); }

private:
    String& m_str;
    unsigned m_iChar;
};

inline CharRef String::operator[](unsigned index) &
{
    return CharRef(*this, index);
}

#endif
