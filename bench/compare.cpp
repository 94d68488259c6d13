#include "bench/compare.h"

#include <random>

namespace bench {

namespace {

std::string words(std::size_t length)
{
    std::mt19937 random(1);
    std::string text;
    while (text.size() < length) {
        for (auto letters = 2 + random() % 9; letters > 0; --letters)
            text += random() % 8 == 0 ? "ABCDEFGHIJKLMNOPRSTUVWXYZ"[random() % 25]
                                      : "abcdefghijklmnoprstuvwxyz"[random() % 25];
        text += ' ';
    }
    text.resize(length);
    text.back() = 'x';
    return text;
}

}  // namespace

Text::Text(std::size_t length)
    : Text(words(length))
{
}

Text::Text(const std::string& text)
    : plain(text)
    , own(text.c_str())
    , bytes(QByteArray::fromStdString(text))
    , wide(QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())))
{
}

}  // namespace bench

int main(int argc, char** argv)
{
    bench::addMaking();
    bench::addEdits();
    bench::addLists();
    bench::addNumbers();
    bench::addScans();
    bench::addTransforms();
    bench::addUnicode();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
