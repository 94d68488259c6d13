// An 'ALRT' is the alert's bounds (4 words: top, left, bottom, right), the item list's id (word) and the stages (word),
// in four bits each, the first stage's lowest: two for the number of beeps, one that says whether the box is drawn, one
// for the default item, 1 or 2. A position (word) may follow.
//
// A 'DITL' is the number of items, less one (word), and then each item: room for a handle (4 bytes), bounds (4 words),
// kind (byte: 4 a button, 8 a static text, and more; with 0x80 it is disabled), length (byte), and that many bytes of
// title or other data, padded to an even number.

#include "toolbox/core/dialogs/AlertResources.h"

#include "toolbox/base/BigEndianBytes.h"

#include <algorithm>

namespace Toolbox {

namespace {

constexpr int LAST_STAGE = 4;
constexpr int MOST_ITEMS = 0x7FFF;  // what a DialogItemIndex can count

// Reads values one after the other. Past the end everything is 0 or empty, and whole() is false from then on: the
// callers ask once, when they have read what belongs together.
class Reader {
public:
    explicit Reader(const QByteArray& bytes)
        : m_bytes(bytes.constData(), static_cast<std::size_t>(bytes.size()))
    {
    }

    bool whole() const { return m_whole; }

    BigEndianBytes bytes(std::size_t count)
    {
        m_whole = m_whole && m_bytes.holds(m_at, count);
        if (!m_whole)
            return BigEndianBytes(nullptr, 0);
        m_at += count;
        return m_bytes.part(m_at - count, count);
    }

    std::uint32_t byte()
    {
        const BigEndianBytes one = bytes(1);
        return m_whole ? one.number8(0) : 0;
    }

    SInt16 word()
    {
        const BigEndianBytes two = bytes(2);
        return m_whole ? two.signed16(0) : SInt16{0};
    }

    Rect rect()
    {
        Rect read{};
        for (SInt16* const edge : {&read.top, &read.left, &read.bottom, &read.right})
            *edge = word();
        return read;
    }

    // Items begin at even positions; the last one's padding may be missing.
    void skipPadding() { m_at += m_at % 2; }

private:
    const BigEndianBytes m_bytes;
    std::size_t m_at = 0;
    bool m_whole = true;
};

DialogItemKind itemKind(unsigned type)
{
    switch (type) {
    case 4:
        return DialogItemKind::Button;
    case 8:
        return DialogItemKind::StaticText;
    default:
        return DialogItemKind::Other;
    }
}

DialogItem readItem(Reader& reader)
{
    reader.bytes(4);  // a handle, once the item is in memory
    DialogItem item;
    item.bounds = reader.rect();
    const unsigned type = reader.byte();
    item.enabled = (type & 0x80) == 0;
    item.kind = itemKind(type & 0x7F);
    const BigEndianBytes title = reader.bytes(reader.byte());
    item.title = QByteArray(reinterpret_cast<const char*>(title.data()), static_cast<qsizetype>(title.length()));
    reader.skipPadding();
    return item;
}

}  // namespace

AlertStage AlertTemplate::stage(int occurrence) const
{
    const int shift = 4 * (std::clamp(occurrence, 1, LAST_STAGE) - 1);
    const unsigned bits = static_cast<unsigned>(stages) >> shift;
    // The two lowest bits are how often it beeps, which no display does.
    return {(bits & 4) != 0, static_cast<SInt16>((bits & 8) != 0 ? 2 : 1)};
}

std::optional<AlertTemplate> readAlertTemplate(const QByteArray& bytes)
{
    Reader reader(bytes);
    AlertTemplate alert;
    alert.bounds = reader.rect();
    alert.itemListID = reader.word();
    alert.stages = static_cast<UInt16>(reader.word());
    const bool isEmpty = alert.bounds.right <= alert.bounds.left || alert.bounds.bottom <= alert.bounds.top;
    if (!reader.whole() || isEmpty)
        return std::nullopt;
    return alert;
}

std::optional<std::vector<DialogItem>> readItemList(const QByteArray& bytes)
{
    Reader reader(bytes);
    const int count = reader.word() + 1;  // the list stores its count less one, -1 for none
    if (!reader.whole() || count < 0 || count > MOST_ITEMS)
        return std::nullopt;

    std::vector<DialogItem> items;
    while (reader.whole() && static_cast<int>(items.size()) < count)
        items.push_back(readItem(reader));
    if (!reader.whole())
        return std::nullopt;
    return items;
}

}  // namespace Toolbox
