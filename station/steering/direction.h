// Where an antenna looks, and where a rotator stands so that it does.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantrace {

/// A direction of the sky in degrees: azimuth from north through east, 0 up to 360; elevation -90 to 90.
struct Direction {
    double azimuthDeg = 0.0;
    double elevationDeg = 0.0;
};

/// What a rotator is told, in its own degrees: the azimuth may lie below 0 or above 360, and with an
/// elevation above 90 the antenna looks backwards, over the top.
struct RotatorPosition {
    double azimuthDeg = 0.0;
    double elevationDeg = 0.0;

    friend bool operator==(const RotatorPosition&, const RotatorPosition&) = default;
};

/// What a rotator can do, in its own degrees.
struct RotatorLimits {
    double azimuthLeastDeg = 0.0;
    double azimuthMostDeg = 360.0;
    double elevationLeastDeg = 0.0;
    double elevationMostDeg = 90.0;
    /// The azimuths below 0 may be none: some drivers tell them, but go a whole turn higher, so that the
    /// rotator turns back when such a way comes to north. The azimuths from 0 on are a whole turn and more.
    bool isBelowZeroDoubtful = false;

    friend bool operator==(const RotatorLimits&, const RotatorLimits&) = default;
};

inline constexpr double wholeTurnDeg = 360.0;
inline constexpr double halfTurnDeg = 180.0;

/// So little beyond a limit is not worth a turn: the rotator waits at the limit.
inline constexpr double limitSlackDeg = 1.0;

/// Without the azimuths that are doubtful.
inline RotatorLimits withoutDoubt(RotatorLimits limits) {
    if (limits.isBelowZeroDoubtful) limits.azimuthLeastDeg = 0.0;
    limits.isBelowZeroDoubtful = false;
    return limits;
}

/// The nearest position that the rotator can take.
inline RotatorPosition within(const RotatorLimits& limits, const RotatorPosition& position) {
    return {std::clamp(position.azimuthDeg, limits.azimuthLeastDeg, limits.azimuthMostDeg),
            std::clamp(position.elevationDeg, limits.elevationLeastDeg, limits.elevationMostDeg)};
}

/// The azimuth of so many whole turns more or less that lies nearest to another one.
inline double nearestTurn(double azimuthDeg, double toDeg) {
    return toDeg + std::remainder(azimuthDeg - toDeg, wholeTurnDeg);
}

/// The same, but for an azimuth beyond the limits that may be so many whole turns more or less.
inline RotatorPosition turnedWithin(const RotatorLimits& limits, RotatorPosition position) {
    const double middle = (limits.azimuthLeastDeg + limits.azimuthMostDeg) / 2.0;
    const bool isWithin =
        position.azimuthDeg >= limits.azimuthLeastDeg && position.azimuthDeg <= limits.azimuthMostDeg;
    if (!isWithin) position.azimuthDeg = nearestTurn(position.azimuthDeg, middle);
    return within(limits, position);
}

/// The angle between two directions, in degrees.
inline double angleBetween(const Direction& a, const Direction& b) {
    constexpr double radians = std::numbers::pi / 180.0;
    // The haversine keeps small angles.
    const double halfElevation = std::sin((a.elevationDeg - b.elevationDeg) * radians / 2.0);
    const double halfAzimuth = std::sin((a.azimuthDeg - b.azimuthDeg) * radians / 2.0);
    const double haversine = halfElevation * halfElevation + std::cos(a.elevationDeg * radians) *
                                                                 std::cos(b.elevationDeg * radians) *
                                                                 halfAzimuth * halfAzimuth;
    return 2.0 * std::asin(std::min(1.0, std::sqrt(haversine))) / radians;
}

}  // namespace vantrace
