#include "toolbox/core/dialogs/AlertResources.h"

#include "tests/toolbox/core/dialogs/AlertBytes.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

namespace {

using Toolbox::AlertTemplate;
using Toolbox::DialogItem;
using Toolbox::DialogItemKind;

// The readers get a block of exactly the length of `bytes`, so that a sanitizer sees every read past the end.
template <typename Read> auto readWith(Read read, const std::string& bytes)
{
    const std::vector<char> block(bytes.begin(), bytes.end());
    return read(QByteArray::fromRawData(block.data(), static_cast<qsizetype>(block.size())));
}

std::optional<AlertTemplate> readTemplate(const std::string& bytes)
{
    return readWith(Toolbox::readAlertTemplate, bytes);
}

std::string wordsOf(const Rect& bounds)
{
    std::ostringstream words;
    words << bounds.top << ' ' << bounds.left << ' ' << bounds.bottom << ' ' << bounds.right;
    return words.str();
}

std::string wordsOf(const DialogItem& item)
{
    const std::string kind = item.kind == DialogItemKind::Button ? "button"
        : item.kind == DialogItemKind::StaticText                ? "text"
                                                                 : "other";
    return kind + (item.enabled ? " " : " disabled ") + wordsOf(item.bounds) + ": " + item.title.toStdString();
}

using Words = std::vector<std::string>;
const Words REFUSED = {"refused"};

Words itemsIn(const std::string& bytes)
{
    const auto items = readWith(Toolbox::readItemList, bytes);
    if (!items)
        return REFUSED;
    Words words;
    for (const DialogItem& each : *items)
        words.push_back(wordsOf(each));
    return words;
}

// ---- 'ALRT'

TEST(AlertTemplateReader, ReadsEveryField)
{
    const auto alert = readTemplate(alertTemplate(-5, 0x1234, {-3, 2, 300, 400}));
    ASSERT_TRUE(alert.has_value());
    EXPECT_EQ(wordsOf(alert->bounds), "-3 2 300 400");
    EXPECT_EQ(alert->itemListID, -5);
    EXPECT_EQ(alert->stages, 0x1234);
}

TEST(AlertTemplateReader, RefusesEveryTruncationAndIgnoresAPositionAtTheEnd)
{
    const std::string whole = alertTemplate(5000);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(readTemplate(whole.substr(0, length)).has_value()) << length;
    EXPECT_TRUE(readTemplate(whole).has_value());
    EXPECT_TRUE(readTemplate(alertTemplate(5000) + word(0x300A)).has_value());
    EXPECT_TRUE(readTemplate(alertTemplate(5000) + 'x').has_value());
}

TEST(AlertTemplateReader, WantsBoundsThatEncloseSomething)
{
    const auto isRead = [](const Rect& bounds) {
        return readTemplate(alertTemplate(5000, 0x5555, bounds)).has_value();
    };
    EXPECT_TRUE(isRead({0, 0, 1, 1}));
    EXPECT_FALSE(isRead({5, 0, 5, 10})) << "no height";
    EXPECT_FALSE(isRead({0, 5, 10, 5})) << "no width";
    EXPECT_FALSE(isRead({10, 0, 5, 10})) << "upside down";
    EXPECT_FALSE(isRead({0, 10, 10, 5})) << "right to left";
    EXPECT_TRUE(isRead({-32768, -32768, 32767, 32767}));
    EXPECT_FALSE(isRead({32767, 32767, -32768, -32768}));
}

TEST(AlertStages, AreFourBitsEach)
{
    const std::tuple<const char*, UInt16, int, bool, SInt16> rows[] = {
        {"the first is the lowest", 0x0004, 1, true, 1},
        {"the first is no other", 0xFFF0, 1, false, 1},
        {"second", 0x00C0, 2, true, 2},
        {"third", 0x0800, 3, false, 2},
        {"fourth", 0x4000, 4, true, 1},
        {"the fourth serves the fifth", 0xC000, 5, true, 2},
        {"sound alone draws nothing", 0x3333, 1, false, 1},
        {"with its sounds", 0x5555, 4, true, 1},
    };
    for (const auto& [name, stages, occurrence, drawsBox, defaultItem] : rows) {
        AlertTemplate alert;
        alert.stages = stages;
        EXPECT_EQ(alert.stage(occurrence).drawsBox, drawsBox) << name;
        EXPECT_EQ(alert.stage(occurrence).defaultItem, defaultItem) << name;
    }
}

// ---- 'DITL'

TEST(ItemListReader, ReadsItemsInOrder)
{
    EXPECT_EQ(itemsIn(itemList({
                  dialogItem(BUTTON, "OK", {1, 2, 3, 4}),
                  dialogItem(STATIC_TEXT | DISABLED, "odd", {-5, -6, 7, 8}),
                  dialogItem(BUTTON | DISABLED, ""),
              })),
        (Words{"button 1 2 3 4: OK", "text disabled -5 -6 7 8: odd", "button disabled 10 20 30 90: "}));
    EXPECT_EQ(itemsIn(word(-1)), Words{});
}

TEST(ItemListReader, KeepsTheNumberOfEveryKindOfItem)
{
    for (unsigned type = 0; type <= 0xFF; ++type) {
        const unsigned kind = type & 0x7F;
        const std::string first = kind == BUTTON ? "button" : kind == STATIC_TEXT ? "text" : "other";
        const Words items = itemsIn(itemList({dialogItem(type, "ab"), dialogItem(BUTTON, "OK")}));
        ASSERT_EQ(items.size(), 2u) << type;
        EXPECT_EQ(items[0].rfind(first + (type < 0x80 ? " 10" : " disabled 10"), 0), 0u) << items[0];
        EXPECT_EQ(items[1], "button 10 20 30 90: OK") << type;
    }
}

TEST(ItemListReader, ReadsTitlesOfEveryLength)
{
    for (std::size_t length = 0; length <= 255; ++length) {
        const std::string title(length, 'x');
        EXPECT_EQ(itemsIn(itemList({dialogItem(BUTTON, title), dialogItem(BUTTON, "next")})),
            (Words{"button 10 20 30 90: " + title, "button 10 20 30 90: next"}));
    }
}

TEST(ItemListReader, RefusesEveryTruncationAndIgnoresWhatFollowsTheLastItem)
{
    const std::string whole =
        itemList({dialogItem(STATIC_TEXT, "Text"), dialogItem(ICON, word(1)), dialogItem(BUTTON, "odd")});
    const std::size_t padding = 1;  // which the last item may lack
    for (std::size_t length = 0; length < whole.size() - padding; ++length)
        EXPECT_EQ(itemsIn(whole.substr(0, length)), REFUSED) << length;
    const Words items = itemsIn(whole);
    EXPECT_EQ(items.size(), 3u);
    EXPECT_EQ(itemsIn(whole.substr(0, whole.size() - padding)), items);
    EXPECT_EQ(itemsIn(whole + "more"), items);
}

TEST(ItemListReader, ReadsAsManyItemsAsNumbersCanCountWhereTheyAreThere)
{
    for (const int stored : {1, 0x7FFE, 0x7FFF, -2, -32768})
        EXPECT_EQ(itemsIn(word(stored) + dialogItem(BUTTON, "OK")), REFUSED) << stored;
    const std::string item = dialogItem(BUTTON, "");
    std::string items;
    for (int count = 0; count < 0x8000; ++count)
        items += item;
    EXPECT_EQ(itemsIn(word(0x7FFE) + items).size(), 0x7FFFu);
    EXPECT_EQ(itemsIn(word(0x7FFF) + items), REFUSED);
}

}  // namespace
