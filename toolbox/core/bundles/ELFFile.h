// Whether a file of code is all there.

#ifndef TOOLBOX_CORE_BUNDLES_ELFFILE_H
#define TOOLBOX_CORE_BUNDLES_ELFFILE_H

#include <filesystem>

namespace Toolbox {

/// Whether everything that would be mapped of `file`, by its own list of segments, is there. The system's loader does
/// not look: it maps a file that was cut short, and the process dies of the first access past its end. Anything else
/// that is wrong with a file the loader finds itself.
bool isWholeELFFile(const std::filesystem::path& file);

}  // namespace Toolbox

#endif
