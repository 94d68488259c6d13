#include "Velbase/common/common_string_buffer.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

// A length that String cannot tell, or std::string not hold, is a failure to allocate, whose exception std::string
// would name differently.
void checkLength(std::uint64_t length)
{
    const std::uint64_t longest =
        std::min<std::uint64_t>(std::numeric_limits<std::uint32_t>::max(), std::string().max_size());
    if (length > longest)
        throw std::bad_alloc();
}

}  // namespace

std::unique_ptr<std::string> newBuffer(std::uint64_t length)
{
    checkLength(length);
    const std::size_t room = static_cast<std::size_t>(length);
    // reserve never takes less than twice what is there already, so that it would take too much for a text that is just
    // too long for the room inside std::string itself. The fill constructor takes what it needs.
    if (room < 2 * std::string().capacity()) {
        auto buffer = std::make_unique<std::string>(room, '\0');
        buffer->clear();
        return buffer;
    }
    auto buffer = std::make_unique<std::string>();
    buffer->reserve(room);
    return buffer;
}

std::unique_ptr<std::string> newBuffer(std::string_view text)
{
    checkLength(text.size());
    return std::make_unique<std::string>(text);
}

std::unique_ptr<std::string> newBuffer(std::initializer_list<std::string_view> pieces)
{
    std::uint64_t length = 0;
    for (const std::string_view piece : pieces)
        length += piece.size();
    auto buffer = newBuffer(length);
    for (const std::string_view piece : pieces)
        buffer->append(piece);
    return buffer;
}
