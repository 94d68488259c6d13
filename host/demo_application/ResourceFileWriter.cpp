#include "host/demo_application/ResourceFileWriter.h"

#include <algorithm>
#include <stdexcept>

namespace Resources {

namespace {

// ---- The file

constexpr std::size_t DATA_START = 256;         // the header, and 240 bytes that belong to the system
constexpr std::size_t MAP_HEADER_SIZE = 28;     // the type list follows it
constexpr std::size_t TYPE_SIZE = 8;            // of one entry of the type list
constexpr std::size_t LARGEST_DATA = 0xFFFFFF;  // references hold offsets of 24 bits
constexpr std::size_t LARGEST_MAP = 0xFFFF;     // and the map's own offsets 16

unsigned checked(std::size_t size, std::size_t largest)
{
    if (size > largest)
        throw std::length_error("the resources are more than a resource file can hold");
    return static_cast<unsigned>(size);
}

// ---- Alerts in it

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

void ResourceFileWriter::add(std::uint32_t type, std::int16_t id, const Bytes& data)
{
    if (!m_resources[type].emplace(id, data).second)
        throw std::invalid_argument("there is a resource of this type and id already");
}

Bytes ResourceFileWriter::bytes() const
{
    ByteWriter data;
    ByteWriter types;       // the type list
    ByteWriter references;  // all reference lists, which follow it

    const std::size_t typeListSize = 2 + TYPE_SIZE * m_resources.size();
    types.put16(checked(m_resources.size(), LARGEST_MAP) - 1);  // counts are less one: none is 0xFFFF
    for (const auto& [type, resources] : m_resources) {
        types.put32(type)
            .put16(checked(resources.size(), LARGEST_MAP) - 1)
            .put16(checked(typeListSize + references.bytes().size(), LARGEST_MAP));
        for (const auto& [id, bytes] : resources) {
            references.put16(static_cast<std::uint16_t>(id))
                .put16(0xFFFF)  // no name
                .put8(0)        // no attributes
                .put24(checked(data.bytes().size(), LARGEST_DATA))
                .put32(0);  // for the handle, in memory
            data.put32(checked(bytes.size(), LARGEST_DATA)).putBytes(bytes);
        }
    }

    const unsigned dataSize = checked(data.bytes().size(), LARGEST_DATA);
    const unsigned nameList = checked(MAP_HEADER_SIZE + types.bytes().size() + references.bytes().size(), LARGEST_MAP);
    ByteWriter header;
    header.put32(DATA_START).put32(DATA_START + dataSize).put32(dataSize).put32(nameList);

    ByteWriter file;
    file.putBytes(header.bytes()).putZeros(DATA_START - header.bytes().size()).putBytes(data.bytes());
    file.putBytes(header.bytes())
        .putZeros(4 + 2 + 2)  // for the next map and the file's number, in memory; the file's attributes
        .put16(MAP_HEADER_SIZE)
        .put16(nameList)
        .putBytes(types.bytes())
        .putBytes(references.bytes());
    return file.bytes();
}

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
