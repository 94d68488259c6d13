// White space around and inside a text.

#include "Velbase/common/common_string.h"
#include "Velbase/common/common_string_buffer.h"

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
    auto buffer = newBuffer(view());
    char* const simplified = buffer->data();
    std::size_t written = 0;
    bool afterSpace = true;
    // Without branches: where words end cannot be foreseen, and every character is written, to be overwritten if it is
    // not to stay.
    for (const char c : view()) {
        const bool space = Char(c).IsSpace();
        simplified[written] = space ? ' ' : c;
        written += !(space && afterSpace);
        afterSpace = space;
    }
    if (written > 0 && afterSpace)
        --written;
    buffer->resize(written);
    return String(std::move(buffer));
}
