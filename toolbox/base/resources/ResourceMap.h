// The classic resource format: from the bytes of a fork to the table of its resources, or to an error.
//
// The fork is not trusted. Whatever it holds, nothing outside of it is read, and the work grows with its length only.

#ifndef TOOLBOX_BASE_RESOURCES_RESOURCEMAP_H
#define TOOLBOX_BASE_RESOURCES_RESOURCEMAP_H

#include "toolbox/base/BigEndianBytes.h"

#include <Carbon/Resources.h>

#include <map>
#include <utility>

namespace Toolbox {

/// What a resource is known by in its file.
using ResourceKey = std::pair<ResType, SInt16>;

/// Where the data of a resource lies in its fork, in bytes.
struct ResourcePlace {
    std::size_t offset;
    std::size_t length;
    bool isCompressed;  // by Apple's own scheme, which is not known here
};

using ResourceMap = std::map<ResourceKey, ResourcePlace>;

/// The largest fork that the format has room for: a data area with 24-bit offsets, and a map whose lists are placed by
/// 16-bit offsets and counts.
constexpr std::size_t MAX_FORK_LENGTH = 256 + (std::size_t(16) << 20) + (std::size_t(1) << 20);

/// Puts the resources of `fork` into `*resources`; of several with one type and id, the first. Every place that it
/// gives lies within the fork.
/// Returns noErr; eofErr for a fork shorter than a header; mapReadErr, with `*resources` empty, when the header, the
/// map or any of its entries points where it cannot.
OSErr readResourceMap(const BigEndianBytes& fork, ResourceMap* resources);

}  // namespace Toolbox

#endif
