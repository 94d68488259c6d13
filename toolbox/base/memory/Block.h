// A block of zeroed memory.

#ifndef TOOLBOX_BASE_MEMORY_BLOCK_H
#define TOOLBOX_BASE_MEMORY_BLOCK_H

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

namespace Toolbox {

struct FreeBlock {
    void operator()(char* block) const { std::free(block); }
};

using Block = std::unique_ptr<char[], FreeBlock>;

/// `size` zero bytes; a size of 0 too has an address of its own. Throws std::bad_alloc.
inline Block makeBlock(std::size_t size)
{
    // calloc, since a large block then comes from the system as zeros and need not be cleared.
    Block block(static_cast<char*>(std::calloc(size == 0 ? 1 : size, 1)));
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

}  // namespace Toolbox

#endif
