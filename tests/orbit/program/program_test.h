// What the tests of the program's orbit logic share: an engine over a program folder with real element sets.
#pragma once

#include "core/date_time.h"
#include "core/program_state.h"
#include "orbit/orbit_engine.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

// Element sets as CelesTrak publishes them; the epochs lie in August 2026.
inline constexpr std::string_view testElements =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995\r\n"
    "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884\r\n"
    "FUNCUBE-1 (AO-73)       \r\n"
    "1 39444U 13066AE  26218.16117730  .00004124  00000+0  25315-3 0  9994\r\n"
    "2 39444  97.8314 190.6823 0036891  36.3587 324.0137 15.10127543687208\r\n"
    "INTELSAT 10-02          \r\n"
    "1 28358U 04022A   26217.94243684 -.00000005  00000+0  00000+0 0  9996\r\n"
    "2 28358   0.0583 263.4019 0000446 321.0612  68.2973  1.00271396 81056\r\n";
inline constexpr std::string_view stationElements = testElements.substr(0, testElements.find("INTELSAT"));
inline constexpr std::string_view geostationaryElements = testElements.substr(stationElements.size());

class ProgramTest : public ::testing::Test {
  protected:
    /// 2026-08-21 20:00:00 UTC, summer time two hours ahead; the observer in the Netherlands.
    ProgramTest() {
        fakes.clock.setUtc({2026, 8, 21, 20, 0, 0}, 120);
        fakes.folder.write("elements/test.txt", testElements);
        state.AppPath = fakes.folder.appPath();
        state.ObserverLatitude = 52.0;
        state.ObserverLongitude = 355.0;
        state.ObserverHeight = 10.0;
        state.OrbitEngine = newEngine();
    }

    std::shared_ptr<OrbitEngine> newEngine() const {
        auto engine = std::make_shared<OrbitEngine>(&fakes.clock);
        engine->EngineSetKepPath(state.AppPath + "elements/");
        engine->EngineSetLatitude(state.ObserverLatitude);
        engine->EngineSetLongitude(360.0 - state.ObserverLongitude);
        engine->EngineSetHeight(state.ObserverHeight);
        return engine;
    }
    void addFavourite(std::string_view name, double elevation = 0) {
        FavouriteRecord& favourite = state.Favourites[++state.FavouriteCount];
        favourite.Name = name;
        favourite.Elevation = elevation;
    }
    /// Where the engine sees an object at a UTC date and time, from where its observer is.
    TrackResult seenAt(std::string_view name, const DateParts& utc) const {
        return state.OrbitEngine->EngineTrack(name, state.OrbitEngine->EngineJulianDate(packDateTime(utc)), 0,
                                              0);
    }
    static constexpr double inDegrees(double radians) { return radians * 180.0 / std::numbers::pi; }

    TestServices fakes;
    Services& services = fakes.services;
    ProgramState state;
};

}  // namespace vantrace
