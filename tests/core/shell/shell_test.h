// What the tests of the shell share: a whole small program folder, and windows without a screen.
#pragma once

#include "core/program_state.h"
#include "core/shell/main_form.h"
#include "orbit/orbit_engine.h"
#include "tests/support/fake_window.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

// Element sets as CelesTrak publishes them; the epoch is day 233 of 2026, the 21st of August.
inline constexpr std::string_view stationSets =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995\r\n"
    "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884\r\n"
    "CSS (TIANHE)            \r\n"
    "1 48274U 21035A   26233.50601792  .00010952  00000+0  14010-3 0  9997\r\n"
    "2 48274  41.4689 285.4972 0001541 256.2748 103.7919 15.59124724303366\r\n";

class ShellTest : public ::testing::Test {
  protected:
    ShellTest() {
        folder.write("stations.txt", stationSets);
        folder.write("faves.dat", "ISS (ZARYA)\r\n");
        folder.write("groups.dat", "Space Stations,example.org/elements/stations.txt,0\r\n");
        folder.write("locations.dat", "");
        folder.write("satellite.dat", "");
        folder.write("pass.dat", "");
        fakes.clock.setUtc({2026, 8, 23, 10, 30, 0}, 60);
        state.AppPath = folder.appPath();
    }

    void writeSite() {
        fakes.settings.set("Location Name", "Vienna");
        fakes.settings.set("Latitude", "48.21");
        fakes.settings.set("Longitude", "343.63");
        fakes.settings.set("HASL", "170");
    }

    WindowScript& fakeWindow(const std::string& name) { return fakes.fakeWindow(name); }

    TestServices fakes;
    TemporaryFolder& folder = fakes.folder;
    Services& services = fakes.services;
    ProgramState state;
    MainForm form;
};

}  // namespace vantrace
