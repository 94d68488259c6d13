#include "Velbase/common/common_string_buffer.h"

#include "Velbase/common/common_string.h"

#include <limits>
#include <new>

String::Buffer::Buffer(std::uint32_t length)
    : m_length(length)
{
    characters()[length] = '\0';
}

std::unique_ptr<String::Buffer> String::Buffer::make(std::uint64_t length)
{
    const std::uint64_t size = sizeof(Buffer) + length + 1;
    if (length > std::numeric_limits<std::uint32_t>::max() || size > std::numeric_limits<std::size_t>::max())
        throw std::bad_alloc();
    void* const block = ::operator new(static_cast<std::size_t>(size));
    return std::unique_ptr<Buffer>(new (block) Buffer(static_cast<std::uint32_t>(length)));
}

std::unique_ptr<String::Buffer> String::Buffer::make(std::string_view text)
{
    auto buffer = make(text.size());
    std::memcpy(buffer->characters(), text.data(), text.size());
    return buffer;
}

std::unique_ptr<String::Buffer> String::Buffer::make(std::initializer_list<std::string_view> pieces)
{
    std::uint64_t length = 0;
    for (const std::string_view piece : pieces)
        length += piece.size();
    auto buffer = make(length);
    char* end = buffer->characters();
    for (const std::string_view piece : pieces)
        end = velbase_private::write(end, piece);
    return buffer;
}

void String::Buffer::truncate(std::uint32_t length)
{
    m_length = length;
    characters()[length] = '\0';
}
