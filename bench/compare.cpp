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
            text += static_cast<char>((random() % 8 == 0 ? 'A' : 'a') + static_cast<int>(random() % 26));
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
    bench::addScans();
    bench::addEdits();
    bench::addTransforms();
    bench::addBounded();
    bench::addNumbers();
    bench::addUnicode();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
