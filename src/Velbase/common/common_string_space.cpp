// White space around and inside a text.

#include <algorithm>
#include <cstring>

#include "Velbase/common/common_string.h"
#include "Velbase/common/common_string_buffer.h"

namespace {

// What Char::IsSpace answers, in comparisons of bytes, which become vector instructions. 0 or 1.
unsigned char isSpace(char c)
{
    const unsigned char byte = unsigned_byte(c);
    const unsigned char control = static_cast<unsigned char>(byte - 0x09);
    return static_cast<unsigned char>((byte == 0x20) | (byte == 0xA0) | (control <= 0x0D - 0x09));
}

const std::size_t BLOCK = 64;

// Whether all the white space in the BLOCK characters from `block` is single spaces; there is one character before
// them.
bool isSimple(const char* block)
{
    const char* const before = block - 1;
    unsigned char other = 0;
    for (std::size_t i = 0; i < BLOCK; ++i)
        other = static_cast<unsigned char>(other | (isSpace(block[i]) & (isSpace(before[i]) | (block[i] != ' '))));
    return other == 0;
}

}  // namespace

String String::StripWhiteSpace() const
{
    if (IsEmpty())
        return *this;
    std::string_view rest = view();
    while (!rest.empty() && Char(rest.front()).IsSpace())
        rest.remove_prefix(1);
    while (!rest.empty() && Char(rest.back()).IsSpace())
        rest.remove_suffix(1);
    if (rest.size() == Length())
        return *this;
    return String(newBuffer(rest));
}

String String::SimplifyWhiteSpace() const
{
    if (IsEmpty())
        return *this;
    const std::string_view text = view();
    auto buffer = newBuffer(text);
    char* const simplified = buffer->data();
    std::size_t written = 0;
    bool afterSpace = true;
    std::size_t i = 0;
    while (i < text.size()) {
        if (i > 0 && text.size() - i >= BLOCK && isSimple(text.data() + i)) {
            std::memcpy(simplified + written, text.data() + i, BLOCK);
            written += BLOCK;
            i += BLOCK;
            afterSpace = isSpace(text[i - 1]) != 0;
            continue;
        }
        // Without branches: where words end cannot be foreseen, and every character is written, to be overwritten if it
        // is not to stay.
        for (const std::size_t end = std::min(i + BLOCK, text.size()); i < end; ++i) {
            const bool space = isSpace(text[i]) != 0;
            simplified[written] = space ? ' ' : text[i];
            written += !(space && afterSpace);
            afterSpace = space;
        }
    }
    if (written > 0 && afterSpace)
        --written;
    buffer->resize(written);
    return String(std::move(buffer));
}
