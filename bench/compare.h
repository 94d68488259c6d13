// One operation, timed for the text library and for each of its peers on the same input.

#ifndef BENCH_COMPARE_H
#define BENCH_COMPARE_H

#include <benchmark/benchmark.h>

#include <glib.h>

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <string>
#include <string_view>

#include "Velbase/common/common_string.h"

namespace bench {

/// The two lengths of the long texts, in bytes: the second is 16 times the first, so that growth shows.
constexpr std::size_t LENGTHS[] = {1024, 16384};

/// A text in the type of each peer. Words of lower- and upper-case letters with one space between, `length` bytes in
/// all; the same for the same length. '#' and the word "needle" are nowhere in it.
struct Text {
    explicit Text(std::size_t length);
    explicit Text(const std::string& text);

    std::string plain;
    String own;
    QByteArray bytes;
    QString wide;
};

/// Times `body` as `operation` done by `peer` on `length` bytes. `body` returns what it computed, so that nothing of it
/// is left out.
template <typename Body> void add(const std::string& operation, const std::string& peer, std::size_t length, Body body)
{
    benchmark::RegisterBenchmark(
        (operation + "/" + std::to_string(length) + "/" + peer).c_str(), [body](benchmark::State& state) {
            for (auto _ : state) {
                auto result = body();
                benchmark::DoNotOptimize(result);
            }
        });
}

/// A text of a std::string and a count, each in a block of its own: as little as a shared text can be.
class Prototype {
public:
    Prototype(const char* text, std::size_t length)
        : m_text(new std::string(text, length))
        , m_count(new unsigned(1))
    {
    }
    Prototype(std::string_view head, std::string_view middle, std::string_view tail)
        : Prototype("", 0)
    {
        m_text->reserve(head.size() + middle.size() + tail.size());
        m_text->append(head).append(middle).append(tail);
    }
    Prototype(const Prototype& other)
        : m_text(other.m_text)
        , m_count(other.m_count)
    {
        ++*m_count;
    }
    ~Prototype()
    {
        if (--*m_count == 0) {
            delete m_text;
            delete m_count;
        }
    }
    Prototype& operator=(const Prototype&) = delete;

private:
    std::string* m_text;
    unsigned* m_count;
};

/// Owns a text that GLib allocated.
struct GAllocated {
    explicit GAllocated(char* allocated)
        : text(allocated)
    {
    }
    ~GAllocated() { g_free(text); }
    GAllocated(const GAllocated&) = delete;
    GAllocated& operator=(const GAllocated&) = delete;

    char* const text;
};

void addScans();
void addEdits();
void addTransforms();
void addBounded();
void addNumbers();
void addUnicode();

}  // namespace bench

#endif
