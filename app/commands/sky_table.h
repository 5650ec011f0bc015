// The favourites in the sky of the observer at one instant.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/command.h"
#include "orbit/track_result.h"

namespace vantrace {

/// The names of faves.dat that element files hold, each one once; the file stays as it is. The others are
/// told on the error stream. Throws FileError where there is no such file.
std::vector<std::string> knownFavourites(const CommandContext& context);

struct SkyEntry {
    std::string name;
    /// Missing where it could not be computed; the error stream told why.
    std::optional<TrackResult> place;
    /// Of one that is up, the end of this pass and the rise of the next; nothing within 30 days is nothing.
    std::optional<Instant> nextRise;
    std::optional<Instant> nextSet;
    /// False where anything of it could not be computed.
    bool isComplete = true;

    bool isUp() const { return place && place->elevationRad > 0.0; }
};

SkyEntry skyEntry(const CommandContext& context, const std::string& name, const Instant& time);

}  // namespace vantrace
