// Pictures that a test has put there.
#pragma once

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/file_error.h"
#include "platform/pictures.h"

namespace vantrace {

class FakePictures final : public Pictures {
  public:
    Surface load(const std::filesystem::path& file) override {
        const auto found = files.find(file.string());
        if (found == files.end()) throw FileError(file, "no such picture");
        return found->second;
    }
    /// Those that nobody put there are black, 32 by 32 pixels.
    Surface builtIn(std::string_view name, double devicePixelsPerPixel) override {
        const auto found = drawn.find(std::string(name));
        return found == drawn.end() ? Surface(32, 32, devicePixelsPerPixel) : found->second;
    }
    void save(const Surface& surface, const std::filesystem::path& file) override {
        files.insert_or_assign(file.string(), surface);
    }

    std::map<std::string, Surface> files;
    std::map<std::string, Surface> drawn;
};

}  // namespace vantrace
