// Editing: each makes a changed text and keeps the one that it came from.

#include "bench/compare.h"

#include <absl/strings/str_cat.h>
#include <absl/strings/str_replace.h>

namespace bench {

namespace {

std::string replaceAll(const std::string& text, const std::string& pattern, const std::string& replacement)
{
    std::string result;
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(pattern, from)) != std::string::npos; from = at + pattern.size())
        result.append(text, from, at - from).append(replacement);
    return result.append(text, from);
}

QByteArray replaced(QByteArray text, const QByteArray& pattern, const QByteArray& replacement)
{
    return text.replace(pattern, replacement);
}

QString replaced(QString text, const QString& pattern, const QString& replacement)
{
    return text.replace(pattern, replacement);
}

void addReplace(const std::string& operation, const std::string& searched, std::size_t n)
{
    const Text text(n);
    const Text pattern(searched);
    const Text replacement(std::string("<->"));
    add(operation, "library", n, [=] { return text.own.Replace(pattern.own, replacement.own); });
    add(operation, "std", n, [=] { return replaceAll(text.plain, pattern.plain, replacement.plain); });
    add(operation, "Abseil", n, [=] { return absl::StrReplaceAll(text.plain, {{pattern.plain, replacement.plain}}); });
    add(operation, "QByteArray", n, [=] { return replaced(text.bytes, pattern.bytes, replacement.bytes); });
    add(operation, "QString", n, [=] { return replaced(text.wide, pattern.wide, replacement.wide); });
}

void addReplaceCharacter(std::size_t n)
{
    const Text text(n);
    add("replace a character", "library", n, [text] { return text.own.ReplaceChar('e', '_'); });
    add("replace a character", "std", n,
        [text] { return mapped(text.plain, [](char c) { return c == 'e' ? '_' : c; }); });
    add("replace a character", "QByteArray", n, [text] {
        QByteArray result = text.bytes;
        return result.replace('e', '_');
    });
    add("replace a character", "QString", n, [text] {
        QString result = text.wide;
        return result.replace(QLatin1Char('e'), QLatin1Char('_'));
    });
    add("replace a character", "GLib", n, [text] {
        const GAllocated copy(g_strdup(text.plain.c_str()));
        return g_strdelimit(copy.text, "e", '_')[0];
    });
}

void addInsertAndRemove(std::size_t n)
{
    const Text text(n);
    const Text piece(std::string("ten bytes."));
    const std::size_t middle = n / 2;
    const unsigned at = static_cast<unsigned>(middle);

    add("insert 10", "library", n, [=] {
        String result = text.own;
        result.Insert(at, piece.own);
        return result;
    });
    add("insert 10", IMPOSED, n, [=] {
        const std::string_view whole = text.plain;
        return Imposed({whole.substr(0, middle), piece.plain, whole.substr(middle)});
    });
    add("insert 10", "std", n, [=] {
        std::string result = text.plain;
        return result.insert(middle, piece.plain);
    });
    add("insert 10", "Abseil", n, [=] {
        const absl::string_view whole = text.plain;
        return absl::StrCat(whole.substr(0, middle), piece.plain, whole.substr(middle));
    });
    add("insert 10", "QByteArray", n, [=] {
        QByteArray result = text.bytes;
        return result.insert(static_cast<qsizetype>(middle), piece.bytes);
    });

    add("remove 10", "library", n, [=] {
        String result = text.own;
        result.Remove(at, 10u);
        return result;
    });
    add("remove 10", IMPOSED, n, [=] {
        const std::string_view whole = text.plain;
        return Imposed({whole.substr(0, middle), whole.substr(middle + 10)});
    });
    add("remove 10", "std", n, [=] {
        std::string result = text.plain;
        return result.erase(middle, 10);
    });
    add("remove 10", "Abseil", n, [=] {
        const absl::string_view whole = text.plain;
        return absl::StrCat(whole.substr(0, middle), whole.substr(middle + 10));
    });
    add("remove 10", "QByteArray", n, [=] {
        QByteArray result = text.bytes;
        return result.remove(static_cast<qsizetype>(middle), 10);
    });

    add("append 10", "library", n, [=] {
        String result = text.own;
        result += piece.own;
        return result;
    });
    add("append 10", IMPOSED, n, [=] { return Imposed({text.plain, piece.plain}); });
    add("append 10", "std", n, [=] { return text.plain + piece.plain; });
    add("append 10", "Abseil", n, [=] { return absl::StrCat(text.plain, piece.plain); });
    add("append 10", "QByteArray", n, [=] { return QByteArray(text.bytes + piece.bytes); });
}

}  // namespace

void addEdits()
{
    for (const std::size_t n : {KIB, MIB}) {
        addReplace("replace without a match", "needle", n);
        addReplace("replace a letter", "e", n);
        addReplace("replace a pair of letters", "e ", n);
        addReplaceCharacter(n);
    }
    for (const std::size_t n : {std::size_t{100}, std::size_t{1000}, 64 * KIB})
        addInsertAndRemove(n);
}

}  // namespace bench
