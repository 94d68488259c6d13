// A few strings that share buffers, changed at random: after every step each of them is what the model says, and shares
// with exactly those with which the model says.

#include "drivers.h"

#include <algorithm>

namespace {

constexpr int ROUNDS = 2000;
constexpr int STEPS = 20;
constexpr unsigned LONGEST_TEXT = 30;

// What is drawn for a step.
struct Drawn {
    unsigned index;      // in the target or just behind it
    unsigned start;      // in the longer one of the two or just behind it, seldom a large one
    checked_uint count;  // the same, or none
    char letter;
    Twin fresh;
};

unsigned drawStart(unsigned length, Random& random)
{
    return random.once(20) ? 0xFFFFFFFF - random.below(3) : random.below(length + 2);
}

Drawn draw(const Twin& target, const Twin& argument, Random& random)
{
    const unsigned length = std::max(target.string.Length(), argument.string.Length());
    const unsigned index = random.below(target.string.Length() + 3);
    const unsigned start = drawStart(length, random);
    const checked_uint count = random.once(4) ? checked_uint() : checked_uint(drawStart(length, random));
    return {index, start, count, random.of("aX%"), random.text(random.once(2) ? 5 : 1)};
}

void assign(Twin& target, const String& string, const reference::Text& text)
{
    target.text = text;
    target.string = string;
}

// One change of `t`, on both of its sides. `a` may be `t` itself.
struct Step {
    const char* name;
    void (*apply)(Twin& t, Twin& a, const Drawn& drawn);
};

const Step STEPS_TO_TAKE[] = {
    {"operator=", [](Twin& t, Twin& a, const Drawn&) { assign(t, a.string, a.text); }},
    {"operator= of a fresh one", [](Twin& t, Twin&, const Drawn& d) { assign(t, d.fresh.string, d.fresh.text); }},
    {"operator+=",
        [](Twin& t, Twin& a, const Drawn&) {
            t.text = reference::append(t.text, a.text);
            EXPECT_EQ(&(t.string += a.string), &t.string);
        }},
    {"Insert",
        [](Twin& t, Twin& a, const Drawn& d) {
            t.text = reference::insert(t.text, d.start, a.text);
            EXPECT_EQ(&t.string.Insert(d.start, a.string), &t.string);
        }},
    {"Remove",
        [](Twin& t, Twin&, const Drawn& d) {
            t.text = reference::remove(t.text, d.start, modelOf(d.count));
            EXPECT_EQ(&t.string.Remove(d.start, d.count), &t.string);
        }},
    {"Truncate",
        [](Twin& t, Twin&, const Drawn& d) {
            t.text = reference::truncate(t.text, d.start);
            t.string.Truncate(d.start);
        }},
    {"detachAndExtend",
        [](Twin& t, Twin&, const Drawn& d) {
            t.text = reference::detachAndExtend(t.text, d.index);
            t.string.detachAndExtend(d.index);
        }},
    {"operator[] = a letter",
        [](Twin& t, Twin&, const Drawn& d) {
            t.text = reference::write(t.text, d.index, d.letter);
            t.string[d.index] = d.letter;
        }},
    {"operator[] = the argument's",
        [](Twin& t, Twin& a, const Drawn& d) {
            t.text = reference::write(t.text, d.index, reference::at(a.text, d.start));
            t.string[d.index] = a.string[d.start];
        }},
    {"Mid of the argument",
        [](Twin& t, Twin& a, const Drawn& d) {
            assign(t, a.string.Mid(d.start, d.count), reference::mid(a.text, d.start, modelOf(d.count)));
        }},
    {"Replace of the fresh one by the argument",
        [](Twin& t, Twin& a, const Drawn& d) {
            assign(t, t.string.Replace(d.fresh.string, a.string), reference::replace(t.text, d.fresh.text, a.text));
        }},
    {"Replace of the argument by the fresh one",
        [](Twin& t, Twin& a, const Drawn& d) {
            assign(t, t.string.Replace(a.string, d.fresh.string), reference::replace(t.text, a.text, d.fresh.text));
        }},
    {"Arg", [](Twin& t, Twin& a, const Drawn&) { assign(t, t.string.Arg(a.string), reference::arg(t.text, a.text)); }},
    {"StripWhiteSpace of the argument",
        [](Twin& t, Twin& a, const Drawn&) {
            assign(t, a.string.StripWhiteSpace(), reference::stripWhiteSpace(a.text));
        }},
    {"a field of the argument's Split",
        [](Twin& t, Twin& a, const Drawn& d) {
            std::vector<String> fields;
            a.string.Split('a', fields);
            const std::vector<reference::Text> expected = reference::split(a.text, 'a');
            const std::size_t taken = d.start % expected.size();
            assign(t, fields.at(taken), expected[taken]);
        }},
    {"Join of both with the fresh one between",
        [](Twin& t, Twin& a, const Drawn& d) {
            assign(t, String::Join(d.fresh.string, {t.string, a.string, t.string}),
                reference::join(d.fresh.text, {t.text, a.text, t.text}));
        }},
};

TEST(SharingProperty, EveryStringAgreesAfterEveryStep)
{
    Random random(51);
    for (int round = 0; round < ROUNDS; ++round) {
        std::vector<Twin> pool = {random.text(5), random.text(5), random.text(5)};
        pool.push_back(pool[0]);
        std::string steps = "  from " + shown(pool) + ", of which the last shares with the first\n";
        for (int step = 0; step < STEPS; ++step) {
            const std::uint32_t size = static_cast<std::uint32_t>(pool.size());
            Twin& target = pool[random.below(size)];
            Twin& argument = pool[random.below(size)];
            const Step& taken = STEPS_TO_TAKE[random.below(static_cast<std::uint32_t>(std::size(STEPS_TO_TAKE)))];
            const Drawn drawn = draw(target, argument, random);
            steps += "  " + shown(target) + ": " + taken.name + "; the argument " + shown(argument) + ", index "
                + shown(drawn.index) + ", start " + shown(drawn.start) + ", count " + shown(drawn.count) + ", letter "
                + shown(drawn.letter) + ", the fresh one " + shown(drawn.fresh) + "\n";
            taken.apply(target, argument, drawn);
            if (target.string.Length() > LONGEST_TEXT) {
                target.string.Truncate(LONGEST_TEXT);
                target.text = reference::truncate(target.text, LONGEST_TEXT);
            }
            for (const Twin& twin : pool)
                ASSERT_TRUE(agrees(twin.string, twin.text, Twins(pool.begin(), pool.end()))) << steps;
        }
    }
}

}  // namespace
