#include "Velbase/common/common_string_buffer.h"

std::unique_ptr<std::string> newBuffer(std::initializer_list<std::string_view> pieces)
{
    std::uint64_t length = 0;
    for (const std::string_view piece : pieces)
        length += piece.size();
    BufferWriter writer(length);
    for (const std::string_view piece : pieces)
        writer.write(piece);
    return writer.finish();
}

std::unique_ptr<std::string> newZeroBuffer(std::uint64_t length)
{
    return std::make_unique<std::string>(checkedLength(length), '\0');
}

BufferWriter::BufferWriter(std::uint64_t length)
    : m_used(0)
{
    const std::size_t room = checkedLength(length);
    if (room <= sizeof m_collected)
        return;
    m_buffer = std::make_unique<std::string>();
    m_buffer->reserve(room);
}

std::unique_ptr<std::string> BufferWriter::finish()
{
    if (m_buffer == nullptr)
        return std::make_unique<std::string>(m_collected, m_used);
    m_buffer->append(m_collected, m_used);
    return std::move(m_buffer);
}

void BufferWriter::flushAndWrite(std::string_view piece)
{
    m_buffer->append(m_collected, m_used);
    m_used = 0;
    if (piece.size() < sizeof m_collected)
        collect(piece);
    else
        m_buffer->append(piece);
}
