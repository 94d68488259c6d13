// Texts in many threads, each thread its own. The counts of owners are plain numbers, so no two threads may share a
// text; nor does the library share anything between them by itself, which the thread sanitizer sees here.

#include "Velbase/common/common_string.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

const unsigned THREADS = 16;
const unsigned ROUNDS = 500;

// Something of everything that the library does, with texts that depend on `seed`. What came out, in one text.
std::string work(unsigned seed)
{
    String text(" one, two , three ");
    text += String::Number(seed);
    const String copy(text);
    String results = copy.StripWhiteSpace().ToUpper();

    std::vector<String> pieces;
    text.Split(',', pieces);
    for (const String& piece : pieces)
        results += piece.SimplifyWhiteSpace();
    results += String::Join("; ", pieces);

    text = text.Replace("o", "0");
    text.Insert(2, "%1 and %2").Remove(0, 1);
    text[0] = '!';
    results += text.Arg(seed, 16).Arg(0.5 + seed);
    text.Truncate(5);
    results += text.Mid(1, 3u);

    bool ok = false;
    results += String::Number(String::Number(seed).ToUInt(&ok) + (ok ? 1 : 0));
    results += String::Number(String("1.25").ToDouble(&ok));
    results += String::Number(copy.Find("THREE", 0, false).value());
    results += String::Number(copy.FindRev(',').value());
    results += String::Number(copy < results ? 1 : 0);
    return results.Latin1();
}

TEST(StringThreads, WorkOnTextsOfTheirOwn)
{
    std::vector<std::string> expected;
    for (unsigned seed = 0; seed < THREADS; ++seed)
        expected.push_back(work(seed));

    std::vector<unsigned> wrong(THREADS);
    std::vector<std::thread> threads;
    for (unsigned seed = 0; seed < THREADS; ++seed) {
        threads.emplace_back([seed, &expected, &wrong] {
            for (unsigned round = 0; round < ROUNDS; ++round)
                wrong[seed] += work(seed) == expected[seed] ? 0 : 1;
        });
    }
    for (std::thread& each : threads)
        each.join();
    EXPECT_EQ(wrong, std::vector<unsigned>(THREADS));
}

// A text may go from one thread to the next, as long as one at a time holds it and all its copies.
TEST(StringThreads, HandATextOn)
{
    String text("a");
    for (unsigned i = 1; i < THREADS; ++i)
        std::thread([&text] { text += text.Mid(0, 1u); }).join();
    EXPECT_EQ(text.Length(), THREADS);
}

}  // namespace
