// What the toolbox holds that nobody has released or disposed of yet: how a leak shows.

#ifndef TOOLBOX_LIVEOBJECTS_H
#define TOOLBOX_LIVEOBJECTS_H

#include <cstddef>
#include <map>
#include <string>

namespace Toolbox {

/// How many objects of each kind are alive, by the kind's name ("handle", "window", "Core Foundation object").
std::map<std::string, std::size_t> CountLiveObjects();

}  // namespace Toolbox

#endif
