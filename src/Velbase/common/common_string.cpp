// The representation: making, sharing and lengthening texts.

#include "Velbase/common/common_string.h"

#include <cstdint>

#include "Velbase/common/common_string_buffer.h"

static_assert(sizeof(unsigned) == 4, "lengths and positions are 32-bit numbers");

String::String() = default;

String::String(std::nullptr_t)
    : String()
{
}

String::String(const char* text)
    : m_text(text == nullptr ? nullptr : newBuffer(std::string_view(text)).release())
{
}

String::String(const char* text, unsigned maxLength)
    : m_text(text == nullptr ? nullptr : newBuffer(upToZero(text, maxLength)).release())
{
}

String::String(std::unique_ptr<std::string> text)
    : m_text(text.release())
{
}

void String::Truncate(unsigned length)
{
    if (length < Length())
        m_text.reset(newBuffer(view().substr(0, length)).release());
}

void String::detachAndExtend(unsigned index)
{
    if (index < Length()) {
        m_text.reset(newBuffer(view()).release());
        return;
    }
    auto buffer = newZeroBuffer(std::uint64_t(index) + 1);
    view().copy(buffer->data(), Length());
    m_text.reset(buffer.release());
}

void String::write(unsigned index, char c)
{
    if (!m_text.unique() || index >= Length())
        detachAndExtend(index);
    (*m_text)[index] = c;
}
