// What the toolbox tells whoever debugs an external, where the Mac tells the external at most a status: why an alert
// was not shown, a framework not found, a right not granted.

#ifndef TOOLBOX_REMARKS_H
#define TOOLBOX_REMARKS_H

#include <string>
#include <vector>

namespace Toolbox {

/// What was remarked so far: a clause for each thing, in order, each once. Texts are UTF-8.
const std::vector<std::string>& Remarks();

}  // namespace Toolbox

#endif
