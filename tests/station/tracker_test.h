// What the tests of the tracker share: a list of frequencies, and steps of its window.
#pragma once

#include "core/labels.h"
#include "station/tracker.h"
#include "tests/orbit/program/program_test.h"
#include "tests/support/testing.h"

namespace vantrace {

inline constexpr std::string_view trackedFrequencies =
    "ISS (ZARYA)\r\nDNLINK 145.800 MHz FM\r\nDNLINK 437.8 MHz FM\r\nDNLINK 145.800 MHz again\r\n"
    "UPLINK 145.990 MHz FM\r\nUPLINK 144.49\r\nBEACON 437.55 MHz\r\nNOTES  none\r\n***\r\n"
    "FUNCUBE-1\r\nDNLINK 145.935 MHz telemetry\r\n***\r\n";

class TrackerTest : public ProgramTest {
  protected:
    TrackerTest() { fakes.folder.write("satellite.dat", trackedFrequencies); }

    OrbitEngine& engine() { return *state.OrbitEngine; }
    /// As the map opens the window: its load comes before its word. Then the link is switched on.
    void open(std::string_view name) {
        Form_Load(form, state, services);
        state.TrackerTag = name;
        form.CHonOff = true;
        CHonOff_Click(form, services);
    }
    /// The same; then what is tracked.
    void track(std::string_view name) {
        open(name);
        tick();
    }
    void tick() { Timer1_Timer(form, state, services); }
    /// What stands behind a key of the line, up to the next blank.
    std::string field(std::string_view key) const {
        const std::size_t at = form.Tracking.find(" " + std::string(key));
        if (at == std::string::npos) return "none";
        const std::size_t start = at + 1 + key.size();
        return form.Tracking.substr(start, form.Tracking.find(' ', start) - start);
    }
    double number(std::string_view key) const { return std::stod(field(key)); }
    const Texts& published() const { return fakes.linePublisher.lines; }

    TrackerForm form;
};

}  // namespace vantrace
