// Every operation of String and of lists of strings, against the reference model of the property tests.
//
// An input is a program over four strings. It begins with their texts and goes on with steps: the letter of an
// operation in OPERATIONS, then its operands, one byte each. What a step makes takes the place of one of the strings,
// and after each step all four must be what the model says, and share their buffers as it says. A byte that is no
// operation's letter is passed over. Digits and letters mean what one would think, so that programs can be read and
// written:
//
//     3abc1b-0+01    the strings "abc", "b", null and ""; append string 1 to string 0

#include "fuzz/must_hold.h"
#include "tests/Velbase/property/twin.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

using reference::Text;

constexpr unsigned LONGEST = 1200;  // of the strings, after a step: some operations go by pieces of 1024

// How long a text may be that is made of each character of another. The model takes the square of it in time.
constexpr unsigned LONGEST_REPLACED = 20 * LONGEST;

class Program {
public:
    Program(const std::uint8_t* data, std::size_t size)
        : m_next(data)
        , m_end(data + size)
    {
    }

    bool hasEnded() const { return m_next == m_end; }

    /// The next byte, 0 behind the last.
    std::uint8_t byte() { return hasEnded() ? std::uint8_t{0} : *m_next++; }
    char letter() { return static_cast<char>(byte()); }
    bool flag() { return byte() % 2 != 0; }

    /// "0" to "9" are 0 to 9, what follows them in ASCII goes on, and what precedes them is negative: "/" is
    /// 0xFFFFFFFF. The bytes from 0xD0 on are the multiples of 32 from 0 on.
    unsigned number() { return numberOf(byte()); }

    /// A number, or "~" for none.
    checked_uint count()
    {
        const std::uint8_t given = byte();
        return given == '~' ? checked_uint() : checked_uint(numberOf(given));
    }

    /// A number below `limit`.
    unsigned below(unsigned limit) { return number() % limit; }

    /// A number of up to eight bytes: how many, then the bytes, the highest first.
    std::uint64_t wide()
    {
        std::uint64_t value = 0;
        for (unsigned left = below(9); left > 0; --left)
            value = value << 8 | byte();
        return value;
    }

    /// A text: its length, then its bytes. Null for a negative length.
    Twin text()
    {
        const unsigned length = number();
        if (length > 0x7FFFFFFF)
            return nullTwin();
        const auto taken = std::min<std::size_t>(length, static_cast<std::size_t>(m_end - m_next));
        const std::string bytes(reinterpret_cast<const char*>(m_next), taken);
        m_next += taken;
        return twinOf(bytes);
    }

private:
    static unsigned numberOf(std::uint8_t byte) { return byte < 0xD0 ? byte - 48u : (byte - 0xD0u) * 32; }

    const std::uint8_t* m_next;
    const std::uint8_t* const m_end;
};

// The four strings, and the steps' access to them and to their operands.
class Machine {
public:
    Machine(const std::uint8_t* data, std::size_t size)
        : program(data, size)
    {
        for (Twin& twin : m_twins)
            twin = program.text();
        checkAll("the start");
    }

    Twin& twin() { return m_twins[program.below(4)]; }
    unsigned number() { return program.number(); }
    bool flag() { return program.flag(); }

    /// Has one of the strings be the result `string`, which must be `text`. To be called once all operands were read.
    void take(Twin& target, const String& string, const Text& text)
    {
        target.text = text;
        target.string = string;
    }

    /// What has no place among the strings.
    void agree(const testing::AssertionResult& result) { m_disagrees = m_disagrees || !result; }
    void agree(bool isEqual) { m_disagrees = m_disagrees || !isEqual; }

    void checkAll(const char* step)
    {
        for (auto twin = m_all.begin(); twin != m_all.end(); ++twin) {
            const testing::AssertionResult result =
                agrees(twin->get().string, twin->get().text, Twins(twin, m_all.end()));
            if (!result || m_disagrees)
                fail(step, result.message());
        }
        for (Twin& each : m_twins) {
            each.text = reference::truncate(each.text, LONGEST);
            each.string.Truncate(LONGEST);
        }
    }

    Program program;

private:
    void fail(const char* step, const char* message) const
    {
        std::fprintf(stderr, "after %s:\n%s", step, message);
        for (const Twin& each : m_twins)
            std::fprintf(stderr, "  model %s, string %s\n", shown(each.text).c_str(), shown(each.string).c_str());
        mustHold(false, "the library agrees with its model");
    }

    Twin m_twins[4];
    const Twins m_all = Twins(std::begin(m_twins), std::end(m_twins));
    bool m_disagrees = false;
};

// ---- Making and changing

void construct(Machine& m)
{
    Twin& t = m.twin();
    const Twin& from = m.twin();
    const unsigned maxLength = m.number();
    const std::string bytes = reference::bytes(from.text);
    const char* const source = from.string.IsNull() ? nullptr : bytes.c_str();
    m.agree(agrees(String(source), reference::fromCString(source)));
    m.take(t, String(source, maxLength), reference::fromCString(source, maxLength));
}

void assign(Machine& m)
{
    Twin& t = m.twin();
    const Twin& other = m.twin();
    m.take(t, other.string, other.text);
}

void append(Machine& m)
{
    Twin& t = m.twin();
    const Twin& tail = m.twin();
    t.text = reference::append(t.text, tail.text);
    m.agree(&(t.string += tail.string) == &t.string);
}

void insert(Machine& m)
{
    Twin& t = m.twin();
    const unsigned position = m.number();
    const Twin& inserted = m.twin();
    t.text = reference::insert(t.text, position, inserted.text);
    m.agree(&t.string.Insert(position, inserted.string) == &t.string);
}

void remove(Machine& m)
{
    Twin& t = m.twin();
    const unsigned start = m.number();
    const checked_uint count = m.program.count();
    t.text = reference::remove(t.text, start, modelOf(count));
    m.agree(&t.string.Remove(start, count) == &t.string);
}

void truncate(Machine& m)
{
    Twin& t = m.twin();
    const unsigned length = m.number();
    t.text = reference::truncate(t.text, length);
    t.string.Truncate(length);
}

void detachAndExtend(Machine& m)
{
    Twin& t = m.twin();
    const unsigned index = m.program.below(LONGEST);
    t.text = reference::detachAndExtend(t.text, index);
    t.string.detachAndExtend(index);
}

void write(Machine& m)
{
    Twin& t = m.twin();
    const unsigned index = m.program.below(LONGEST);
    const char c = m.program.letter();
    t.text = reference::write(t.text, index, c);
    t.string[index] = c;
}

void writeFromAnother(Machine& m)
{
    Twin& t = m.twin();
    const unsigned index = m.program.below(LONGEST);
    Twin& other = m.twin();
    const unsigned from = m.number();
    const char c = reference::at(other.text, from);
    const String& constant = other.string;
    m.agree(char(constant.At(from)) == c && char(constant[from]) == c && other.string[from].ToChar() == c);
    t.text = reference::write(t.text, index, c);
    t.string[index] = other.string[from];
}

// ---- Pieces and changed copies

void left(Machine& m)
{
    Twin& t = m.twin();
    const Twin& from = m.twin();
    const unsigned count = m.number();
    m.take(t, from.string.Left(count), reference::left(from.text, count));
}

void right(Machine& m)
{
    Twin& t = m.twin();
    const Twin& from = m.twin();
    const unsigned count = m.number();
    m.take(t, from.string.Right(count), reference::right(from.text, count));
}

void mid(Machine& m)
{
    Twin& t = m.twin();
    const Twin& from = m.twin();
    const unsigned start = m.number();
    const checked_uint count = m.program.count();
    m.take(t, from.string.Mid(start, count), reference::mid(from.text, start, modelOf(count)));
}

void replace(Machine& m)
{
    Twin& t = m.twin();
    const Twin& in = m.twin();
    const Twin& pattern = m.twin();
    const Twin& by = m.twin();
    if (reference::length(in.text) * reference::length(by.text) > LONGEST_REPLACED)
        return;
    m.take(t, in.string.Replace(pattern.string, by.string), reference::replace(in.text, pattern.text, by.text));
}

void replaceChar(Machine& m)
{
    Twin& t = m.twin();
    const Twin& in = m.twin();
    const char from = m.program.letter();
    const char to = m.program.letter();
    m.take(t, in.string.ReplaceChar(from, to), reference::replaceChar(in.text, from, to));
}

template <String (String::*change)() const, Text (*model)(const Text&)> void changeCopy(Machine& m)
{
    Twin& t = m.twin();
    const Twin& from = m.twin();
    m.take(t, (from.string.*change)(), model(from.text));
}

// ---- Searching and comparing

void find(Machine& m)
{
    const Twin& t = m.twin();
    const char c = m.program.letter();
    const unsigned from = m.number();
    const bool caseSensitive = m.flag();
    const reference::Position expected = reference::find(t.text, c, from, caseSensitive);
    m.agree(agrees(t.string.Find(c, from, caseSensitive), expected));
    m.agree(agrees(t.string.Find(Char(c), from, caseSensitive), expected));
    const bool contained = reference::find(t.text, c, 0, caseSensitive).has_value();
    m.agree(t.string.Contains(c, caseSensitive) == contained);
    m.agree(t.string.Contains(Char(c), caseSensitive) == contained);
}

void findRev(Machine& m)
{
    const Twin& t = m.twin();
    const char c = m.program.letter();
    const checked_uint from = m.program.count();
    const bool caseSensitive = m.flag();
    const reference::Position expected = reference::findRev(t.text, c, modelOf(from), caseSensitive);
    m.agree(agrees(t.string.FindRev(c, from, caseSensitive), expected));
    m.agree(agrees(t.string.FindRev(Char(c), from, caseSensitive), expected));
}

void findText(Machine& m)
{
    const Twin& t = m.twin();
    const Twin& needle = m.twin();
    const unsigned from = m.number();
    const bool caseSensitive = m.flag();
    // A null pointer is allowed as a needle only where case does not count.
    const char* const pointer = caseSensitive || !needle.string.IsNull() ? needle.string.Latin1() : nullptr;
    const std::string sought = reference::cString(needle.text);
    const reference::Position expected = reference::find(t.text, sought, from, caseSensitive);
    m.agree(agrees(t.string.Find(needle.string, from, caseSensitive), expected));
    m.agree(agrees(t.string.Find(pointer, from, caseSensitive), expected));
    const bool contained = reference::find(t.text, sought, 0, caseSensitive).has_value();
    m.agree(t.string.Contains(needle.string, caseSensitive) == contained);
    m.agree(t.string.Contains(pointer, caseSensitive) == contained);
}

void beginsAndEndsWith(Machine& m)
{
    const Twin& t = m.twin();
    const Twin& other = m.twin();
    const bool caseSensitive = m.flag();
    m.agree(
        t.string.BeginsWith(other.string, caseSensitive) == reference::beginsWith(t.text, other.text, caseSensitive));
    m.agree(t.string.EndsWith(other.string, caseSensitive) == reference::endsWith(t.text, other.text, caseSensitive));
}

void compare(Machine& m)
{
    const Twin& a = m.twin();
    const Twin& b = m.twin();
    const int order = reference::compare(reference::bytes(a.text), reference::bytes(b.text));
    const char* const pointer = b.string.IsNull() ? nullptr : b.string.Latin1();
    const bool comparable = pointer != nullptr;
    m.agree((a.string == b.string) == (order == 0) && (a.string == pointer) == (comparable && order == 0));
    m.agree((a.string < b.string) == (order < 0) && (a.string < pointer) == (comparable && order < 0));
    m.agree((a.string <= b.string) == (order <= 0) && (a.string <= pointer) == (comparable && order <= 0));
}

// ---- Lists

void split(Machine& m)
{
    Twin& t = m.twin();
    const Twin& from = m.twin();
    const char separator = m.program.letter();
    const std::vector<Text> expected = reference::split(from.text, separator);
    const std::size_t taken = m.program.below(static_cast<unsigned>(expected.size()));

    std::vector<String> fields = {String("from before"), from.string};
    fields[1].Split(separator, fields);  // itself an element of the list that it fills
    m.agree(fields.size() == expected.size());
    for (std::size_t i = 0; i < std::min(fields.size(), expected.size()); ++i)
        m.agree(agrees(fields[i], expected[i], {from}));
    if (taken < fields.size())
        m.take(t, fields[taken], expected[taken]);
}

void join(Machine& m)
{
    Twin& t = m.twin();
    const Twin& separator = m.twin();
    std::vector<String> strings;
    std::vector<Text> texts;
    for (unsigned left = m.program.below(5); left > 0; --left) {
        const Twin& part = m.twin();
        strings.push_back(part.string);
        texts.push_back(part.text);
    }
    m.take(t, String::Join(separator.string, strings), reference::join(separator.text, texts));
}

// ---- Numbers

template <typename T> bool sameBits(T a, T b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// One conversion, with and without a flag for its success. The flag starts as the wrong answer.
template <typename T, typename Wide, typename... Base>
void parse(Machine& m, const Twin& text, T (String::*convert)(bool*, Base...) const,
    const std::optional<Wide>& expected, Base... base)
{
    const T value = static_cast<T>(expected.value_or(0));
    bool ok = !expected.has_value();
    m.agree(sameBits((text.string.*convert)(&ok, base...), value) && ok == expected.has_value());
    m.agree(sameBits((text.string.*convert)(nullptr, base...), value));
}

void parseIntegers(Machine& m)
{
    const Twin& text = m.twin();
    const unsigned base = m.number();
    parse(m, text, &String::ToShort, reference::parseSigned(text.text, base, 16), base);
    parse(m, text, &String::ToUShort, reference::parseUnsigned(text.text, base, 16), base);
    parse(m, text, &String::ToInt, reference::parseSigned(text.text, base, 32), base);
    parse(m, text, &String::ToUInt, reference::parseUnsigned(text.text, base, 32), base);
    parse(m, text, &String::ToInt64, reference::parseSigned(text.text, base, 64), base);
    parse(m, text, &String::ToUInt64, reference::parseUnsigned(text.text, base, 64), base);
}

void parseDoubles(Machine& m)
{
    const Twin& text = m.twin();
    const std::optional<double> expected = reference::parseDouble(text.text);
    parse(m, text, &String::ToDouble, expected);
    parse(m, text, &String::ToFloat, expected);
}

// One integer, formatted, and filled into `text`, which takes the last.
template <typename T>
void format(
    Machine& m, Twin& t, const Twin& text, T n, unsigned base, const std::string& digits, const std::string& arg)
{
    m.agree(agrees(String::Number(n, base), reference::newText(digits)));
    m.take(t, text.string.Arg(n, base), reference::arg(text.text, reference::newText(arg)));
}

void formatIntegers(Machine& m)
{
    Twin& t = m.twin();
    const Twin text = m.twin();
    const std::uint64_t bits = m.program.wide();
    const unsigned base = m.number();
    const auto s = static_cast<short>(bits);
    const auto us = static_cast<unsigned short>(bits);
    const auto i = static_cast<int>(bits);
    const auto u = static_cast<unsigned>(bits);
    const auto l = static_cast<long>(bits);
    const auto ul = static_cast<unsigned long>(bits);
    const auto ll = static_cast<long long>(bits);
    const unsigned long long ull = bits;
    format(m, t, text, i, base, reference::formatSigned(i, base), reference::argument(i, base));
    format(m, t, text, l, base, reference::formatSigned(l, base), reference::argument(l, base));
    format(m, t, text, u, base, reference::formatUnsigned(u, base), reference::formatUnsigned(u, base));
    format(m, t, text, ul, base, reference::formatUnsigned(ul, base), reference::formatUnsigned(ul, base));
    format(m, t, text, ll, base, reference::formatSigned64(ll, base), reference::formatSigned64(ll, base));
    format(m, t, text, ull, base, reference::formatUnsigned64(ull, base), reference::formatUnsigned64(ull, base));
    m.agree(agrees(
        text.string.Arg(us, base), reference::arg(text.text, reference::newText(reference::formatSigned(us, base)))));
    m.take(
        t, text.string.Arg(s, base), reference::arg(text.text, reference::newText(reference::formatSigned(s, base))));
}

template <typename T> void formatOne(Machine& m, const Twin& text, T value, unsigned precision, char format)
{
    const reference::Position given =
        precision == String::DEFAULT_PRECISION ? reference::Position() : reference::Position(precision);
    const Text digits = reference::newText(reference::formatFloat(value, given, format));
    m.agree(agrees(String::Number(value, precision, format), digits));
    m.agree(agrees(text.string.Arg(value, precision, format), reference::arg(text.text, digits)));
}

void formatDoubles(Machine& m)
{
    const Twin& text = m.twin();
    const std::uint64_t bits = m.program.wide();
    const unsigned precision = m.number();
    const char format = m.program.letter();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    float narrow;
    std::memcpy(&narrow, &bits, sizeof narrow);
    formatOne(m, text, value, precision, format);
    formatOne(m, text, narrow, precision, format);
}

// ---- Templates

void arg(Machine& m)
{
    Twin& t = m.twin();
    const Twin& text = m.twin();
    const Twin& a = m.twin();
    const char* const pointer = a.string.IsNull() ? nullptr : a.string.Latin1();
    m.agree(agrees(text.string.Arg(pointer), reference::arg(text.text, reference::fromCString(pointer))));
    m.take(t, text.string.Arg(a.string), reference::arg(text.text, a.text));
}

void argOfCharacter(Machine& m)
{
    Twin& t = m.twin();
    const Twin& text = m.twin();
    const char c = m.program.letter();
    const bool b = m.flag();
    m.agree(agrees(text.string.Arg(b), reference::arg(text.text, reference::newText(b ? "true" : "false"))));
    const Text filled = reference::arg(text.text, reference::newText(std::string(1, c)));
    m.agree(agrees(text.string.Arg(Char(c)), filled));
    m.take(t, text.string.Arg(c), filled);
}

struct Operation {
    char letter;
    const char* name;
    void (*step)(Machine& m);  // reads its operands in the order in which they are listed below
};

// Operands: t the string that takes the result, abc other strings, n a number, ? a number or none, x a character, f
// whether case counts, w a wide number, * a number of strings and then these.
const Operation OPERATIONS[] = {
    {'c', "construct", construct},                                                                        // tan
    {'=', "operator=", assign},                                                                           // ta
    {'+', "operator+=", append},                                                                          // ta
    {'i', "Insert", insert},                                                                              // tna
    {'r', "Remove", remove},                                                                              // tn?
    {'t', "Truncate", truncate},                                                                          // tn
    {'d', "detachAndExtend", detachAndExtend},                                                            // tn
    {'w', "operator[]", write},                                                                           // tnx
    {'W', "operator[] from another", writeFromAnother},                                                   // tnan
    {'l', "Left", left},                                                                                  // tan
    {'R', "Right", right},                                                                                // tan
    {'m', "Mid", mid},                                                                                    // tan?
    {'p', "Replace", replace},                                                                            // tabc
    {'P', "ReplaceChar", replaceChar},                                                                    // taxx
    {'U', "ToUpper", changeCopy<&String::ToUpper, reference::toUpper>},                                   // ta
    {'L', "ToLower", changeCopy<&String::ToLower, reference::toLower>},                                   // ta
    {'s', "StripWhiteSpace", changeCopy<&String::StripWhiteSpace, reference::stripWhiteSpace>},           // ta
    {'S', "SimplifyWhiteSpace", changeCopy<&String::SimplifyWhiteSpace, reference::simplifyWhiteSpace>},  // ta
    {'f', "Find a character", find},                                                                      // axnf
    {'b', "FindRev", findRev},                                                                            // ax?f
    {'F', "Find a text", findText},                                                                       // abnf
    {'B', "BeginsWith, EndsWith", beginsAndEndsWith},                                                     // abf
    {'<', "a comparison", compare},                                                                       // ab
    {'/', "Split", split},                                                                                // taxn
    {'j', "Join", join},                                                                                  // ta*
    {'#', "ToInt and its kin", parseIntegers},                                                            // an
    {'.', "ToDouble, ToFloat", parseDoubles},                                                             // a
    {'N', "Number and Arg of integers", formatIntegers},                                                  // tawn
    {'D', "Number and Arg of doubles", formatDoubles},                                                    // awnx
    {'a', "Arg", arg},                                                                                    // tab
    {'A', "Arg of a character", argOfCharacter},                                                          // taxf
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Machine machine(data, size);
    while (!machine.program.hasEnded()) {
        const char letter = machine.program.letter();
        const auto found = std::find_if(std::begin(OPERATIONS), std::end(OPERATIONS),
            [letter](const Operation& each) { return each.letter == letter; });
        if (found == std::end(OPERATIONS))
            continue;
        found->step(machine);
        machine.checkAll(found->name);
    }
    return 0;
}
