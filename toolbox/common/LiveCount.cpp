#include "toolbox/common/LiveCount.h"

#include "toolbox/common/Referenced.h"

#include <Toolbox/LiveObjects.h>

namespace Toolbox {

namespace {

// Never destroyed: objects that live until the process ends still count themselves out.
std::map<std::string, std::size_t>& counts()
{
    static auto* const byKind = new std::map<std::string, std::size_t>;
    return *byKind;
}

}  // namespace

LiveCount::LiveCount(const char* kind)
    : m_count(counts()[kind])
{
    ++m_count;
}

LiveCount::~LiveCount()
{
    --m_count;
}

std::map<std::string, std::size_t> CountLiveObjects()
{
    return counts();
}

std::uintptr_t nextReference()
{
    // Far apart and never small, so that neither a count nor an index passes for a reference.
    static std::uintptr_t last = 0x10000;
    return last += 16;
}

}  // namespace Toolbox
