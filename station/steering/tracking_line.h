// The line that the tracker publishes once a second, read strictly: it comes from outside.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "station/steering/direction.h"

namespace vantrace {

struct TrackingLine {
    /// As it stands in the line: blanks of the satellite's name are "_". "moon" where it is the moon.
    std::string name;
    bool isMoon = false;
    Direction direction;
    /// What the transmitter and the receiver are tuned to, in Hz; 0 where the satellite has no frequency,
    /// or one beyond a terahertz. Nothing for the moon.
    std::optional<double> uplinkHz;
    std::optional<double> downlinkHz;
    /// By how much a signal of 100 MHz comes shifted, in Hz: positive while the satellite comes nearer.
    double dopplerHzAt100MHz = 0.0;
};

/// A longer line is none.
inline constexpr std::size_t longestTrackingLine = 500;

/// Reads "SN<name> AZ<deg> EL<deg> UP<Hz> DN<Hz> DO<Hz>", of the moon "SNmoon AZ<deg> EL<deg> DO<Hz>", with
/// one blank between. AZ, EL and DO may have a decimal comma. Nothing for any other text; `fault` then says
/// what is wrong with it.
std::optional<TrackingLine> readTrackingLine(std::string_view text, std::string& fault);

/// A line from outside as something to show: signs that could steer a terminal are "?", and it has an end.
std::string shownLine(std::string_view text);

}  // namespace vantrace
