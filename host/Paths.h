// Paths as the toolbox takes and gives them, and where the host's own files are.

#ifndef HOST_PATHS_H
#define HOST_PATHS_H

#include "host/CFReferences.h"

#include <filesystem>

namespace Host {

/// The URL of `path`; null when there can be none. The caller's.
CFURLRef createURL(const std::filesystem::path& path);

/// The path of `url`; empty for null.
std::filesystem::path pathOf(CFURLRef url);

/// Whether `path`, with every link on its way followed, lies in `folder`. False when either is not there.
bool isInside(const std::filesystem::path& folder, const std::filesystem::path& path);

/// What the host brings along: the demo application and the system's frameworks. It is the folder that the host's own
/// executable lies in, not a link to it, so that the build tree and an installation are alike and both can be moved.
std::filesystem::path supportFolder();

}  // namespace Host

#endif
