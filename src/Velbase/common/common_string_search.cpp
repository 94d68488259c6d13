// Searching for characters and texts.

#include <cassert>
#include <cstring>

#include "Velbase/common/common_string.h"

namespace {

// Finds a byte, or a letter in both cases.
class CharFinder {
public:
    CharFinder(char c, bool caseSensitive)
        : m_ignored(0)
        , m_wanted(unsigned_byte(c))
    {
        const Char folded = Char(c).ToLower();
        if (caseSensitive || folded == folded.ToUpper())
            return;
        // The two cases of a letter differ in this one bit.
        m_ignored = 'a' ^ 'A';
        m_wanted = unsigned_byte(folded);
    }

    // Whether it looks for one byte only, as memchr does.
    bool isExact() const { return m_ignored == 0; }

    bool matches(char c) const { return (unsigned_byte(c) | m_ignored) == m_wanted; }

    // Whether one of the `Length` characters from `block` matches. A loop of fixed length without an exit becomes
    // vector instructions.
    template <unsigned Length> bool matchesIn(const char* block) const
    {
        unsigned char found = 0;
        for (unsigned i = 0; i < Length; ++i)
            found = static_cast<unsigned char>(found | matches(block[i]));
        return found != 0;
    }

private:
    unsigned char m_ignored;
    unsigned char m_wanted;
};

// Where the first `c` is in `length` characters, or null.
const char* findByte(const char* text, char c, std::size_t length)
{
    return static_cast<const char*>(std::memchr(text, c, length));
}

// Where `needle` is in a text of which `rest` begins at position `from`.
checked_uint findText(const char* needle, const char* rest, unsigned from)
{
    const char* const hit = std::strstr(rest, needle);
    return hit == nullptr ? checked_uint() : checked_uint(from + static_cast<unsigned>(hit - rest));
}

}  // namespace

checked_uint String::Find(char c, unsigned from, bool caseSensitive) const
{
    const unsigned length = Length();
    if (from >= length)
        return checked_uint();
    const char* const text = Latin1();
    const CharFinder finder(c, caseSensitive);
    if (finder.isExact()) {
        const char* const hit = findByte(text + from, c, length - from);
        return hit == nullptr ? checked_uint() : checked_uint(static_cast<unsigned>(hit - text));
    }
    unsigned i = from;
    while (length - i >= 64 && !finder.matchesIn<64>(text + i))
        i += 64;
    while (length - i >= 16 && !finder.matchesIn<16>(text + i))
        i += 16;
    while (i < length && !finder.matches(text[i]))
        ++i;
    return i < length ? checked_uint(i) : checked_uint();
}

checked_uint String::Find(const Char& c, unsigned from, bool caseSensitive) const
{
    return Find(static_cast<char>(c), from, caseSensitive);
}

checked_uint String::FindRev(char c, const checked_uint& from, bool caseSensitive) const
{
    const unsigned length = Length();
    const unsigned start = from.valid() ? from.value() : length - 1;
    if (start >= length)
        return checked_uint();
    const char* const text = Latin1();
    const CharFinder finder(c, caseSensitive);
    unsigned end = start + 1;
    if (finder.isExact()) {
        // memchr goes forwards, but nothing is faster in telling where there is nothing, or nothing more.
        for (const unsigned chunk : {1024u, 256u}) {
            const char* hit = nullptr;
            while (end >= chunk && (hit = findByte(text + end - chunk, c, chunk)) == nullptr)
                end -= chunk;
            if (hit != nullptr && findByte(hit + 1, c, static_cast<std::size_t>(text + end - hit - 1)) == nullptr)
                return checked_uint(static_cast<unsigned>(hit - text));
        }
    }
    while (end >= 64 && !finder.matchesIn<64>(text + end - 64))
        end -= 64;
    while (end >= 16 && !finder.matchesIn<16>(text + end - 16))
        end -= 16;
    while (end > 0 && !finder.matches(text[end - 1]))
        --end;
    return end > 0 ? checked_uint(end - 1) : checked_uint();
}

checked_uint String::FindRev(const Char& c, const checked_uint& from, bool caseSensitive) const
{
    return FindRev(static_cast<char>(c), from, caseSensitive);
}

checked_uint String::Find(const char* needle, unsigned from, bool caseSensitive) const
{
    if (from >= Length())
        return checked_uint();
    if (caseSensitive) {
        assert(needle != nullptr);
        return findText(needle, Latin1() + from, from);
    }
    // The lowered copy ends at the first zero byte, which may be before `from`.
    const auto text = lowered(view());
    const char* const rest = from < text->length() ? text->characters() + from : "";
    return findText(lowered(needle == nullptr ? "" : needle)->characters(), rest, from);
}

checked_uint String::Find(const String& needle, unsigned from, bool caseSensitive) const
{
    return Find(needle.Latin1(), from, caseSensitive);
}

bool String::Contains(char c, bool caseSensitive) const
{
    return Find(c, 0, caseSensitive).valid();
}

bool String::Contains(const Char& c, bool caseSensitive) const
{
    return Find(c, 0, caseSensitive).valid();
}

bool String::Contains(const char* needle, bool caseSensitive) const
{
    return Find(needle, 0, caseSensitive).valid();
}

bool String::Contains(const String& needle, bool caseSensitive) const
{
    return Find(needle, 0, caseSensitive).valid();
}
