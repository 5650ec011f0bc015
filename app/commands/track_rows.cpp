#include "app/commands/track_rows.h"

#include <array>
#include <cstdint>

#include "app/program/site.h"
#include "orbit/elements/element_set.h"

namespace vantrace {

namespace {

constexpr std::array rowColumns{
    Column{"name", "name", ValueForm::text},
    Column{"utc", "UTC", ValueForm::moment},
    Column{"azimuth_deg", "az", ValueForm::figure, 1},
    Column{"elevation_deg", "el", ValueForm::figure, 1},
    Column{"range_km", "range km", ValueForm::figure, 1},
    Column{"range_rate_km_s", "km/s", ValueForm::figure, 3},
    Column{"latitude_deg", "lat", ValueForm::figure, 2},
    Column{"longitude_deg", "lon", ValueForm::figure, 2},
    Column{"height_km", "height", ValueForm::figure, 1},
    Column{"descending", "", ValueForm::flag},
    Column{"phase_angle_rad", "", ValueForm::figure, 3},
    Column{"orbit_number", "orbit", ValueForm::count},
    Column{"orbit_count", "", ValueForm::figure, 3},
};

double degrees(double radians) {
    return radians / radiansPerDegree;
}

}  // namespace

std::span<const Column> trackColumns() {
    return rowColumns;
}

Row trackRow(OrbitEngine& engine, const std::string& name, const Instant& time) {
    const TrackResult place = engine.track(name, time);
    return {name,
            time,
            degrees(place.azimuthRad),
            degrees(place.elevationRad),
            place.rangeKm,
            place.rangeRateKmS,
            degrees(place.latitudeRad),
            eastLongitude(degrees(place.longitudeRad)),
            place.heightKm,
            place.descending,
            place.phaseAngleRad,
            std::int64_t{engine.EngineOrbitNumber()},
            engine.EngineOrbitPhase()};
}

Row failedTrackRow(const std::string& name, const Value& time) {
    Row row(rowColumns.size());
    row[0] = name;
    row[1] = time;
    return row;
}

}  // namespace vantrace
