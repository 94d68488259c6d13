// Searching and comparing: all of the text is looked at, and nothing, or something at its far end, is found.

#include "bench/compare.h"

#include <absl/strings/ascii.h>
#include <absl/strings/match.h>
#include <string.h>
#include <strings.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace bench {

namespace {

void addFind(std::size_t n)
{
    const Text text(n);
    add("find a character", "library", n, [text] { return text.own.Find('#').valid(); });
    add("find a character", "std", n, [text] { return text.plain.find('#'); });
    add("find a character", "QByteArray", n, [text] { return text.bytes.indexOf('#'); });
    add("find a character", "QString", n, [text] { return text.wide.indexOf(QLatin1Char('#')); });

    add("find a letter, any case", "library", n, [text] { return text.own.Find('q', 0, false).valid(); });
    add("find a letter, any case", "QString", n,
        [text] { return text.wide.indexOf(QLatin1Char('q'), 0, Qt::CaseInsensitive); });
    add("find a letter, any case", "std", n, [text] { return std::min(text.plain.find('q'), text.plain.find('Q')); });

    add("find a character backwards", "library", n, [text] { return text.own.FindRev('#').valid(); });
    add("find a character backwards", "std", n, [text] { return text.plain.rfind('#'); });
    add("find a character backwards", "QByteArray", n, [text] { return text.bytes.lastIndexOf('#'); });
    add("find a character backwards", "QString", n, [text] { return text.wide.lastIndexOf(QLatin1Char('#')); });
    add("find a character backwards", "GLib", n, [text] { return std::strrchr(text.plain.c_str(), '#'); });

    add("find a letter backwards, any case", "library", n,
        [text] { return text.own.FindRev('q', checked_uint(), false).valid(); });
    add("find a letter backwards, any case", "QString", n,
        [text] { return text.wide.lastIndexOf(QLatin1Char('q'), -1, Qt::CaseInsensitive); });
    add("find a letter backwards, any case", "GLib", n,
        [text] { return std::max(std::strrchr(text.plain.c_str(), 'q'), std::strrchr(text.plain.c_str(), 'Q')); });

    add("find a text", "library", n, [text] { return text.own.Find("needle").valid(); });
    add("find a text", "std", n, [text] { return text.plain.find("needle"); });
    add("find a text", "QByteArray", n, [text] { return text.bytes.indexOf("needle"); });
    add("find a text", "QString", n, [text] { return text.wide.indexOf(QLatin1String("needle")); });
    add("find a text", "GLib", n,
        [text] { return g_strstr_len(text.plain.c_str(), static_cast<gssize>(text.plain.size()), "needle"); });

    add("find a text, any case", "library", n, [text] { return text.own.Find("Needle", 0, false).valid(); });
    add("find a text, any case", "QString", n,
        [text] { return text.wide.indexOf(QLatin1String("Needle"), 0, Qt::CaseInsensitive); });
    add("find a text, any case", "std", n, [text] { return mapped(text.plain, lowered).find("needle"); });
    add("find a text, any case", "strcasestr", n, [text] { return strcasestr(text.plain.c_str(), "Needle"); });
    add("find a text, any case", "Abseil", n, [text] { return absl::AsciiStrToLower(text.plain).find("needle"); });
    add("find a text, any case", "QByteArray", n, [text] { return text.bytes.toLower().indexOf("needle"); });
}

// The last of a few of them, in the middle of the text.
void addLastCharacter(std::size_t n)
{
    std::string marked = Text(n).plain;
    marked[n / 4] = '#';
    marked[n / 2] = '#';
    const Text text(marked);
    add("last of two characters", "library", n, [text] { return text.own.FindRev('#').value(); });
    add("last of two characters", "std", n, [text] { return text.plain.rfind('#'); });
    add("last of two characters", "QByteArray", n, [text] { return text.bytes.lastIndexOf('#'); });
    add("last of two characters", "QString", n, [text] { return text.wide.lastIndexOf(QLatin1Char('#')); });
    add("last of two characters", "GLib", n, [text] { return std::strrchr(text.plain.c_str(), '#'); });
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
}

// As a text that is searched without case is promised to be: lowered into a copy.
std::unique_ptr<char[]> loweredCopy(std::string_view text)
{
    std::unique_ptr<char[]> copy(new char[text.size() + 1]);
    for (std::size_t i = 0; i < text.size(); ++i)
        copy[i] = lowered(text[i]);
    copy[text.size()] = '\0';
    return copy;
}

bool equalLowered(std::string_view a, std::string_view b)
{
    return std::strcmp(loweredCopy(a).get(), loweredCopy(b).get()) == 0;
}

// The first or last `n` bytes of a text of 1 KiB or twice as many.
void addBeginsAndEnds(std::size_t n)
{
    const Text a(n < KIB ? KIB : 2 * n);
    const Text head(a.plain.substr(0, n));
    add("begins with", "library", n, [a, head] { return a.own.BeginsWith(head.own); });
    add("begins with", "std", n, [a, head, n] { return a.plain.compare(0, n, head.plain) == 0; });
    add("begins with", "Abseil", n, [a, head] { return absl::StartsWith(a.plain, head.plain); });
    add("begins with", "QByteArray", n, [a, head] { return a.bytes.startsWith(head.bytes); });
    add("begins with", "QString", n, [a, head] { return a.wide.startsWith(head.wide); });
    add("begins with", "GLib", n, [a, head] { return g_str_has_prefix(a.plain.c_str(), head.plain.c_str()); });

    const Text tail(a.plain.substr(a.plain.size() - n));
    add("ends with", "library", n, [a, tail] { return a.own.EndsWith(tail.own); });
    add("ends with", "std", n,
        [a, tail, n] { return a.plain.size() >= n && a.plain.compare(a.plain.size() - n, n, tail.plain) == 0; });
    add("ends with", "Abseil", n, [a, tail] { return absl::EndsWith(a.plain, tail.plain); });
    add("ends with", "QByteArray", n, [a, tail] { return a.bytes.endsWith(tail.bytes); });
    add("ends with", "GLib", n, [a, tail] { return g_str_has_suffix(a.plain.c_str(), tail.plain.c_str()); });

    add("begins with, any case", "library", n, [a, head] { return a.own.BeginsWith(head.own, false); });
    add("begins with, any case", IMPOSED, n,
        [a, head, n] { return equalLowered(std::string_view(a.plain).substr(0, n), head.plain); });
    add("begins with, any case", "strncasecmp", n,
        [a, head, n] { return strncasecmp(a.plain.c_str(), head.plain.c_str(), n) == 0; });
    add("begins with, any case", "Abseil", n, [a, head] { return absl::StartsWithIgnoreCase(a.plain, head.plain); });
    add("begins with, any case", "QString", n, [a, head] { return a.wide.startsWith(head.wide, Qt::CaseInsensitive); });

    add("ends with, any case", "library", n, [a, tail] { return a.own.EndsWith(tail.own, false); });
    add("ends with, any case", IMPOSED, n,
        [a, tail, n] { return equalLowered(std::string_view(a.plain).substr(a.plain.size() - n), tail.plain); });
    add("ends with, any case", "strncasecmp", n, [a, tail, n] {
        return a.plain.size() >= n && strncasecmp(a.plain.c_str() + a.plain.size() - n, tail.plain.c_str(), n) == 0;
    });
    add("ends with, any case", "Abseil", n, [a, tail] { return absl::EndsWithIgnoreCase(a.plain, tail.plain); });
    add("ends with, any case", "QString", n, [a, tail] { return a.wide.endsWith(tail.wide, Qt::CaseInsensitive); });
}

}  // namespace

void addScans()
{
    for (const std::size_t n : {KIB, MIB})
        addFind(n);
    addLastCharacter(KIB);
    for (const std::size_t n : {std::size_t{16}, KIB, 64 * KIB})
        addCompare(n);
    for (const std::size_t n : {std::size_t{10}, KIB})
        addBeginsAndEnds(n);
}

}  // namespace bench
