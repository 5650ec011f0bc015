// What the tests of the map share: its state and its window's fields over an engine with real element sets.
#pragma once

#include <cmath>
#include <numbers>
#include <string>
#include <string_view>

#include "core/labels.h"
#include "mapview/map_state.h"
#include "mapview/world_view_form.h"
#include "tests/orbit/program/program_test.h"

namespace vantrace {

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

    void addFavourite(std::string_view name) { state.Favourites[++state.FavouriteCount].Name = name; }
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
    /// Where the engine sees an object at a UTC date and time, from the observer's place.
    TrackResult seenAt(std::string_view name, const DateParts& utc) const {
        return state.OrbitEngine->EngineTrack(name, state.OrbitEngine->EngineJulianDate(packDateTime(utc)), 0,
                                              0);
    }
    static MapPoint subPoint(const TrackResult& track) {
        constexpr double perRadian = 180.0 / std::numbers::pi;
        return {track.latitudeRad * perRadian, 360.0 - track.longitudeRad * perRadian};
    }

    WorldViewForm form;
    MapState map;
};

}  // namespace vantrace
