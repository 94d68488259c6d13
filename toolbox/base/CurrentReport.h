// The report that TakeReport will give, while it is being written.

#ifndef TOOLBOX_BASE_CURRENTREPORT_H
#define TOOLBOX_BASE_CURRENTREPORT_H

#include <Toolbox/CallReport.h>

namespace Toolbox {

/// The report of what has happened since the last one was taken.
CallReport& currentReport();

/// Adds the clause `what` to its remarks, unless it is there already.
void remark(const std::string& what);

}  // namespace Toolbox

#endif
