// Writes the bytes of 'ALRT' and 'DITL' resources, field by field as the formats say.

#ifndef TESTS_TOOLBOX_CORE_DIALOGS_ALERTBYTES_H
#define TESTS_TOOLBOX_CORE_DIALOGS_ALERTBYTES_H

#include <Carbon/MacTypes.h>

#include <string>
#include <vector>

/// The `width` bytes of `value`, the highest first.
inline std::string bigEndian(unsigned long long value, std::size_t width)
{
    std::string bytes;
    for (std::size_t left = width; left > 0; --left)
        bytes += static_cast<char>(value >> (8 * (left - 1)) & 0xFF);
    return bytes;
}

inline std::string word(int value)
{
    return bigEndian(static_cast<unsigned>(value) & 0xFFFF, 2);
}

inline std::string rectangle(const Rect& bounds)
{
    return word(bounds.top) + word(bounds.left) + word(bounds.bottom) + word(bounds.right);
}

constexpr Rect ALERT_BOUNDS{40, 60, 160, 380};

/// An 'ALRT' without the position that newer ones have.
inline std::string alertTemplate(int itemListID, int stages = 0x5555, const Rect& bounds = ALERT_BOUNDS)
{
    return rectangle(bounds) + word(itemListID) + word(stages);
}

enum ItemType : unsigned { BUTTON = 4, CHECK_BOX = 5, STATIC_TEXT = 8, EDIT_TEXT = 16, ICON = 32, DISABLED = 0x80 };

/// An item of a 'DITL', padded to an even length.
inline std::string dialogItem(unsigned type, const std::string& data, const Rect& bounds = {10, 20, 30, 90})
{
    const std::string item =
        bigEndian(0, 4) + rectangle(bounds) + bigEndian(type, 1) + bigEndian(data.size(), 1) + data;
    return item.size() % 2 == 0 ? item : item + '\0';
}

inline std::string itemList(const std::vector<std::string>& items)
{
    std::string list = word(static_cast<int>(items.size()) - 1);
    for (const std::string& each : items)
        list += each;
    return list;
}

#endif
