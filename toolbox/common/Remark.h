// Notes for Remarks().

#ifndef TOOLBOX_COMMON_REMARK_H
#define TOOLBOX_COMMON_REMARK_H

#include <string>

namespace Toolbox {

/// Adds the clause `what` to the remarks, unless it is there already.
void remark(const std::string& what);

}  // namespace Toolbox

#endif
