#include "toolbox/base/Remark.h"

#include <Toolbox/Remarks.h>

#include <algorithm>

namespace Toolbox {

namespace {

// Never destroyed: code that runs until the process ends still makes remarks.
std::vector<std::string>& remarks()
{
    static auto* const all = new std::vector<std::string>;
    return *all;
}

}  // namespace

void remark(const std::string& what)
{
    if (std::find(remarks().begin(), remarks().end(), what) == remarks().end())
        remarks().push_back(what);
}

const std::vector<std::string>& Remarks()
{
    return remarks();
}

}  // namespace Toolbox
