#include "drivers.h"

using namespace std::string_view_literals;

namespace {

constexpr std::string_view ALPHABET = "aabbABAB0129%%,, \t\xA0\xE9\x85\0\0"sv;

constexpr unsigned LONGEST_SHORT_TEXT = 4;
constexpr unsigned LONGEST_SHORT_ARGUMENT = 3;
constexpr unsigned LONG_TEXT = 300;
constexpr int RANDOM_ROUNDS = 1000;
constexpr int LONG_ROUNDS = 50;

// Checks the operation on `text`, and perhaps another one, and then whether it left them alone, in the buffers that
// they had.
template <typename Operation, typename... Argument>
void checkLeavingAlone(const Operation& operation, const Twin& text, const Argument&... argument)
{
    const Twins twins = {text, argument...};
    std::vector<const char*> addresses;
    for (const Twin& twin : twins)
        addresses.push_back(twin.string.Latin1());
    operation.check(text, argument...);
    for (std::size_t i = 0; i < twins.size(); ++i) {
        const Twin& twin = twins[i];
        ASSERT_TRUE(agrees(twin.string, twin.text, twins));
        ASSERT_EQ(twin.string.Latin1(), addresses[i]) << shown(twin);
    }
}

}  // namespace

std::uint64_t Random::number()
{
    const std::uint64_t high = m_engine();
    const std::uint64_t number = high << 32 | m_engine();
    return number >> below(64);
}

std::string Random::bytes(std::string_view letters, std::uint32_t maxLength)
{
    std::string result(below(maxLength + 1), '\0');
    for (char& c : result)
        c = of(letters);
    return result;
}

Twin Random::text(std::uint32_t maxLength)
{
    if (once(12))
        return nullTwin();
    return twinOf(bytes(ALPHABET, once(30) ? 4 * maxLength : maxLength));
}

std::vector<Twin> shortTexts(std::string_view letters, unsigned maxLength)
{
    std::vector<std::string> all = {""};
    std::size_t shorterBegin = 0;
    for (unsigned length = 1; length <= maxLength; ++length) {
        const std::size_t shorterEnd = all.size();
        for (; shorterBegin < shorterEnd; ++shorterBegin) {
            for (const char letter : letters)
                all.push_back(all[shorterBegin] + letter);
        }
    }
    std::vector<Twin> texts = {nullTwin()};
    for (const std::string& bytes : all)
        texts.push_back(twinOf(bytes));
    return texts;
}

std::vector<unsigned> positions(const Twin& text)
{
    const unsigned length = reference::length(text.text);
    std::vector<unsigned> all;
    for (unsigned position = 0; position <= length + 1; ++position) {
        if (length <= 10 || position <= 2 || position + 2 >= length)
            all.push_back(position);
    }
    all.insert(all.end(), {0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF});
    return all;
}

std::vector<checked_uint> optionalPositions(const Twin& text)
{
    std::vector<checked_uint> all = {checked_uint()};
    for (const unsigned position : positions(text))
        all.push_back(position);
    return all;
}

TEST_P(TextProperty, AgreesOnEveryShortText)
{
    for (const Twin& text : shortTexts(GetParam().letters, LONGEST_SHORT_TEXT)) {
        checkLeavingAlone(GetParam(), text);
        if (HasFailure())
            return;
    }
}

TEST_P(TextProperty, AgreesOnRandomAndLongTexts)
{
    Random random(1);
    for (int round = 0; round < RANDOM_ROUNDS && !HasFailure(); ++round) {
        checkLeavingAlone(GetParam(), random.text());
        if (round < LONG_ROUNDS)
            checkLeavingAlone(GetParam(), twinOf(random.bytes(GetParam().letters, LONG_TEXT)));
    }
}

TEST_P(PairProperty, AgreesOnEveryShortTextAndArgument)
{
    const std::vector<Twin> arguments = shortTexts(GetParam().letters, LONGEST_SHORT_ARGUMENT);
    for (const Twin& text : shortTexts(GetParam().letters, LONGEST_SHORT_TEXT)) {
        for (const Twin& argument : arguments) {
            checkLeavingAlone(GetParam(), text, argument);
            if (HasFailure())
                return;
        }
    }
}

TEST_P(PairProperty, AgreesOnRandomTextsAndArguments)
{
    Random random(2);
    for (int round = 0; round < RANDOM_ROUNDS && !HasFailure(); ++round) {
        const Twin text = random.text();
        const Twin copy = text;
        checkLeavingAlone(GetParam(), text, random.text(random.once(3) ? 12 : 3));
        checkLeavingAlone(GetParam(), text, text);
        checkLeavingAlone(GetParam(), text, copy);
    }
}

TEST_P(PairProperty, AgreesOnLongTextsAndArguments)
{
    Random random(6);
    for (int round = 0; round < LONG_ROUNDS && !HasFailure(); ++round) {
        // Of one or two letters, so that an argument is met at many places, some of which overlap.
        const std::string_view letters = GetParam().letters.substr(0, 1 + random.below(2));
        const Twin text = twinOf(random.bytes(letters, LONG_TEXT) + random.bytes(GetParam().letters, LONG_TEXT));
        checkLeavingAlone(GetParam(), text, twinOf(random.bytes(letters, random.once(4) ? 2 * LONG_TEXT : 5)));
    }
}
