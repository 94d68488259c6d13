// Where files are, and whether two names lead to one.

#ifndef HOST_PATHS_H
#define HOST_PATHS_H

#include <filesystem>
#include <system_error>

namespace Host {

/// What the host brings along: the demo application and the system's frameworks. It is the folder that the host's own
/// executable lies in, not a link to it, so that the build tree and an installation are alike and both can be moved.
std::filesystem::path supportFolder();

/// Where `name` leads, whether anything is there or not; empty, with the reason in `error`, when that cannot be told.
std::filesystem::path placeOf(const std::filesystem::path& name, std::error_code& error);

/// Whether both names lead to one file, whether it is there or not.
bool areOne(const std::filesystem::path& one, const std::filesystem::path& other);

/// Whether `path`, with every link on its way followed, lies in `folder`. False when either is not there.
bool isInside(const std::filesystem::path& folder, const std::filesystem::path& path);

/// Whether `folder` holds `file`, under this name or another, or would if it were made.
bool holds(const std::filesystem::path& folder, const std::filesystem::path& file);

/// Whether `file` is the program or a library that is loaded, under whatever name.
bool isLoaded(const std::filesystem::path& file);

}  // namespace Host

#endif
