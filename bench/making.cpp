// Making texts: what each costs is mostly the two heap blocks that it takes.

#include "bench/compare.h"

#include <absl/strings/str_cat.h>
#include <absl/strings/substitute.h>
#include <fmt/format.h>

namespace bench {

namespace {

void addConstruct(std::size_t n)
{
    const Text text(n);
    add("construct", "library", n, [text] { return String(text.plain.c_str()); });
    add("construct", IMPOSED, n, [text] { return Imposed({text.plain.c_str()}); });
    add("construct", "std", n, [text] { return std::string(text.plain.c_str()); });
    add("construct", "QByteArray", n, [text] { return QByteArray(text.plain.c_str()); });
    add("construct", "QString", n, [text] { return QString::fromLatin1(text.plain.c_str()); });
}

void addCopy(std::size_t n)
{
    const Text text(n);
    add("copy", "library", n, [text] { return String(text.own); });
    add("copy", "std", n, [text] { return std::string(text.plain); });
    add("copy", "QByteArray", n, [text] { return QByteArray(text.bytes); });
}

// `n` of more than twice as many.
void addCut(std::size_t n)
{
    const Text whole(n < KIB ? KIB : 2 * n);
    const std::size_t from = n / 2;
    add("cut", "library", n, [=] { return whole.own.Mid(static_cast<unsigned>(from), static_cast<unsigned>(n)); });
    add("cut", IMPOSED, n, [=] { return Imposed({std::string_view(whole.plain).substr(from, n)}); });
    add("cut", "std", n, [=] { return whole.plain.substr(from, n); });
    add("cut", "QByteArray", n,
        [=] { return whole.bytes.mid(static_cast<qsizetype>(from), static_cast<qsizetype>(n)); });
}

void addSubstitute()
{
    const Text pattern(std::string("%1 is here"));
    const Text value(std::string("a value"));
    const std::size_t n = pattern.plain.size();
    add("substitute a text", "library", n, [=] { return pattern.own.Arg(value.own); });
    add("substitute a text", IMPOSED, n, [=] {
        return Imposed({value.plain, std::string_view(pattern.plain).substr(2)});
    });
    add("substitute a text", "QString", n, [=] { return pattern.wide.arg(value.wide); });
    add("substitute a text", "fmt", n, [=] { return fmt::format("{} is here", value.plain); });
    add("substitute a text", "Abseil", n, [=] { return absl::Substitute("$0 is here", value.plain); });

    add("substitute a number", "library", n, [=] { return pattern.own.Arg(12345); });
    add("substitute a number", "QString", n, [=] { return pattern.wide.arg(12345); });
    add("substitute a number", "fmt", n, [=] { return fmt::format("{} is here", 12345); });
    add("substitute a number", "Abseil", n, [=] { return absl::Substitute("$0 is here", 12345); });
}

}  // namespace

void addMaking()
{
    for (const std::size_t n : {5, 40, 1000})
        addConstruct(n);
    addCopy(40);
    for (const std::size_t n : {std::size_t{8}, std::size_t{500}, 64 * KIB})
        addCut(n);
    addSubstitute();
}

}  // namespace bench
