// What the operations allocate, and what they leave behind when they cannot.

#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/Allocations.h"

#include <gtest/gtest.h>

namespace {

// What the operations below work on. The text and the other one are shared, the number is not.
struct Operands {
    explicit Operands(const std::string& fill)
        : text((" a,b" + fill + ",%1 ").c_str())
        , copy(text)
        , other(("," + fill).c_str())
        , number("12,5")
        , empty("")
        , list({text, other, empty})
    {
    }

    String text;
    String copy;
    String other;
    String number;
    String empty;
    String null;
    std::vector<String> list;
};

struct Operation {
    const char* name;
    void (*run)(Operands&);
};

// ---- Operations that allocate nothing

const Operation FREE_OPERATIONS[] = {
    {"Copy", [](Operands& o) { const String copy(o.text); }},
    {"Assignment", [](Operands& o) { o.other = o.text; }},
    {"ReadingACharacter", [](Operands& o) { o.text[1].ToChar(); }},
    {"WritingInPlace", [](Operands& o) { o.number[0] = 'x'; }},
    {"Comparing",
        [](Operands& o) { EXPECT_FALSE(o.text == o.other && o.text < o.other && o.text <= o.other.Latin1()); }},
    {"FindChar", [](Operands& o) { o.text.Find('%'); }},
    {"FindCharInAnyCase", [](Operands& o) { o.text.Find('B', 0, false); }},
    {"FindRev", [](Operands& o) { o.text.FindRev('a'); }},
    {"FindRevInAnyCase", [](Operands& o) { o.text.FindRev('A', {}, false); }},
    {"FindText", [](Operands& o) { o.text.Find(o.other); }},
    {"ContainsText", [](Operands& o) { o.text.Contains(o.other); }},
    {"BeginsWith", [](Operands& o) { o.text.BeginsWith(o.other); }},
    {"EndsWith", [](Operands& o) { o.text.EndsWith(o.other); }},
    {"AppendNothing", [](Operands& o) { o.text += o.empty; }},
    {"AppendToEmpty", [](Operands& o) { o.empty += o.text; }},
    {"AppendToNull", [](Operands& o) { o.null += o.text; }},
    {"InsertIntoEmpty", [](Operands& o) { o.empty.Insert(0, o.text); }},
    {"InsertIntoNull", [](Operands& o) { o.null.Insert(0, o.text); }},
    {"RemoveNothing", [](Operands& o) { o.text.Remove(1, 0); }},
    {"TruncateNothing", [](Operands& o) { o.text.Truncate(0xFFFFFFFF); }},
    {"ReplaceNothing", [](Operands& o) { (void)o.text.Replace(o.empty, o.other); }},
    {"ToUpperOfEmpty", [](Operands& o) { (void)o.empty.ToUpper(); }},
    {"ToUpperOfNull", [](Operands& o) { (void)o.null.ToUpper(); }},
    {"StripNothing", [](Operands& o) { (void)o.other.StripWhiteSpace(); }},
    {"StripNull", [](Operands& o) { (void)o.null.StripWhiteSpace(); }},
    {"SimplifyEmpty", [](Operands& o) { (void)o.empty.SimplifyWhiteSpace(); }},
    {"ArgOfNothing", [](Operands& o) { (void)o.other.Arg(o.empty); }},
    {"ToShort", [](Operands& o) { o.number.ToShort(); }},
    {"ToUShort", [](Operands& o) { o.number.ToUShort(); }},
    {"ToInt", [](Operands& o) { o.number.ToInt(); }},
    {"ToUInt", [](Operands& o) { o.number.ToUInt(); }},
    {"ToInt64", [](Operands& o) { o.number.ToInt64(); }},
    {"ToUInt64", [](Operands& o) { o.number.ToUInt64(); }},
};

TEST(StringOperationForFree, AllocatesNothing)
{
    for (const auto& row : FREE_OPERATIONS) {
        SCOPED_TRACE(row.name);
        for (const char* const fill : {"", "a text too long for any small buffer"}) {
            Operands operands(fill);
            EXPECT_EQ(allocations::countIn([&] { row.run(operands); }), 0u);
        }
    }
}

// ---- Operations that allocate

const Operation ALLOCATING_OPERATIONS[] = {
    {"MakeNull", [](Operands&) { const String text; }},
    {"MakeNullFromNullptr", [](Operands&) { const String text(nullptr); }},
    {"MakeNullFromAPointer", [](Operands&) { const String text(static_cast<const char*>(nullptr)); }},
    {"MakeEmpty", [](Operands&) { const String text(""); }},
    {"MakeText", [](Operands& o) { const String text(o.text.Latin1()); }},
    {"MakeTextOfAtMost", [](Operands& o) { const String text(o.text.Latin1(), 100); }},
    {"Truncate", [](Operands& o) { o.text.Truncate(o.text.Length() - 1); }},
    {"DetachAndExtendInside", [](Operands& o) { o.text.detachAndExtend(0); }},
    {"DetachAndExtendPastTheEnd", [](Operands& o) { o.text.detachAndExtend(o.text.Length() + 50); }},
    {"DetachAndExtendNull", [](Operands& o) { o.null.detachAndExtend(50); }},
    {"WriteShared", [](Operands& o) { o.text[0] = 'x'; }},
    {"WritePastTheEnd", [](Operands& o) { o.number[o.number.Length()] = 'x'; }},
    {"Append", [](Operands& o) { o.text += o.other; }},
    {"AppendToUnshared", [](Operands& o) { o.number += o.text; }},
    {"AppendItself", [](Operands& o) { o.text += o.text; }},
    {"AppendACString", [](Operands& o) { o.text += "x"; }},
    {"Insert", [](Operands& o) { o.text.Insert(1, o.other); }},
    {"InsertItself", [](Operands& o) { o.other.Insert(1, o.other); }},
    {"InsertNothing", [](Operands& o) { o.text.Insert(1, o.empty); }},
    {"Remove", [](Operands& o) { o.text.Remove(1, 2); }},
    {"RemoveAll", [](Operands& o) { o.text.Remove(0); }},
    {"Left", [](Operands& o) { (void)o.text.Left(o.text.Length()); }},
    {"LeftOfNull", [](Operands& o) { (void)o.null.Left(1); }},
    {"Right", [](Operands& o) { (void)o.text.Right(o.text.Length()); }},
    {"Mid", [](Operands& o) { (void)o.text.Mid(1); }},
    {"MidPastTheEnd", [](Operands& o) { (void)o.text.Mid(1000); }},
    {"Replace", [](Operands& o) { (void)o.text.Replace(",", o.other); }},
    {"ReplaceIntoItself", [](Operands& o) { o.text = o.text.Replace(",", o.text); }},
    {"ReplaceAbsent", [](Operands& o) { (void)o.text.Replace("absent", o.other); }},
    {"ReplaceAll", [](Operands& o) { (void)o.text.Replace(o.text, o.null); }},
    {"ReplaceInNull", [](Operands& o) { (void)o.null.Replace(",", "x"); }},
    {"ReplaceInEmpty", [](Operands& o) { (void)o.empty.Replace(",", "x"); }},
    {"ReplaceChar", [](Operands& o) { (void)o.text.ReplaceChar(',', ';'); }},
    {"ToUpper", [](Operands& o) { (void)o.text.ToUpper(); }},
    {"ToLower", [](Operands& o) { (void)o.text.ToLower(); }},
    {"ToLowerOfNull", [](Operands& o) { (void)o.null.ToLower(); }},
    {"ToLowerOfEmpty", [](Operands& o) { (void)o.empty.ToLower(); }},
    {"StripWhiteSpace", [](Operands& o) { (void)o.text.StripWhiteSpace(); }},
    {"SimplifyWhiteSpace", [](Operands& o) { (void)o.text.SimplifyWhiteSpace(); }},
    {"FindTextInAnyCase", [](Operands& o) { o.text.Find(o.other, 0, false); }},
    {"BeginsWithInAnyCase", [](Operands& o) { o.text.BeginsWith(o.other, false); }},
    {"EndsWithInAnyCase", [](Operands& o) { o.text.EndsWith(o.other, false); }},
    {"Split", [](Operands& o) { o.text.Split(',', o.list); }},
    {"SplitWithoutSeparator", [](Operands& o) { o.text.Split(';', o.list); }},
    {"SplitIntoItsOwnList", [](Operands& o) { o.list[0].Split(',', o.list); }},
    {"Join", [](Operands& o) { (void)String::Join(",", o.list); }},
    {"JoinWithItsOwnPart", [](Operands& o) { o.text = String::Join(o.list[0], o.list); }},
    {"JoinNothing", [](Operands& o) { (void)String::Join(o.empty, std::vector<String>()); }},
    {"ArgString", [](Operands& o) { (void)o.text.Arg(o.other); }},
    {"ArgItself", [](Operands& o) { o.text = o.text.Arg(o.text); }},
    {"ArgAppended", [](Operands& o) { (void)o.other.Arg(o.text); }},
    {"ArgCString", [](Operands& o) { (void)o.text.Arg("x"); }},
    {"ArgChar", [](Operands& o) { (void)o.text.Arg('x'); }},
    {"ArgBool", [](Operands& o) { (void)o.text.Arg(true); }},
    {"ArgInt", [](Operands& o) { (void)o.text.Arg(-1); }},
    {"ArgIntInBase16", [](Operands& o) { (void)o.text.Arg(-1, 16); }},
    {"ArgLong", [](Operands& o) { (void)o.text.Arg(-1l); }},
    {"ArgLongLong", [](Operands& o) { (void)o.text.Arg(-1ll); }},
    {"ArgDouble", [](Operands& o) { (void)o.text.Arg(1e100, 50); }},
    {"NumberOfInt", [](Operands&) { (void)String::Number(-12); }},
    {"NumberOfIntInBase2", [](Operands&) { (void)String::Number(-0x7FFFFFFF, 2); }},
    {"NumberOfUnsigned", [](Operands&) { (void)String::Number(12u); }},
    {"NumberOfLong", [](Operands&) { (void)String::Number(12l); }},
    {"NumberOfUnsignedLong", [](Operands&) { (void)String::Number(12ul); }},
    {"NumberOfLongLong", [](Operands&) { (void)String::Number(-0x7FFFFFFFFFFFFFFFll); }},
    {"NumberOfUnsignedLongLong", [](Operands&) { (void)String::Number(0xFFFFFFFFFFFFFFFFull, 16); }},
    {"NumberOfDouble", [](Operands&) { (void)String::Number(1e100, 50); }},
    {"NumberOfFloat", [](Operands&) { (void)String::Number(1.5f); }},
    {"ToDoubleWithAnotherPoint", [](Operands& o) { o.number.ToDouble(); }},
    {"ToFloatWithAnotherPoint", [](Operands& o) { o.number.ToFloat(); }},
};

void expectUnchanged(const Operands& operands, const std::string& fill)
{
    const Operands expected(fill);
    for (const auto each : {&Operands::text, &Operands::copy, &Operands::other, &Operands::number, &Operands::empty})
        EXPECT_EQ(contents(operands.*each), contents(expected.*each));
    EXPECT_TRUE(operands.null.IsNull());
    EXPECT_TRUE(shareBuffer(operands.text, operands.copy));
    ASSERT_EQ(operands.list.size(), 3u);
    EXPECT_TRUE(shareBuffer(operands.list[0], operands.text));
    EXPECT_TRUE(shareBuffer(operands.list[1], operands.other));
    EXPECT_TRUE(shareBuffer(operands.list[2], operands.empty));
}

TEST(StringOperation, ThrowsAndChangesNothingWhicheverAllocationFails)
{
    for (const auto& row : ALLOCATING_OPERATIONS) {
        SCOPED_TRACE(row.name);
        for (const char* const fill : {"", "a text too long for any small buffer"}) {
            int refused = 0;
            for (;; ++refused) {
                Operands operands(fill);
                if (!allocations::refusing(refused, [&] { row.run(operands); }))
                    break;
                expectUnchanged(operands, fill);
            }
            EXPECT_GT(refused, 0) << "nothing was allocated, so nothing was tested";
        }
    }
}

// ---- Sizes

typedef std::vector<std::size_t> Sizes;

const std::size_t COUNT = 4;

// The block of the buffer of a text of `length` characters: its length, the characters and a zero byte.
Sizes bufferOf(std::size_t length)
{
    return {4 + length + 1};
}

// The blocks of a string.
Sizes stringOfLength(std::size_t length)
{
    Sizes sizes = bufferOf(length);
    sizes.push_back(COUNT);
    return sizes;
}

String filled(std::size_t length)
{
    return String(std::string(length, 'x').c_str());
}

// Lengths around those at which other buffers keep a text in place.
class StringSizes : public testing::TestWithParam<std::size_t> {
protected:
    const std::size_t m_length = GetParam();
    const unsigned m_count = static_cast<unsigned>(m_length);
};

TEST(StringSizes, NullStringHasItsCountAlone)
{
    EXPECT_EQ(allocations::sizesIn([] { const String null; }), Sizes{COUNT});
}

TEST_P(StringSizes, NewStringAndAPieceHaveTheirTextAndTheirCount)
{
    const std::string bytes(m_length, 'x');
    EXPECT_EQ(allocations::sizesIn([&] { String made(bytes.c_str()); }), stringOfLength(m_length));
    EXPECT_EQ(allocations::sizesIn([&] { String made(bytes.c_str(), 1000); }), stringOfLength(m_length));
    const String text = filled(m_length + 7);
    EXPECT_EQ(allocations::sizesIn([&] { (void)text.Left(m_count); }), stringOfLength(m_length));
    EXPECT_EQ(allocations::sizesIn([&] { (void)text.Right(m_count); }), stringOfLength(m_length));
    EXPECT_EQ(allocations::sizesIn([&] { (void)text.Mid(3, m_count); }), stringOfLength(m_length));
}

TEST_P(StringSizes, ChangedCopyHasItsTextAndItsCount)
{
    const String text = filled(m_length);
    EXPECT_EQ(allocations::sizesIn([&] { (void)text.ReplaceChar('x', 'y'); }), stringOfLength(m_length));
    if (m_length > 0) {
        EXPECT_EQ(allocations::sizesIn([&] { (void)text.ToUpper(); }), stringOfLength(m_length));
        EXPECT_EQ(allocations::sizesIn([&] { (void)text.ToLower(); }), stringOfLength(m_length));
        EXPECT_EQ(allocations::sizesIn([&] { (void)text.SimplifyWhiteSpace(); }), stringOfLength(m_length));
    }
}

// The edits make one new buffer, and use the count again if no other string has it.
template <typename Edit> void expectOneBuffer(const String& before, std::size_t length, Edit edit)
{
    String shared(before);
    EXPECT_EQ(allocations::sizesIn([&] { edit(shared); }), stringOfLength(length));
    String alone(before.Latin1());
    EXPECT_EQ(allocations::sizesIn([&] { edit(alone); }), bufferOf(length));
    EXPECT_EQ(alone.Length(), length);
}

TEST_P(StringSizes, EditMakesOneBufferOfItsSize)
{
    const String longer = filled(m_length + 5);
    const String tail("12345");
    expectOneBuffer(longer, m_length, [&](String& text) { text.Truncate(m_count); });
    expectOneBuffer(longer, m_length, [&](String& text) { text.Remove(m_count); });
    expectOneBuffer(longer, m_length + 2, [&](String& text) { text.Remove(0, 3); });
    expectOneBuffer(longer, m_length + 10, [&](String& text) { text += tail; });
    expectOneBuffer(longer, m_length + 10, [&](String& text) { text.Insert(2, tail); });
    expectOneBuffer(longer, m_length + 5, [&](String& text) { text.detachAndExtend(0); });
    expectOneBuffer(longer, m_length + 8, [&](String& text) { text.detachAndExtend(m_count + 7); });
}

TEST_P(StringSizes, ResultPutTogetherFromPiecesHasOneBuffer)
{
    const String text = filled(m_length);
    const String withPlaceholder = String("%1") += text;
    const std::vector<String> parts = {text, "y"};
    const String separator(", ");
    EXPECT_EQ(allocations::sizesIn([&] { (void)String::Join(separator, parts); }), stringOfLength(m_length + 3));
    EXPECT_EQ(allocations::sizesIn([&] { (void)withPlaceholder.Arg(separator); }),
        m_length == 0 ? Sizes() : stringOfLength(m_length + 2));
}

INSTANTIATE_TEST_SUITE_P(Lengths, StringSizes, testing::Values(0, 1, 3, 4, 7, 8, 15, 16, 17, 22, 23, 64, 1000));

}  // namespace
