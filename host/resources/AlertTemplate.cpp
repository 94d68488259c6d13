#include "host/resources/AlertTemplate.h"

#include <algorithm>
#include <stdexcept>

namespace Resources {

namespace {

constexpr unsigned EVERY_STAGE = 0x5555;  // four times: item 1 is the default, drawn, one beep
constexpr unsigned ALERT_POSITION_MAIN_SCREEN = 0x300A;
constexpr std::size_t LONGEST_TEXT = 255;  // its length is one byte

void putRectangle(ByteWriter& writer, const Rectangle& rectangle)
{
    for (const std::int16_t edge : {rectangle.top, rectangle.left, rectangle.bottom, rectangle.right})
        writer.put16(static_cast<std::uint16_t>(edge));
}

void requireShortAscii(const std::string& text)
{
    const auto isAscii = [](char character) { return character >= 0x20 && character < 0x7F; };
    if (text.size() > LONGEST_TEXT || !std::all_of(text.begin(), text.end(), isAscii))
        throw std::invalid_argument("an item's text must be at most 255 ASCII characters");
}

}  // namespace

Bytes alertTemplate(const Rectangle& bounds, std::int16_t itemListId)
{
    ByteWriter writer;
    putRectangle(writer, bounds);
    writer.put16(static_cast<std::uint16_t>(itemListId)).put16(EVERY_STAGE).put16(ALERT_POSITION_MAIN_SCREEN);
    return writer.bytes();
}

Bytes dialogItemList(const std::vector<DialogItem>& items)
{
    if (items.empty())
        throw std::invalid_argument("an alert needs an item");
    ByteWriter writer;
    writer.put16(static_cast<std::uint16_t>(items.size() - 1));
    for (const DialogItem& item : items) {
        requireShortAscii(item.text);
        writer.putZeros(4);  // for a handle, in memory
        putRectangle(writer, item.bounds);
        writer.put8(item.kind)
            .put8(static_cast<std::uint8_t>(item.text.size()))
            .putText(item.text)
            .putZeros(item.text.size() % 2);  // items begin at even positions
    }
    return writer.bytes();
}

}  // namespace Resources
