// To and from UTF-16, zero-terminated. Qt converts Latin-1 here, which is easier than Mac OS Roman: each byte is its
// own code point.

#include "bench/compare.h"

#include <vector>

namespace bench {

namespace {

void addConversions(const std::string& kind, const Text& text)
{
    const std::size_t n = text.plain.size();
    add("to UTF-16, " + kind, "library", n, [text] { return text.own.Unicode()[0]; });
    add("to UTF-16, " + kind, "QString", n, [text] { return QString::fromLatin1(text.plain.c_str()); });
    add("to UTF-16, " + kind, "GLib", n, [text] {
        gsize written = 0;
        return GAllocated(g_convert(text.plain.data(), static_cast<gssize>(text.plain.size()), "UTF-16LE", "MACINTOSH",
                              nullptr, &written, nullptr))
            .text[0];
    });

    const shared_array<unsigned short> units = text.own.Unicode();
    add("from UTF-16, " + kind, "library", n, [units] { return String(&units[0]); });
    add("from UTF-16, " + kind, "QString", n,
        [units] { return QString::fromUtf16(reinterpret_cast<const char16_t*>(&units[0])).toLatin1(); });
    add("from UTF-16, " + kind, "GLib", n, [units, n] {
        gsize written = 0;
        return GAllocated(g_convert(reinterpret_cast<const char*>(&units[0]), static_cast<gssize>(2 * n), "MACINTOSH",
                              "UTF-16LE", nullptr, &written, nullptr))
            .text[0];
    });
}

// As ASCII, but every fourth byte is a letter with an accent.
Text accented(std::size_t length)
{
    std::string text = Text(length).plain;
    for (std::size_t i = 0; i < text.size(); i += 4)
        text[i] = static_cast<char>(0x8E);
    return Text(text);
}

}  // namespace

void addUnicode()
{
    for (const std::size_t n : {std::size_t{40}, 16 * KIB}) {
        addConversions("ASCII", Text(n));
        addConversions("accented", accented(n));
    }
}

}  // namespace bench
