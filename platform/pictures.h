// Pictures as files.
#pragma once

#include <filesystem>
#include <string_view>

#include "platform/surface.h"

namespace vantrace {

class Pictures {
  public:
    virtual ~Pictures() = default;

    /// The picture in a file, a JPEG or a PNG, as a surface of one device pixel to a pixel. What can be seen
    /// through is black. Throws FileError where there is no such file, where it is no picture, and where it
    /// is larger than a map could be.
    virtual Surface load(const std::filesystem::path& file) = 0;
    /// A picture that the program brings with it, by its name ("sun", "sun_mask"), drawn for a device with so
    /// many pixels to each of ours. Throws std::invalid_argument for a name that is none.
    virtual Surface builtIn(std::string_view name, double devicePixelsPerPixel) = 0;
    /// Writes the surface's device pixels as a PNG. The file is the old one or the new one, whole, at every
    /// instant. Throws FileError.
    virtual void save(const Surface& surface, const std::filesystem::path& file) = 0;
};

}  // namespace vantrace
