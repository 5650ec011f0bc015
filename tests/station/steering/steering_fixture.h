// A whole station over fake daemons, for the tests of the steering.
#pragma once

#include "core/numbers.h"
#include "station/steering/steering.h"
#include "tests/station/steering/fake_daemons.h"
#include "tests/station/steering/steering_sky.h"
#include "tests/support/testing.h"

namespace vantrace {

class SkyPasses final : public PassSource {
  public:
    explicit SkyPasses(OrbitEngine& engine) : m_engine(engine) {}
    std::optional<ComingPass> passOf(std::string_view name, const Instant& from,
                                     std::string& reason) override {
        ++looks;
        return comingPass(m_engine, name, from, reason);
    }
    int looks = 0;

  private:
    OrbitEngine& m_engine;
};

/// A whole station over fake daemons, with the tracker's lines made from the engine.
class SteeringTest : public ::testing::Test {
  protected:
    SteeringTest() {
        rotatorDaemon.come(0);
        radioDaemon.come(0);
        serve(0);
    }

    Steering& start(const SteeringOptions& options = {}) {
        m_steering.emplace(options, Steering::Devices{&rotator, {&radio}}, passes,
                           [this](std::string_view text) { told.emplace_back(text); });
        return *m_steering;
    }
    /// The line as the tracker has it at whole seconds.
    std::string lineAt(const std::string& name, const Instant& time) {
        const TrackResult track = sky.engine.track(name, time);
        const double ratio = track.rangeRateKmS / 299792.458;
        std::string shown = name;
        std::ranges::replace(shown, ' ', '_');
        return "SN" + shown + " AZ" + formatNumber(track.azimuthRad * 180 / std::numbers::pi, "0.00", ',') +
               " EL" + formatNumber(track.elevationRad * 180 / std::numbers::pi, "0.00", ',') + " UP" +
               formatNumber(435e6 * (1 + ratio), "0") + " DN" + formatNumber(145.8e6 * (1 - ratio), "0") +
               " DO" + formatNumber(-ratio * 1e8, "0.####", ',');
    }
    static SteeringOptions parkingAt(const RotatorPosition& park) {
        SteeringOptions options;
        options.atLoss = SteeringOptions::AtLoss::goToPark;
        options.park = park;
        return options;
    }
    void restartRotator(const std::string& limits, double now) {
        rotatorDaemon.limits = limits;
        rotatorDaemon.session.disconnected("restarted", now - 5);
        rotatorDaemon.come(now);
        serve(now);
        rotatorDaemon.commands.clear();
    }
    /// Where the rotator was sent.
    std::vector<double> azimuths() const {
        std::vector<double> found;
        for (const std::string& command : rotatorDaemon.of("+P"))
            found.push_back(std::stod(command.substr(3)));
        return found;
    }
    void give(const std::string& line, double second) {
        m_steering->lineCame(line, plusSeconds(begin, second), second);
        serve(second);
    }
    void run(const std::string& name, double from, double to) {
        for (double second = from; second < to; second += 1.0) {
            give(lineAt(name, plusSeconds(begin, second)), second);
        }
    }
    void serve(double now) {
        rotator.tick(now);
        rotatorDaemon.serve(now);
        radioDaemon.serve(now);
    }
    int tells(std::string_view part) const {
        return static_cast<int>(std::ranges::count_if(
            told, [part](const std::string& text) { return text.find(part) != std::string::npos; }));
    }

    /// Of a satellite without elements.
    static constexpr const char* nobody = "SNNOBODY AZ100.00 EL30.00 UP435000000 DN145800000 DO0";

    Texts told;
    ShippedSky sky{52.0, 5.0};
    const ComingPass issPass = sky.passesOf("ISS_(ZARYA)", 1).front();
    Instant begin = ShippedSky::start();
    SkyPasses passes{sky.engine};
    FakeRotatorDaemon rotatorDaemon{"rotator", told};
    FakeRadioDaemon radioDaemon{"radio", told};
    RotatorControl rotator{rotatorDaemon.session, 2.0, [this](std::string_view t) { told.emplace_back(t); }};
    RadioControl radio{radioDaemon.session, RadioControl::Use::transceiver, 10.0,
                       [this](std::string_view t) { told.emplace_back(t); }};

    std::optional<Steering> m_steering;
};

}  // namespace vantrace
