#include "toolbox/core/dialogs/AlertResources.h"

#include "tests/toolbox/core/dialogs/AlertBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <tuple>

namespace {

using Toolbox::AlertTemplate;
using Toolbox::DialogItem;
using Toolbox::DialogItemKind;

// The bytes in a block of exactly their length, so that a sanitizer sees every read past the end.
class ExactBytes {
public:
    explicit ExactBytes(const std::string& bytes)
        : m_block(new char[bytes.size()])
        , m_bytes(QByteArray::fromRawData(m_block.get(), static_cast<qsizetype>(bytes.size())))
    {
        std::memcpy(m_block.get(), bytes.data(), bytes.size());
    }

    operator const QByteArray&() const { return m_bytes; }

private:
    const std::unique_ptr<char[]> m_block;
    const QByteArray m_bytes;
};

std::optional<AlertTemplate> readTemplate(const std::string& bytes)
{
    return Toolbox::readAlertTemplate(ExactBytes(bytes));
}

std::optional<std::vector<DialogItem>> readItems(const std::string& bytes)
{
    return Toolbox::readItemList(ExactBytes(bytes));
}

bool operator==(const Rect& one, const Rect& other)
{
    return one.top == other.top && one.left == other.left && one.bottom == other.bottom && one.right == other.right;
}

// ---- 'ALRT'

TEST(AlertTemplateReader, ReadsEveryField)
{
    const auto alert = readTemplate(alertTemplate(-5, 0x1234, {-3, 2, 300, 400}));
    ASSERT_TRUE(alert.has_value());
    EXPECT_TRUE(alert->bounds == (Rect{-3, 2, 300, 400}));
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
        {"the usual first", 0x5555, 1, true, 1},
        {"the usual last", 0x5555, 4, true, 1},
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
    const auto items = readItems(itemList({
        dialogItem(BUTTON, "OK", {1, 2, 3, 4}),
        dialogItem(STATIC_TEXT | DISABLED, "odd", {-5, -6, 7, 8}),
        dialogItem(BUTTON | DISABLED, ""),
    }));
    ASSERT_TRUE(items.has_value());
    ASSERT_EQ(items->size(), 3u);
    EXPECT_EQ((*items)[0].kind, DialogItemKind::Button);
    EXPECT_TRUE((*items)[0].enabled);
    EXPECT_TRUE((*items)[0].bounds == (Rect{1, 2, 3, 4}));
    EXPECT_EQ((*items)[0].title, "OK");
    EXPECT_EQ((*items)[1].kind, DialogItemKind::StaticText);
    EXPECT_FALSE((*items)[1].enabled);
    EXPECT_TRUE((*items)[1].bounds == (Rect{-5, -6, 7, 8}));
    EXPECT_EQ((*items)[1].title, "odd");
    EXPECT_EQ((*items)[2].kind, DialogItemKind::Button);
    EXPECT_FALSE((*items)[2].enabled);
    EXPECT_EQ((*items)[2].title, "");
}

TEST(ItemListReader, KeepsTheNumberOfEveryKindOfItem)
{
    for (unsigned type = 0; type <= 0xFF; ++type) {
        const auto items = readItems(itemList({dialogItem(type, "ab"), dialogItem(BUTTON, "OK")}));
        ASSERT_TRUE(items.has_value()) << type;
        ASSERT_EQ(items->size(), 2u) << type;
        const DialogItemKind expected = (type & 0x7F) == BUTTON ? DialogItemKind::Button
            : (type & 0x7F) == STATIC_TEXT                      ? DialogItemKind::StaticText
                                                                : DialogItemKind::Other;
        EXPECT_EQ((*items)[0].kind, expected) << type;
        EXPECT_EQ((*items)[0].enabled, type < 0x80) << type;
        EXPECT_EQ((*items)[1].title, "OK") << type;
    }
}

TEST(ItemListReader, ReadsTitlesOfEveryLength)
{
    for (std::size_t length = 0; length <= 255; ++length) {
        const std::string title(length, 'x');
        const auto items = readItems(itemList({dialogItem(BUTTON, title), dialogItem(BUTTON, "next")}));
        ASSERT_TRUE(items.has_value()) << length;
        EXPECT_EQ((*items)[0].title.toStdString(), title);
        EXPECT_EQ((*items)[1].title, "next") << length;
    }
}

TEST(ItemListReader, DoesWithoutThePaddingOfTheLastItem)
{
    std::string list = itemList({dialogItem(BUTTON, "odd")});
    list.pop_back();
    const auto items = readItems(list);
    ASSERT_TRUE(items.has_value());
    EXPECT_EQ((*items)[0].title, "odd");
}

TEST(ItemListReader, RefusesEveryTruncationAndIgnoresWhatFollowsTheLastItem)
{
    const std::string whole = itemList({dialogItem(STATIC_TEXT, "Text"), dialogItem(ICON, word(1)),
        dialogItem(BUTTON, "odd"), dialogItem(BUTTON, "even")});
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(readItems(whole.substr(0, length)).has_value()) << length;
    EXPECT_TRUE(readItems(whole).has_value());
    const auto items = readItems(itemList({dialogItem(BUTTON, "OK")}) + "more");
    ASSERT_TRUE(items.has_value());
    EXPECT_EQ(items->size(), 1u);
}

TEST(ItemListReader, ReadsAnEmptyList)
{
    const auto items = readItems(word(-1));
    ASSERT_TRUE(items.has_value());
    EXPECT_TRUE(items->empty());
}

TEST(ItemListReader, ReadsAsManyItemsAsNumbersCanCountWhereTheyAreThere)
{
    for (const int stored : {1, 0x7FFE, 0x7FFF, -2, -32768})
        EXPECT_FALSE(readItems(word(stored) + dialogItem(BUTTON, "OK")).has_value()) << stored;
    const std::string item = dialogItem(BUTTON, "");
    std::string items;
    for (int count = 0; count < 0x8000; ++count)
        items += item;
    const auto most = readItems(word(0x7FFE) + items);
    ASSERT_TRUE(most.has_value());
    EXPECT_EQ(most->size(), 0x7FFFu);
    EXPECT_FALSE(readItems(word(0x7FFF) + items).has_value());
}

}  // namespace
