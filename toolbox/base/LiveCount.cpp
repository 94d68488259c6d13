#include "toolbox/base/LiveCount.h"

#include "toolbox/base/NeverDestroyed.h"

#include <Toolbox/LiveObjects.h>

namespace Toolbox {

namespace {

// Never destroyed: objects that live until the process ends still count themselves out.
std::map<std::string, std::size_t>& counts()
{
    return neverDestroyed<struct Counts, std::map<std::string, std::size_t>>();
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

}  // namespace Toolbox
