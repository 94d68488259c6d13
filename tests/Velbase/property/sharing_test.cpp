// A few strings that share buffers, changed at random: after every step each of them is what the model says, and shares
// with exactly those with which the model says.

#include "drivers.h"

namespace {

constexpr int ROUNDS = 2000;
constexpr int STEPS = 20;
constexpr unsigned LONGEST_TEXT = 30;

// One change of `target`, on both of its sides; what was called, as text. `argument` may be `target` itself.
struct Step {
    const char* name;
    std::string (*apply)(Twin& target, Twin& argument, Random& random);
};

// A position in the text or just behind it, seldom a large one.
unsigned position(const Twin& twin, Random& random)
{
    return random.once(20) ? 0xFFFFFFFF - random.below(3) : random.below(twin.string.Length() + 2);
}

checked_uint count(const Twin& twin, Random& random)
{
    return random.once(4) ? checked_uint() : checked_uint(position(twin, random));
}

// The result of a constant operation takes the place of the text that it was made from.
std::string assign(Twin& target, const String& string, const reference::Text& text, const std::string& said)
{
    target.text = text;
    target.string = string;
    return said;
}

const Step STEPS_TO_TAKE[] = {
    {"Assign", [](Twin& t, Twin& a, Random&) { return assign(t, a.string, a.text, call(t, "operator=", a)); }},
    {"New",
        [](Twin& t, Twin&, Random& random) {
            const Twin fresh = random.text(5);
            return assign(t, fresh.string, fresh.text, call(t, "operator=", fresh));
        }},
    {"Append",
        [](Twin& t, Twin& a, Random&) {
            const std::string said = call(t, "operator+=", a);
            t.text = reference::append(t.text, a.text);
            EXPECT_EQ(&(t.string += a.string), &t.string);
            return said;
        }},
    {"Insert",
        [](Twin& t, Twin& a, Random& random) {
            const unsigned place = position(t, random);
            const std::string said = call(t, "Insert", place, a);
            t.text = reference::insert(t.text, place, a.text);
            EXPECT_EQ(&t.string.Insert(place, a.string), &t.string);
            return said;
        }},
    {"Remove",
        [](Twin& t, Twin&, Random& random) {
            const unsigned start = position(t, random);
            const checked_uint removed = count(t, random);
            const std::string said = call(t, "Remove", start, removed);
            t.text = reference::remove(t.text, start, modelOf(removed));
            EXPECT_EQ(&t.string.Remove(start, removed), &t.string);
            return said;
        }},
    {"Truncate",
        [](Twin& t, Twin&, Random& random) {
            const unsigned length = position(t, random);
            const std::string said = call(t, "Truncate", length);
            t.text = reference::truncate(t.text, length);
            t.string.Truncate(length);
            return said;
        }},
    {"DetachAndExtend",
        [](Twin& t, Twin&, Random& random) {
            const unsigned index = random.below(t.string.Length() + 3);
            const std::string said = call(t, "detachAndExtend", index);
            t.text = reference::detachAndExtend(t.text, index);
            t.string.detachAndExtend(index);
            return said;
        }},
    {"Write",
        [](Twin& t, Twin&, Random& random) {
            const unsigned index = random.below(t.string.Length() + 3);
            const char c = random.of("aX%");
            const std::string said = call(t, "operator[]", index) + " = " + shown(c);
            t.text = reference::write(t.text, index, c);
            t.string[index] = c;
            return said;
        }},
    {"WriteFromAnother",
        [](Twin& t, Twin& a, Random& random) {
            const unsigned index = random.below(t.string.Length() + 2);
            const unsigned from = random.below(a.string.Length() + 1);
            const std::string said = call(t, "operator[]", index) + " = " + call(a, "operator[]", from);
            t.text = reference::write(t.text, index, reference::at(a.text, from));
            t.string[index] = a.string[from];
            return said;
        }},
    {"Mid",
        [](Twin& t, Twin& a, Random& random) {
            const unsigned start = position(a, random);
            const checked_uint taken = count(a, random);
            return assign(t, a.string.Mid(start, taken), reference::mid(a.text, start, modelOf(taken)),
                shown(t) + " = " + call(a, "Mid", start, taken));
        }},
    {"Replace",
        [](Twin& t, Twin& a, Random& random) {
            const Twin pattern = random.once(4) ? t : random.text(2);
            return assign(t, t.string.Replace(pattern.string, a.string),
                reference::replace(t.text, pattern.text, a.text), call(t, "Replace", pattern, a));
        }},
    {"Arg",
        [](Twin& t, Twin& a, Random&) {
            return assign(t, t.string.Arg(a.string), reference::arg(t.text, a.text), call(t, "Arg", a));
        }},
    {"StripWhiteSpace",
        [](Twin& t, Twin& a, Random&) {
            return assign(t, a.string.StripWhiteSpace(), reference::stripWhiteSpace(a.text),
                shown(t) + " = " + call(a, "StripWhiteSpace"));
        }},
    {"SplitAndTakeOne",
        [](Twin& t, Twin& a, Random& random) {
            std::vector<String> fields;
            a.string.Split('a', fields);
            const std::vector<reference::Text> expected = reference::split(a.text, 'a');
            const std::size_t taken = random.below(static_cast<std::uint32_t>(expected.size()));
            return assign(t, fields.at(taken), expected[taken], shown(t) + " = a field of " + call(a, "Split", 'a'));
        }},
    {"Join",
        [](Twin& t, Twin& a, Random& random) {
            const Twin separator = random.text(1);
            return assign(t, String::Join(separator.string, {t.string, a.string, t.string}),
                reference::join(separator.text, {t.text, a.text, t.text}),
                "Join(" + shown(separator) + ", " + shown(std::vector<Twin>{t, a, t}) + ")");
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
            steps += "  " + std::string(taken.name) + ": " + taken.apply(target, argument, random) + "\n";
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
