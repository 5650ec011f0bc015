// Where the program folder is: beside the executable, the user's own copy of what was installed, or as named.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/file_error.h"
#include "platform/user_environment.h"

namespace vantrace {

struct ProgramFolderRequest {
    /// The executable, with its folder.
    std::filesystem::path executable;
    UserEnvironment user;
    /// The folder that the user named, if any.
    std::optional<std::filesystem::path> named;
};

/// The folder that the program reads and writes, absolute, ended by exactly one '/'. Portable: the folder of
/// the executable. Installed (the executable in <prefix>/bin, and <prefix>/share/vantrace is a folder):
/// "vantrace" in the user's data folder, filled from there when it doesn't exist; it is copied beside and
/// renamed, so that half a folder is never taken for a whole one; where that fails, the installed folder
/// itself. Throws FileError where a named folder doesn't exist, and where a file stands in the place of the
/// user's.
std::string programFolder(const ProgramFolderRequest& request);

/// The same for programs that only read: makes nothing, and is the installed folder itself for as long as the
/// user has none.
std::string readOnlyProgramFolder(const ProgramFolderRequest& request);

/// The path of the running program. Throws FileError where the machine doesn't tell.
std::filesystem::path executablePath();

}  // namespace vantrace
