// The representation: making, sharing and lengthening texts.

#include "Velbase/common/common_string.h"

#include "Velbase/common/common_string_buffer.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

static_assert(sizeof(unsigned) == 4, "lengths and positions are 32-bit numbers");

String::String() = default;

String::String(std::nullptr_t)
    : String()
{
}

String::String(const char* text)
    : m_text(text == nullptr ? nullptr : Buffer::make(std::string_view(text)).release())
{
}

String::String(const char* text, unsigned maxLength)
    : m_text(text == nullptr ? nullptr : Buffer::make(velbase_private::upToZero({text, maxLength})).release())
{
}

void String::Truncate(unsigned length)
{
    if (length < Length())
        m_text.reset(Buffer::make(view().substr(0, length)).release());
}

void String::detachAndExtend(unsigned index)
{
    const std::string_view text = view();
    auto buffer = Buffer::make(std::max<std::uint64_t>(text.size(), std::uint64_t(index) + 1));
    char* const end = velbase_private::write(buffer->characters(), text);
    std::memset(end, 0, buffer->length() - text.size());
    m_text.reset(buffer.release());
}

void String::write(unsigned index, char c)
{
    if (!m_text.unique() || index >= Length())
        detachAndExtend(index);
    m_text->characters()[index] = c;
}
