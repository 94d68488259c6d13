// Searching and comparing: all of the text is looked at, and nothing, or something at its far end, is found.

#include "bench/compare.h"

#include <absl/strings/ascii.h>
#include <absl/strings/match.h>

#include <cstring>

namespace bench {

namespace {

void addFind(std::size_t n)
{
    const Text text(n);
    add("find a character", "library", n, [text] { return text.own.Find('#').valid(); });
    add("find a character", "std", n, [text] { return text.plain.find('#'); });
    add("find a character", "QByteArray", n, [text] { return text.bytes.indexOf('#'); });
    add("find a character", "QString", n, [text] { return text.wide.indexOf(QLatin1Char('#')); });

    add("find a character, any case", "library", n, [text] { return text.own.Find('#', 0, false).valid(); });
    add("find a character, any case", "QString", n,
        [text] { return text.wide.indexOf(QLatin1Char('#'), 0, Qt::CaseInsensitive); });
    add("find a character, any case", "std", n, [text] {
        std::size_t at = 0;
        while (at < text.plain.size() && absl::ascii_tolower(static_cast<unsigned char>(text.plain[at])) != '#')
            ++at;
        return at;
    });

    add("find a character backwards", "library", n, [text] { return text.own.FindRev('#').valid(); });
    add("find a character backwards", "std", n, [text] { return text.plain.rfind('#'); });
    add("find a character backwards", "QByteArray", n, [text] { return text.bytes.lastIndexOf('#'); });
    add("find a character backwards", "QString", n, [text] { return text.wide.lastIndexOf(QLatin1Char('#')); });
    add("find a character backwards", "GLib", n, [text] { return std::strrchr(text.plain.c_str(), '#'); });

    add("find a character backwards, any case", "library", n,
        [text] { return text.own.FindRev('#', checked_uint(), false).valid(); });
    add("find a character backwards, any case", "QString", n,
        [text] { return text.wide.lastIndexOf(QLatin1Char('#'), -1, Qt::CaseInsensitive); });

    add("find a text", "library", n, [text] { return text.own.Find("needle").valid(); });
    add("find a text", "std", n, [text] { return text.plain.find("needle"); });
    add("find a text", "QByteArray", n, [text] { return text.bytes.indexOf("needle"); });
    add("find a text", "QString", n, [text] { return text.wide.indexOf(QLatin1String("needle")); });
    add("find a text", "GLib", n,
        [text] { return g_strstr_len(text.plain.c_str(), static_cast<gssize>(text.plain.size()), "needle"); });

    add("find a text, any case", "library", n, [text] { return text.own.Find("Needle", 0, false).valid(); });
    add("find a text, any case", "QString", n,
        [text] { return text.wide.indexOf(QLatin1String("Needle"), 0, Qt::CaseInsensitive); });
    add("find a text, any case", "Abseil", n, [text] { return absl::AsciiStrToLower(text.plain).find("needle"); });
    add("find a text, any case", "QByteArray", n, [text] { return text.bytes.toLower().indexOf("needle"); });
}

void addCompare(std::size_t n)
{
    const Text a(n);
    const Text b(a.plain);
    add("compare equal texts", "library", n, [a, b] { return a.own == b.own; });
    add("compare equal texts", "std", n, [a, b] { return a.plain == b.plain; });
    add("compare equal texts", "QByteArray", n, [a, b] { return a.bytes == b.bytes; });
    add("compare equal texts", "QString", n, [a, b] { return a.wide == b.wide; });
    add("compare equal texts", "GLib", n, [a, b] { return g_str_equal(a.plain.c_str(), b.plain.c_str()); });

    add("order equal texts", "library", n, [a, b] { return a.own < b.own; });
    add("order equal texts", "std", n, [a, b] { return a.plain < b.plain; });
    add("order equal texts", "QByteArray", n, [a, b] { return a.bytes < b.bytes; });

    const std::string half = a.plain.substr(0, n / 2);
    const Text head(half);
    add("begins with", "library", n, [a, head] { return a.own.BeginsWith(head.own); });
    add("begins with", "Abseil", n, [a, head] { return absl::StartsWith(a.plain, head.plain); });
    add("begins with", "QByteArray", n, [a, head] { return a.bytes.startsWith(head.bytes); });
    add("begins with", "QString", n, [a, head] { return a.wide.startsWith(head.wide); });
    add("begins with", "GLib", n, [a, head] { return g_str_has_prefix(a.plain.c_str(), head.plain.c_str()); });

    const Text tail(a.plain.substr(n / 2));
    add("ends with", "library", n, [a, tail] { return a.own.EndsWith(tail.own); });
    add("ends with", "Abseil", n, [a, tail] { return absl::EndsWith(a.plain, tail.plain); });
    add("ends with", "QByteArray", n, [a, tail] { return a.bytes.endsWith(tail.bytes); });
    add("ends with", "GLib", n, [a, tail] { return g_str_has_suffix(a.plain.c_str(), tail.plain.c_str()); });

    add("begins with, any case", "library", n, [a, head] { return a.own.BeginsWith(head.own, false); });
    add("begins with, any case", "Abseil", n, [a, head] { return absl::StartsWithIgnoreCase(a.plain, head.plain); });
    add("begins with, any case", "QString", n, [a, head] { return a.wide.startsWith(head.wide, Qt::CaseInsensitive); });
}

}  // namespace

void addScans()
{
    for (const std::size_t n : LENGTHS) {
        addFind(n);
        addCompare(n);
    }
}

}  // namespace bench
