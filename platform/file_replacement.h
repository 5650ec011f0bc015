// Rewriting a file so that nobody ever finds half of it.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/file_error.h"

namespace vantrace {

/// Puts `content` in the place of the file: written beside it under a name that ends in ".tmp", flushed to
/// the disk, then renamed. Whoever kills the program finds the old file or the new one, whole. Without a mode
/// the new file has that of the old one, or 0644. A symbolic link stays, and the file behind it is replaced.
/// Throws FileError; then the old file is untouched and nothing is left beside it. What isn't a regular file
/// is never replaced.
void replaceFile(const std::filesystem::path& path, std::string_view content,
                 std::optional<mode_t> mode = std::nullopt);

/// A rename lasts through a power failure only when the folder has been flushed too. Some file systems can't;
/// the file is whole all the same.
void flushFolderOf(const std::filesystem::path& file);

}  // namespace vantrace
