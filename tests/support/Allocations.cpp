#include "tests/support/Allocations.h"

#include <atomic>
#include <cstdlib>

namespace {

const std::size_t MAX_RECORDED = 4096;

std::atomic<long> liveBlocks{0};  // threads of a test may count too, while none is recorded
bool isRecording = false;
bool (*isExempt)() = nullptr;
int refusedNumber = -1;
allocations::Refused refusedThen = allocations::ONE;
int asked = 0;
bool hasRefused = false;
std::size_t recorded = 0;
std::size_t recordedSizes[MAX_RECORDED];

}  // namespace

void* operator new(std::size_t size)
{
    if (isRecording && (isExempt == nullptr || !isExempt())) {
        if (asked++ == refusedNumber || (hasRefused && refusedThen == allocations::ONE_AND_ALL_AFTER)) {
            hasRefused = true;
            throw std::bad_alloc();
        }
        if (recorded < MAX_RECORDED)
            recordedSizes[recorded++] = size;
    }
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
    ++liveBlocks;
    return block;
}

void operator delete(void* block) noexcept
{
    if (block == nullptr)
        return;
    --liveBlocks;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void operator delete[](void* block) noexcept
{
    operator delete(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    operator delete(block);
}

namespace allocations {

long live()
{
    return liveBlocks;
}

void exempt(bool (*condition)())
{
    isExempt = condition;
}

void start(int refused, Refused refuse)
{
    refusedNumber = refused;
    refusedThen = refuse;
    asked = 0;
    hasRefused = false;
    recorded = 0;
    isRecording = true;
}

std::vector<std::size_t> stop()
{
    isRecording = false;
    return std::vector<std::size_t>(recordedSizes, recordedSizes + recorded);
}

bool wasRefused()
{
    return hasRefused;
}

}  // namespace allocations
