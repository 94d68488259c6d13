#include "toolbox/core/dialogs/AlertResources.h"

#include <algorithm>

namespace Toolbox {

namespace {

constexpr int LAST_STAGE = 4;
constexpr int MOST_ITEMS = 0x7FFF;  // what a DialogItemIndex can count

// Reads big-endian values one after the other. Past the end everything is 0 or empty, and whole() is false from then
// on: the callers ask once, when they have read what belongs together.
class Reader {
public:
    explicit Reader(const QByteArray& bytes)
        : m_bytes(bytes)
    {
    }

    bool whole() const { return m_whole; }

    QByteArray bytes(int count)
    {
        m_whole = m_whole && count <= m_bytes.size() - m_at;
        if (!m_whole)
            return QByteArray();
        m_at += count;
        return m_bytes.mid(m_at - count, count);
    }

    UInt8 byte()
    {
        const QByteArray one = bytes(1);
        return one.isEmpty() ? UInt8{0} : static_cast<UInt8>(one.front());
    }

    UInt16 word()
    {
        const unsigned high = byte();
        return static_cast<UInt16>(high << 8 | byte());
    }

    SInt16 signedWord() { return static_cast<SInt16>(word()); }

    Rect rect()
    {
        Rect read{};
        read.top = signedWord();
        read.left = signedWord();
        read.bottom = signedWord();
        read.right = signedWord();
        return read;
    }

    // Items begin at even positions; the last one's padding may be missing.
    void skipPadding() { m_at = std::min(m_at + m_at % 2, m_bytes.size()); }

private:
    const QByteArray& m_bytes;
    qsizetype m_at = 0;
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
    item.title = reader.bytes(reader.byte());
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
    alert.itemListID = reader.signedWord();
    alert.stages = reader.word();
    const bool isEmpty = alert.bounds.right <= alert.bounds.left || alert.bounds.bottom <= alert.bounds.top;
    if (!reader.whole() || isEmpty)
        return std::nullopt;
    return alert;
}

std::optional<std::vector<DialogItem>> readItemList(const QByteArray& bytes)
{
    Reader reader(bytes);
    const int count = reader.signedWord() + 1;  // the list stores its count less one, -1 for none
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
