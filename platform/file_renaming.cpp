#include "platform/file_renaming.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>

namespace vantrace {

bool renameInItsFolder(const std::filesystem::path& file, std::string_view name) {
    constexpr std::string_view notInNames("/\0", 2);
    if (name.empty() || name.find_first_of(notInNames) != std::string_view::npos) return false;
    const std::filesystem::path target = file.parent_path() / name;
    if (renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return true;
    // Some file systems don't know that way. A second name for the file is refused where it is taken, too.
    if (errno != EINVAL || link(file.c_str(), target.c_str()) != 0) return false;
    unlink(file.c_str());
    return true;
}

}  // namespace vantrace
