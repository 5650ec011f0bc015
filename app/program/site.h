// The place that positions and passes are told for.
#pragma once

#include <string>
#include <string_view>

namespace vantrace {

struct Services;

struct Site {
    std::string name;
    double latitudeDeg = 0.0;   ///< -90 to 90, north positive
    double longitudeDeg = 0.0;  ///< above -180 up to 180, EAST positive
    double heightM = 0.0;
};

/// A longitude in degrees, brought into the range above -180 up to 180.
double eastLongitude(double longitudeDeg);

/// "LAT,LON,HEIGHT_M", the longitude -180 to 180 east. Throws UserError.
Site parseSite(std::string_view text);

/// The observer of the settings, where the longitude is degrees WEST and numbers may have a decimal comma.
/// Throws UserError for what is no such place.
Site siteOfSettings(Services& services);

/// "47.3800 N 8.5400 E, 450 m".
std::string placeText(const Site& site);

}  // namespace vantrace
