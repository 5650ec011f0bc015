// The flares as they are listed: eight texts a row, nothing is held as a number.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace vantrace {

inline constexpr std::size_t flareColumns = 8;

/// In the order of the list, of flares.dat and of the reports.
enum class FlareColumn : std::size_t {
    Date,          ///< local, "05 JAN"
    Time,          ///< local, "21:05:33"
    Intensity,     ///< magnitude at the observer, as the service gave it; so are those below
    EL,            ///< degrees above the horizon
    AZ,            ///< degrees
    Distance,      ///< to the middle of the flare's track, with " km"
    MaxIntensity,  ///< magnitude in the middle of the track
    Satellite,
};

inline constexpr std::array<const char*, flareColumns> flareHeadings = {
    "Date", "Time", "Intensity", "EL", "AZ", "Distance", "Max Intensity", "Satellite"};

class FlareRow {
  public:
    std::string& operator[](FlareColumn column) { return texts[static_cast<std::size_t>(column)]; }
    const std::string& operator[](FlareColumn column) const {
        return texts[static_cast<std::size_t>(column)];
    }

    std::array<std::string, flareColumns> texts;

    friend bool operator==(const FlareRow&, const FlareRow&) = default;
};

using FlareList = std::vector<FlareRow>;

/// More rows are a failure, both of a page and of flares.dat: their counter has 16 bits.
inline constexpr std::size_t mostFlares = 32767;

}  // namespace vantrace
