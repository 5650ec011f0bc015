// What the commands that paint pictures have in common.
#pragma once

#include <string>
#include <vector>

#include "app/command.h"

namespace vantrace {

class StillProgram;
class Surface;

struct PictureSize {
    int width = 0;
    int height = 0;
};

/// The options "out", "size", "at" and "primary".
std::vector<OptionSyntax> pictureOptions(const std::string& primaryFallback);

/// Where the picture goes. Throws UserError without it, and for a format that is for the other commands.
std::string pictureFile(const CommandContext& context);
/// Throws UserError for what is no size.
PictureSize pictureSize(const CommandContext& context);

/// The favourites and which of them "primary" names, counted from 0; one that is no favourite is put behind
/// them. Without the option it is the fallback.
struct PictureSatellites {
    std::vector<std::string> names;
    std::size_t primary = 0;
};
PictureSatellites pictureSatellites(const CommandContext& context);

}  // namespace vantrace
