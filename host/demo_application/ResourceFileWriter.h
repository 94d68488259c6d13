// Makes a resource file in the classic format: a header, the data of all resources, and a map that says what is where;
// and the two resources in it that describe an alert: 'ALRT', its window, and 'DITL', the items in it.

#ifndef HOST_DEMO_APPLICATION_RESOURCEFILEWRITER_H
#define HOST_DEMO_APPLICATION_RESOURCEFILEWRITER_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Resources {

using Bytes = std::vector<std::uint8_t>;

/// Puts big-endian numbers and bytes one after the other. Every call adds to the end, and returns the writer so that
/// calls can be chained.
class ByteWriter {
public:
    ByteWriter& put8(unsigned number) { return put(number, 1); }
    ByteWriter& put16(unsigned number) { return put(number, 2); }
    ByteWriter& put24(unsigned number) { return put(number, 3); }
    ByteWriter& put32(unsigned number) { return put(number, 4); }

    ByteWriter& putZeros(std::size_t count)
    {
        m_bytes.insert(m_bytes.end(), count, 0);
        return *this;
    }

    ByteWriter& putBytes(const Bytes& bytes)
    {
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
        return *this;
    }

    ByteWriter& putText(std::string_view text)
    {
        m_bytes.insert(m_bytes.end(), text.begin(), text.end());
        return *this;
    }

    const Bytes& bytes() const { return m_bytes; }

private:
    // The low `width` bytes of `number`, the highest first.
    ByteWriter& put(unsigned number, int width)
    {
        for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
            m_bytes.push_back(static_cast<std::uint8_t>(number >> shift));
        return *this;
    }

    Bytes m_bytes;
};

class ResourceFileWriter {
public:
    /// Adds a resource: `type` is four characters, such as 'ALRT'. Throws std::invalid_argument when there is one of
    /// this type and id.
    void add(std::uint32_t type, std::int16_t id, const Bytes& data);

    /// The file with all resources, ordered by type and id, without names or attributes. Throws std::length_error when
    /// they are more than the format can hold.
    Bytes bytes() const;

private:
    std::map<std::uint32_t, std::map<std::int16_t, Bytes>> m_resources;  // by type, then by id
};

struct Rectangle {
    std::int16_t top;
    std::int16_t left;
    std::int16_t bottom;
    std::int16_t right;
};

/// One item of an alert. The first item is the default button.
struct DialogItem {
    enum Kind : std::uint8_t { Button = 4, StaticText = 8 | 0x80 };  // a text is disabled: hitting it ends nothing

    Kind kind;
    Rectangle bounds;  // in the alert's window
    std::string text;
};

/// The 'ALRT' of an alert with `bounds`, centred a little above the middle of the main screen, whose items are those of
/// the 'DITL' of this id. It is drawn at every stage, with item 1 as its default and one beep.
Bytes alertTemplate(const Rectangle& bounds, std::int16_t itemListId);

/// The 'DITL' with these items. Texts are ASCII. Throws std::invalid_argument for one that is not, or that is longer
/// than 255 characters, and when there is no item.
Bytes dialogItemList(const std::vector<DialogItem>& items);

}  // namespace Resources

#endif
