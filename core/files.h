// Small questions about files.
#pragma once

#include <filesystem>
#include <string>

namespace vantrace {

/// Whether there is a file or folder of that name. In the last component "*" stands for any signs and "?" for
/// any one. False where the folder isn't there or can't be looked into.
bool FileExists(const std::filesystem::path& path);

/// The short form of a path: on this platform the canonical absolute one. A file that doesn't exist is made
/// for the time of the question, empty. Empty where that fails.
std::string ShortPathOf(const std::filesystem::path& path);

}  // namespace vantrace
