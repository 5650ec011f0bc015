#pragma once

#include <string_view>

namespace vantrace {

/// How a propagation ended; anything but `ok` leaves no position.
enum class PropagationStatus {
    ok,
    meanMotionNotPositive,
    meanEccentricityOutOfRange,
    eccentricityOutOfRange,
    semiLatusRectumNegative,
    decayed,
    dragRanAway,  ///< told by searches along a path, not by a propagation
};

constexpr std::string_view reasonText(PropagationStatus status) {
    switch (status) {
        case PropagationStatus::ok:
            return "ok";
        case PropagationStatus::meanMotionNotPositive:
            return "mean motion is not positive";
        case PropagationStatus::meanEccentricityOutOfRange:
            return "mean eccentricity out of range (0 up to 1)";
        case PropagationStatus::eccentricityOutOfRange:
            return "eccentricity with its periodic terms out of range (0 to 1)";
        case PropagationStatus::semiLatusRectumNegative:
            return "semi-latus rectum is negative";
        case PropagationStatus::decayed:
            return "the satellite has decayed (orbit below the earth's surface)";
        case PropagationStatus::dragRanAway:
            return "the element set is too old for this time: its drag terms have run away";
    }
    return "";
}

}  // namespace vantrace
