// What the tests of the predictions share: an engine over real element sets, and the form of the window.
#pragma once

#include "core/program_state.h"
#include "orbit/orbit_engine.h"
#include "passes/pass_prediction_form.h"
#include "tests/support/fake_window.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

// Element sets as CelesTrak publishes them; the epochs lie in August 2026.
inline constexpr std::string_view stationElements =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995\r\n"
    "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884\r\n"
    "FUNCUBE-1 (AO-73)       \r\n"
    "1 39444U 13066AE  26218.16117730  .00004124  00000+0  25315-3 0  9994\r\n"
    "2 39444  97.8314 190.6823 0036891  36.3587 324.0137 15.10127543687208\r\n";
inline constexpr std::string_view geostationaryElements =
    "INTELSAT 10-02          \r\n"
    "1 28358U 04022A   26217.94243684 -.00000005  00000+0  00000+0 0  9996\r\n"
    "2 28358   0.0583 263.4019 0000446 321.0612  68.2973  1.00271396 81056\r\n";

/// 2026-08-21 20:00:00 UTC, summer time two hours ahead; the observer in the Netherlands.
class PassesTest : public ::testing::Test {
  protected:
    PassesTest() {
        fakes.clock.setUtc({2026, 8, 21, 20, 0, 0}, 120);
        fakes.folder.write("stations.txt", stationElements);
        fakes.folder.write("geo.txt", geostationaryElements);
        state.AppPath = fakes.folder.appPath();
        state.MainTag = "passprediction";
        state.ObserverLatitude = 52.0;
        state.ObserverLongitude = 355.0;
        state.ObserverHeight = 10.0;
        state.OrbitEngine = std::make_shared<OrbitEngine>(&fakes.clock);
        engine().EngineSetKepPath(state.AppPath);
        engine().EngineSetLatitude(52.0);
        engine().EngineSetLongitude(5.0);
        engine().EngineSetHeight(10.0);
        state.Groups[1] = {"Space Stations", "example.org/elements/stations.txt", "0"};
        state.Groups[2] = {"Geostationary", "geo.txt", "0"};
        state.Groups[3] = {"Missing", "example.org/missing.txt", "0"};
        state.GroupCount = 3;
        state.Favourites[1].Name = "ISS (ZARYA)";
        state.FavouriteCount = 1;
    }

    OrbitEngine& engine() { return *state.OrbitEngine; }
    /// As while the window is open: `Satcalc` looks for no next pass.
    void openWindow() { showFake("PassPrediction"); }
    void showFake(const std::string& name) {
        registerFake(fakes.windows, name, m_scripts[name]);
        fakes.windows.show(name);
    }
    const std::vector<ResultRow>& rows() const { return form.LISTpasses.rows(); }

  private:
    // Before the registry, which destroys the windows.
    std::map<std::string, WindowScript> m_scripts;

  protected:
    TestServices fakes;
    Services& services = fakes.services;
    ProgramState state;
    PassPredictionForm form;
};

/// A row for tests that look at texts only.
inline ResultRow rowOfTexts(const std::array<std::string, resultColumns>& texts) {
    ResultRow row;
    row.texts = texts;
    return row;
}

}  // namespace vantrace
