

#include "orbit/sgp4/propagator.h"
#include "tests/orbit/element_texts.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

struct Orbit {
    std::string file;
    std::string name;
};

class OrderOfQuestions : public ::testing::TestWithParam<Orbit> {
  protected:
    Propagator fresh() const { return Propagator(shippedSet(GetParam().file, GetParam().name)); }
};

struct Answer {
    PropagationStatus status = PropagationStatus::ok;
    Vector3 position;
    double argument = 0.0;

    bool operator==(const Answer& other) const {
        return status == other.status && (status != PropagationStatus::ok ||
                                          (position.x == other.position.x && position.y == other.position.y &&
                                           position.z == other.position.z && argument == other.argument));
    }
};

Answer ask(Propagator& propagator, double minutes) {
    Propagated result;
    const PropagationStatus status = propagator.propagate(minutes, result);
    return {status, result.state.positionKm, result.meanLatitudeArgument};
}

TEST_P(OrderOfQuestions, DoesNotChangeAnAnswer) {
    // Around the integrator's steps of 720 minutes, years away, and beyond the steps that are kept (some
    // eleven years).
    std::vector<double> times;
    for (const double t : {0.0, 0.001, 359.0, 719.999, 720.0, 720.001, 1440.0, 7200.5, 525600.0, 5898000.0,
                           5898241.0, 5899000.0, 5900000.0, 6500000.0}) {
        times.push_back(t);
        times.push_back(-t);
    }
    std::map<double, Answer> alone;
    for (const double t : times) {
        Propagator propagator = fresh();
        alone[t] = ask(propagator, t);
    }
    std::mt19937 random(5);
    Propagator propagator = fresh();
    for (int round = 0; round < 6; ++round) {
        for (const double t : times) {
            EXPECT_TRUE(ask(propagator, t) == alone[t]) << t << " min in round " << round;
        }
        std::ranges::shuffle(times, random);
    }
}

TEST_P(OrderOfQuestions, LeavesNoSeamBetweenSteps) {
    // A tenth of a millisecond on either side of a step's end, the last of the kept ones (8192) among them:
    // the path goes on without a jump.
    constexpr double aside = 0.0001 / 60.0;
    constexpr double eleventhYear = 4.0e6;
    Propagator propagator = fresh();
    for (const double step : {0.0, 1.0, 2.0, 100.0, 8191.0, 8192.0, 8193.0, 8194.0}) {
        for (const double minutes : {720.0 * step, -720.0 * step}) {
            Propagated before;
            Propagated after;
            const PropagationStatus status = propagator.propagate(minutes - aside, before);
            if (status != PropagationStatus::ok && std::abs(minutes) > eleventhYear) continue;  // decayed
            ASSERT_EQ(status, PropagationStatus::ok);
            ASSERT_EQ(propagator.propagate(minutes + aside, after), PropagationStatus::ok);
            EXPECT_LT(norm(after.state.positionKm - before.state.positionKm), 0.01) << minutes;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Orbits, OrderOfQuestions,
                         ::testing::Values(Orbit{"molniya.txt", "MERIDIAN 7"}, Orbit{"goes.txt", "GOES 16"},
                                           Orbit{"gps-ops.txt", "GPS BIIR-5  (PRN 22)"},
                                           Orbit{"stations.txt", "ISS (ZARYA)"}),
                         [](const auto& one) {
                             return one.param.file.substr(0, one.param.file.find_first_of("-."));
                         });

}  // namespace
}  // namespace vantrace
