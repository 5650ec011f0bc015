// Pictures as files, by Qt's image readers.
#pragma once

#include "platform/pictures.h"

namespace vantrace {

class QtPictures final : public Pictures {
  public:
    Surface load(const std::filesystem::path& file) override;
    Surface builtIn(std::string_view name, double devicePixelsPerPixel) override;
    void save(const Surface& surface, const std::filesystem::path& file) override;
};

}  // namespace vantrace
