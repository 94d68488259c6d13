// The two resources that describe an alert: 'ALRT', its window, and 'DITL', the items in it.

#ifndef HOST_RESOURCES_ALERTTEMPLATE_H
#define HOST_RESOURCES_ALERTTEMPLATE_H

#include "host/resources/ByteWriter.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Resources {

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
