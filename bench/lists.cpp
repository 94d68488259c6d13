// Splitting a text into fields and joining pieces into a text.

#include "bench/compare.h"

#include <QByteArrayList>
#include <QStringList>

#include <absl/strings/str_join.h>
#include <absl/strings/str_split.h>

#include <vector>

namespace bench {

namespace {

const char FIELD[] = "ten bytes.";

void addSplit(std::size_t fields)
{
    std::string joined = FIELD;
    for (std::size_t i = 1; i < fields; ++i)
        (joined += ',') += FIELD;
    const Text text(joined);
    add("split, fields", "library", fields, [text] {
        std::vector<String> result;
        text.own.Split(',', result);
        return result.size();
    });
    add("split, fields", IMPOSED, fields, [text] {
        std::vector<Imposed> result;
        const std::string_view whole = text.plain;
        std::size_t from = 0;
        for (std::size_t at; (at = whole.find(',', from)) != std::string_view::npos; from = at + 1)
            result.push_back(Imposed({whole.substr(from, at - from)}));
        result.push_back(Imposed({whole.substr(from)}));
        return result.size();
    });
    add("split, fields", "Abseil", fields,
        [text] { return std::vector<std::string>(absl::StrSplit(text.plain, ',')).size(); });
    add("split, fields", "QByteArray", fields, [text] { return text.bytes.split(',').size(); });
    add("split, fields", "QString", fields, [text] { return text.wide.split(QLatin1Char(',')).size(); });
}

void addJoin(const std::string& operation, std::size_t size, const Text& piece, std::size_t count)
{
    const std::vector<String> own(count, piece.own);
    const std::vector<std::string> plain(count, piece.plain);
    const QByteArrayList bytes(static_cast<qsizetype>(count), piece.bytes);
    const QStringList wide(static_cast<qsizetype>(count), piece.wide);
    const String comma(",");

    add(operation, "library", size, [=] { return String::Join(comma, own); });
    add(operation, "Abseil", size, [=] { return absl::StrJoin(plain, ","); });
    add(operation, "QByteArray", size, [=] { return bytes.join(','); });
    add(operation, "QString", size, [=] { return wide.join(QLatin1Char(',')); });
    add(operation, "std", size, [=] {
        std::string result;
        result.reserve(count * (piece.plain.size() + 1));
        for (const std::string& part : plain)
            (result += part) += ',';
        result.pop_back();
        return result;
    });
}

}  // namespace

void addLists()
{
    for (const std::size_t fields : {100, 100000}) {
        addSplit(fields);
        addJoin("join, fields", fields, Text(FIELD), fields);
    }
    for (const std::size_t n : {std::size_t{16}, KIB, 64 * KIB})
        addJoin("join 10 pieces", n, Text(n), 10);
}

}  // namespace bench
