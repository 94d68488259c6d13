#include "tests/toolbox/base/RefusingAllocations.h"

#include <cstdlib>
#include <new>

namespace {

constexpr int UNLIMITED = -1;
thread_local int allowed = UNLIMITED;
thread_local bool refused = false;

void* allocate(std::size_t size)
{
    if (allowed == 0) {
        refused = true;
        throw std::bad_alloc();
    }
    if (allowed > 0)
        --allowed;
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

}  // namespace

void* operator new(std::size_t size)
{
    return allocate(size);
}

void* operator new[](std::size_t size)
{
    return allocate(size);
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete[](void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    std::free(block);
}

RefusingAllocations::RefusingAllocations(int number)
{
    refused = false;
    allowed = number;
}

RefusingAllocations::~RefusingAllocations()
{
    allowed = UNLIMITED;
}

bool RefusingAllocations::refusedOne() const
{
    return refused;
}
