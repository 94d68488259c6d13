// One operation, timed for the text library and for each of its peers on the same input.

#ifndef BENCH_COMPARE_H
#define BENCH_COMPARE_H

#include "Velbase/common/common_string.h"

#include <QByteArray>
#include <QString>
#include <benchmark/benchmark.h>

#include <glib.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace bench {

/// A text in the type of each peer. Words of lower- and upper-case letters with one space between, `length` bytes in
/// all; the same for the same length. '#', the letter Q and the word "needle" are nowhere in it.
struct Text {
    explicit Text(std::size_t length);
    explicit Text(const std::string& text);

    std::string plain;
    String own;
    QByteArray bytes;
    QString wide;
};

/// Times `body` as `operation` done by `peer` on `size` bytes, digits or fields, as the operation's name says. `body`
/// returns what it computed, so that nothing of it is left out.
template <typename Body> void add(const std::string& operation, const std::string& peer, std::size_t size, Body body)
{
    benchmark::RegisterBenchmark(
        (operation + "/" + std::to_string(size) + "/" + peer).c_str(), [body](benchmark::State& state) {
            for (auto _ : state) {
                auto result = body();
                benchmark::DoNotOptimize(result);
            }
        });
}

/// The peer whose time is what the library's promises cost at least: see Imposed.
constexpr char IMPOSED[] = "imposed";

/// As little as a shared text can be: its length and characters in one heap block, its count in another.
class Imposed {
public:
    /// Of `length` bytes that are not set yet.
    explicit Imposed(std::size_t length)
        : m_block(new char[sizeof(unsigned) + length + 1])
        , m_count(new unsigned(1))
    {
        characters()[length] = '\0';
    }
    Imposed(std::initializer_list<std::string_view> pieces)
        : Imposed(lengthOf(pieces))
    {
        char* to = characters();
        for (const std::string_view piece : pieces)
            to += piece.copy(to, piece.size());
    }
    Imposed(const Imposed& other)
        : m_block(other.m_block)
        , m_count(other.m_count)
    {
        ++*m_count;
    }
    ~Imposed()
    {
        if (--*m_count == 0) {
            delete[] m_block;
            delete m_count;
        }
    }
    Imposed& operator=(const Imposed&) = delete;

    char* characters() const { return m_block + sizeof(unsigned); }

private:
    static std::size_t lengthOf(std::initializer_list<std::string_view> pieces)
    {
        std::size_t length = 0;
        for (const std::string_view piece : pieces)
            length += piece.size();
        return length;
    }

    char* m_block;
    unsigned* m_count;
};

/// The ASCII rule for case, without branches, as the loops over a std::string below and in the other files have it.
inline char lowered(char c)
{
    return static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
}
inline char raised(char c)
{
    return static_cast<char>(c >= 'a' && c <= 'z' ? c - ('a' - 'A') : c);
}

/// `text` with each of its characters turned into what `map` makes of it.
template <typename Map> std::string mapped(std::string text, Map map)
{
    for (char& c : text)
        c = map(c);
    return text;
}

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

/// Lengths of long texts.
constexpr std::size_t KIB = 1024;
constexpr std::size_t MIB = 1024 * KIB;

void addMaking();
void addEdits();
void addLists();
void addNumbers();
void addScans();
void addTransforms();
void addUnicode();

}  // namespace bench

#endif
