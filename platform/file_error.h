// The one exception of file work.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vantrace {

/// what() is the path, a colon and the reason.
class FileError : public std::runtime_error {
  public:
    FileError(const std::filesystem::path& path, std::string_view reason)
        : std::runtime_error(path.string() + ": " + std::string(reason)) {}
};

}  // namespace vantrace
