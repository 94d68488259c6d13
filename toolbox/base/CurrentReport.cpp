#include "toolbox/base/CurrentReport.h"

#include "toolbox/base/NeverDestroyed.h"

#include <algorithm>
#include <utility>

namespace Toolbox {

CallReport& currentReport()
{
    // Never destroyed: code that runs until the process ends still makes remarks.
    return neverDestroyed<struct Current, CallReport>();
}

void remark(const std::string& what)
{
    std::vector<std::string>& remarks = currentReport().remarks;
    if (std::find(remarks.begin(), remarks.end(), what) == remarks.end())
        remarks.push_back(what);
}

CallReport TakeReport()
{
    return std::exchange(currentReport(), CallReport());
}

}  // namespace Toolbox
