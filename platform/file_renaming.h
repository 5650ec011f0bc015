// Giving a file another name, so that no other file is lost.
#pragma once

#include <filesystem>
#include <string_view>

namespace vantrace {

/// Gives a file another name in the folder where it lies. False, and nothing has happened, where the file
/// isn't there, a file of that name is there already, or the name can't be one: too long, or with a '/' or a
/// zero byte in it.
bool renameInItsFolder(const std::filesystem::path& file, std::string_view name);

}  // namespace vantrace
