// A resource fork, its numbers big-endian:
//
//     fork       = header and, anywhere behind it, the data area and the map
//     header     = offset of the data area (4 bytes) and of the map (4), length of the data area (4) and of the map (4)
//     data area  = { length (4) as many bytes }
//     map        = copy of the header, often left zero (16) for use in memory (8)
//                  offset of the type list (2) and of the names (2), both from the map's start
//                  and, anywhere behind these, the type list, the reference lists and the names
//     type list  = number of types, less 1 (2) { type }
//     type       = code (4) number of its references, less 1 (2) offset of the first from the type list's start (2)
//     reference  = id (2) offset of the name (2) attributes (1) offset in the data area (3) for use in memory (4)

#include "toolbox/base/resources/ResourceMap.h"

#include <optional>

namespace Toolbox {

namespace {

constexpr std::size_t HEADER_LENGTH = 16;
constexpr std::size_t HEADER_DATA_OFFSET = 0;
constexpr std::size_t HEADER_MAP_OFFSET = 4;
constexpr std::size_t HEADER_DATA_LENGTH = 8;
constexpr std::size_t HEADER_MAP_LENGTH = 12;

constexpr std::size_t MAP_MIN_LENGTH = 30;
constexpr std::size_t MAP_TYPE_LIST_OFFSET = 24;

constexpr std::size_t TYPE_COUNT_LENGTH = 2;
constexpr std::uint32_t NO_TYPES = 0xFFFF;
constexpr std::size_t TYPE_LENGTH = 8;
constexpr std::size_t TYPE_CODE = 0;
constexpr std::size_t TYPE_COUNT = 4;
constexpr std::size_t TYPE_LIST_OFFSET = 6;

constexpr std::size_t REFERENCE_LENGTH = 12;
constexpr std::size_t REFERENCE_ID = 0;
constexpr std::size_t REFERENCE_ATTRIBUTES = 4;
constexpr std::size_t REFERENCE_DATA_OFFSET = 5;
constexpr std::uint32_t ATTRIBUTE_COMPRESSED = 1;

constexpr std::size_t DATA_LENGTH_LENGTH = 4;

struct Area {
    std::size_t offset;
    std::size_t length;
};

std::optional<Area> areaInHeader(const BigEndianBytes& fork, std::size_t offsetField, std::size_t lengthField)
{
    const Area area = {fork.number32(offsetField), fork.number32(lengthField)};
    return fork.holds(area.offset, area.length) ? std::optional(area) : std::nullopt;
}

class MapReader {
public:
    MapReader(const BigEndianBytes& fork, Area data, Area map, ResourceMap* resources)
        : m_dataOffset(data.offset)
        , m_data(fork.part(data.offset, data.length))
        , m_map(fork.part(map.offset, map.length))
        , m_resources(resources)
    {
    }

    // False when anything points where it cannot.
    bool readAll()
    {
        if (m_map.length() < MAP_MIN_LENGTH)
            return false;
        m_typeList = m_map.number16(MAP_TYPE_LIST_OFFSET);
        if (!m_map.holds(m_typeList, TYPE_COUNT_LENGTH))
            return false;
        const std::uint32_t lastType = m_map.number16(m_typeList);
        const std::size_t types = lastType == NO_TYPES ? 0 : lastType + 1;
        if (!m_map.holds(m_typeList + TYPE_COUNT_LENGTH, types * TYPE_LENGTH))
            return false;

        for (std::size_t i = 0; i < types; ++i) {
            if (!readType(m_typeList + TYPE_COUNT_LENGTH + i * TYPE_LENGTH))
                return false;
        }
        return true;
    }

private:
    bool readType(std::size_t entry)
    {
        const ResType type = m_map.number32(entry + TYPE_CODE);
        const std::size_t count = m_map.number16(entry + TYPE_COUNT) + 1;
        const std::size_t list = m_typeList + m_map.number16(entry + TYPE_LIST_OFFSET);
        // Lists of different types may not share references: else a small map could name billions of them.
        m_references += count;
        if (!m_map.holds(list, count * REFERENCE_LENGTH) || m_references * REFERENCE_LENGTH > m_map.length())
            return false;

        for (std::size_t i = 0; i < count; ++i) {
            if (!readReference(type, list + i * REFERENCE_LENGTH))
                return false;
        }
        return true;
    }

    bool readReference(ResType type, std::size_t entry)
    {
        const std::size_t offset = m_map.number24(entry + REFERENCE_DATA_OFFSET);
        if (!m_data.holds(offset, DATA_LENGTH_LENGTH))
            return false;
        const std::size_t length = m_data.number32(offset);
        if (!m_data.holds(offset + DATA_LENGTH_LENGTH, length))
            return false;

        const bool isCompressed = (m_map.number8(entry + REFERENCE_ATTRIBUTES) & ATTRIBUTE_COMPRESSED) != 0;
        // emplace, which leaves the first of several alone.
        m_resources->emplace(ResourceKey(type, m_map.signed16(entry + REFERENCE_ID)),
            ResourcePlace{m_dataOffset + offset + DATA_LENGTH_LENGTH, length, isCompressed});
        return true;
    }

    const std::size_t m_dataOffset;
    const BigEndianBytes m_data;
    const BigEndianBytes m_map;
    ResourceMap* const m_resources;
    std::size_t m_typeList = 0;
    std::size_t m_references = 0;
};

}  // namespace

OSErr readResourceMap(const BigEndianBytes& fork, ResourceMap* resources)
{
    resources->clear();
    if (fork.length() < HEADER_LENGTH)
        return eofErr;
    const std::optional<Area> data = areaInHeader(fork, HEADER_DATA_OFFSET, HEADER_DATA_LENGTH);
    const std::optional<Area> map = areaInHeader(fork, HEADER_MAP_OFFSET, HEADER_MAP_LENGTH);
    if (!data || !map)
        return mapReadErr;
    if (MapReader(fork, *data, *map, resources).readAll())
        return noErr;
    resources->clear();
    return mapReadErr;
}

}  // namespace Toolbox
