// What the tests of the map share: its state and its window's fields over an engine with real element sets.
#pragma once

#include "core/labels.h"
#include "mapview/map_state.h"
#include "mapview/world_view_form.h"
#include "tests/orbit/program/program_test.h"

namespace vantrace {

/// What each view shows: from its left edge (degrees EAST) and its top edge on. The whole world comes first.
struct Shown {
    const char* word;
    double leftEastDeg, widthDeg, topDeg, heightDeg;
};
inline constexpr std::array<Shown, 8> views = {{{"worldnormal", -180, 360, 90, 180},
                                                {"worldalt", 0, 360, 90, 180},
                                                {"NWQ", -180, 180, 90, 90},
                                                {"NEQ", 0, 180, 90, 90},
                                                {"NCQ", -90, 180, 90, 90},
                                                {"SWQ", -180, 180, 0, 90},
                                                {"SEQ", 0, 180, 0, 90},
                                                {"SCQ", -90, 180, 0, 90}}};

/// The angle between two places on the earth, degrees, by the test's own arithmetic.
inline double distanceDeg(const MapPoint& from, const MapPoint& to) {
    constexpr double perDegree = std::numbers::pi / 180.0;
    const double half1 = std::sin((to.Latitude - from.Latitude) * perDegree / 2.0);
    const double half2 = std::sin((to.Longitude - from.Longitude) * perDegree / 2.0);
    const double square = half1 * half1 + std::cos(from.Latitude * perDegree) *
                                              std::cos(to.Latitude * perDegree) * half2 * half2;
    return 2.0 * std::asin(std::sqrt(square)) / perDegree;
}

class MapTest : public ProgramTest {
  protected:
    MapTest() { state.MainTag = "worldnormal"; }

    void select(std::int16_t index) {
        state.PrimarySatIndex = index;
        state.PrimarySatName = state.Favourites[index].Name;
    }
    void warpTo(const DateParts& local, std::int16_t minutesPerTick) {
        const auto part = [](int value) { return static_cast<std::int16_t>(value); };
        form.TimeWarp = minutesPerTick;
        form.WarpYear = part(local.year);
        form.WarpMonth = part(local.month);
        form.WarpDay = part(local.day);
        form.WarpHour = part(local.hour);
        form.WarpMinute = part(local.minute);
        form.WarpSecond = part(local.second);
    }
    DateParts warped() const {
        return {form.WarpYear, form.WarpMonth, form.WarpDay, form.WarpHour, form.WarpMinute, form.WarpSecond};
    }
    static MapPoint subPoint(const TrackResult& track) {
        return {inDegrees(track.latitudeRad), 360.0 - inDegrees(track.longitudeRad)};
    }

    /// A table's points are all changed, or all left alone, when these two are.
    void spoilTables() { map.SunLatitude = map.GroundTrackPoints[0].Latitude = 99; }
    bool isSunNew() const { return map.SunLatitude != 99; }
    bool isTrackNew() const { return map.GroundTrackPoints[0].Latitude != 99; }

    WorldViewForm form;
    MapState map;
};

}  // namespace vantrace
