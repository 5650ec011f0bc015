// The current directory, where files without a folder in their names land.
#pragma once

#include <filesystem>

namespace vantrace {

/// Whether a file can be made in a folder. Tries it, since rights alone don't tell; nothing is left behind.
bool canMakeFilesIn(const std::filesystem::path& folder);

/// Makes a folder the current directory where no file can be made in the present one. Where that fails all
/// stays as it is.
void leaveUnwritableFolder(const std::filesystem::path& refuge);

}  // namespace vantrace
