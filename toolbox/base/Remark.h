// Notes for Remarks().

#ifndef TOOLBOX_BASE_REMARK_H
#define TOOLBOX_BASE_REMARK_H

#include <string>

namespace Toolbox {

/// Adds the clause `what` to the remarks, unless it is there already.
void remark(const std::string& what);

}  // namespace Toolbox

#endif
