// What the tests of the tracker share: real element sets, a site, and a list of frequencies.
#pragma once

#include "core/labels.h"
#include "core/program_state.h"
#include "orbit/orbit_engine.h"
#include "station/tracker.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {

// Element sets as CelesTrak publishes them; the epochs lie in August 2026.
inline constexpr std::string_view trackedElements =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995\r\n"
    "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884\r\n"
    "FUNCUBE-1 (AO-73)       \r\n"
    "1 39444U 13066AE  26218.16117730  .00004124  00000+0  25315-3 0  9994\r\n"
    "2 39444  97.8314 190.6823 0036891  36.3587 324.0137 15.10127543687208\r\n"
    "INTELSAT 10-02          \r\n"
    "1 28358U 04022A   26217.94243684 -.00000005  00000+0  00000+0 0  9996\r\n"
    "2 28358   0.0583 263.4019 0000446 321.0612  68.2973  1.00271396 81056\r\n";

inline constexpr std::string_view trackedFrequencies =
    "ISS (ZARYA)\r\nDNLINK 145.800 MHz FM\r\nDNLINK 437.8 MHz FM\r\nDNLINK 145.800 MHz again\r\n"
    "UPLINK 145.990 MHz FM\r\nUPLINK 144.49\r\nBEACON 437.55 MHz\r\nNOTES  none\r\n***\r\n"
    "FUNCUBE-1\r\nDNLINK 145.935 MHz telemetry\r\n***\r\n";

/// 2026-08-21 20:00:00 UTC, summer time two hours ahead; the observer in the Netherlands.
class TrackerTest : public ::testing::Test {
  protected:
    explicit TrackerTest(MachineFormat format = {}) : fakes(std::move(format)) {
        fakes.clock.setUtc({2026, 8, 21, 20, 0, 0}, 120);
        fakes.folder.write("stations.txt", trackedElements);
        fakes.folder.write("satellite.dat", trackedFrequencies);
        state.AppPath = fakes.folder.appPath();
        state.OrbitEngine = std::make_shared<OrbitEngine>(&fakes.clock);
        engine().EngineSetKepPath(state.AppPath);
        engine().EngineSetLatitude(52.0);
        engine().EngineSetLongitude(5.0);
        engine().EngineSetHeight(10.0);
    }

    OrbitEngine& engine() { return *state.OrbitEngine; }
    /// As the map opens the window: its load comes before its word. Then the link is switched on.
    void open(std::string_view name) {
        Form_Load(form, state, services);
        state.TrackerTag = name;
        form.CHonOff = true;
        CHonOff_Click(form, services);
    }
    void tick() { Timer1_Timer(form, state, services); }
    /// What stands behind a key of the line, up to the next blank.
    std::string field(std::string_view key) const {
        const std::size_t at = form.Tracking.find(" " + std::string(key));
        if (at == std::string::npos) return "none";
        const std::size_t start = at + 1 + key.size();
        return form.Tracking.substr(start, form.Tracking.find(' ', start) - start);
    }
    const Texts& published() const { return fakes.linePublisher.lines; }

    TestServices fakes;
    Services& services = fakes.services;
    ProgramState state;
    TrackerForm form;
};

class CommaTrackerTest : public TrackerTest {
  protected:
    CommaTrackerTest() : TrackerTest(commaFormat()) {}

  private:
    static MachineFormat commaFormat() {
        MachineFormat format;
        format.decimalMark = ',';
        return format;
    }
};

}  // namespace vantrace
