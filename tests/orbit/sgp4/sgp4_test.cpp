// The published verification cases of the model (data/SOURCES.txt), and what they do not reach.
#include "orbit/sgp4/propagator.h"
#include "orbit/sgp4/short_period.h"
#include "platform/text_file.h"
#include "tests/orbit/element_texts.h"

namespace vantrace {
namespace {

struct ReferenceRow {
    double minutes = 0.0;
    StateVector state;
};
struct ReferenceCase {
    std::int32_t catalogNumber = 0;
    std::vector<ReferenceRow> rows;
};

std::vector<ReferenceCase> referenceCases() {
    const std::string text = verificationText("reference.out");
    std::vector<ReferenceCase> cases;
    for (const std::string_view line : splitLines(text)) {
        std::istringstream words{std::string(line)};
        if (line.find("xx") != std::string_view::npos) {
            words >> cases.emplace_back().catalogNumber;
            continue;
        }
        ReferenceRow row;
        Vector3& r = row.state.positionKm;
        Vector3& v = row.state.velocityKmS;
        if (words >> row.minutes >> r.x >> r.y >> r.z >> v.x >> v.y >> v.z) cases.back().rows.push_back(row);
    }
    return cases;
}

Propagator propagatorOf(std::int32_t catalogNumber) {
    for (const ElementSet& set : readAll(verificationText("SGP4-VER.TLE")).sets) {
        if (set.catalogNumber == catalogNumber) return Propagator(set);
    }
    throw std::runtime_error("no verification set " + std::to_string(catalogNumber));
}

TEST(Verification, EveryReferenceStateIsMet) {
    std::size_t states = 0;
    for (const ReferenceCase& reference : referenceCases()) {
        // A case of an error: what is printed for its epoch is no state of its orbit.
        if (reference.catalogNumber == 33334) continue;
        Propagator propagator = propagatorOf(reference.catalogNumber);
        for (const ReferenceRow& row : reference.rows) {
            SCOPED_TRACE(std::to_string(reference.catalogNumber) + " at " + std::to_string(row.minutes));
            Propagated result;
            ASSERT_EQ(propagator.propagate(row.minutes, result), PropagationStatus::ok);
            const Vector3 r = result.state.positionKm - row.state.positionKm;
            EXPECT_LE(std::abs(r.x) + std::abs(r.y) + std::abs(r.z), 2e-7);
            // Printed to nine places: 5e-10 is all that rounding leaves.
            const Vector3 v = result.state.velocityKmS - row.state.velocityKmS;
            EXPECT_LE(std::max({std::abs(v.x), std::abs(v.y), std::abs(v.z)}), 6e-10);
            ++states;
        }
    }
    EXPECT_EQ(states, 249U);
}

TEST(Verification, SetsEndInTheirErrors) {
    const struct {
        std::int32_t catalogNumber;
        double lastGoodMinutes;  ///< of the last row of the published table, or on its grid
        double failingMinutes;
        PropagationStatus status;
    } table[] = {{28350, 1440.0, 1560.0, PropagationStatus::meanEccentricityOutOfRange},
                 {22312, 474.2028672, 494.2028672, PropagationStatus::meanEccentricityOutOfRange},
                 {29141, 420.0, 440.0, PropagationStatus::decayed},
                 {28872, 50.0, 55.0, PropagationStatus::decayed},
                 {33333, 20.0, 25.0, PropagationStatus::semiLatusRectumNegative}};
    for (const auto& row : table) {
        Propagator propagator = propagatorOf(row.catalogNumber);
        Propagated result;
        EXPECT_EQ(propagator.propagate(row.lastGoodMinutes, result), PropagationStatus::ok)
            << row.catalogNumber;
        EXPECT_EQ(propagator.propagate(row.failingMinutes, result), row.status) << row.catalogNumber;
    }
}

TEST(Verification, TheSlowestSetHasNoPositionAtAll) {
    Propagator propagator = propagatorOf(33334);
    Propagated result;
    EXPECT_EQ(propagator.propagate(0.0, result), PropagationStatus::eccentricityOutOfRange);
    for (double minutes = 1.0; minutes <= 1440.0; minutes += 1.0) {
        const PropagationStatus status = propagator.propagate(minutes, result);
        EXPECT_TRUE(status == PropagationStatus::eccentricityOutOfRange ||
                    status == PropagationStatus::meanEccentricityOutOfRange)
            << minutes << ": " << reasonText(status);
    }
}

TEST(Verification, NearEarthAndDeepSpacePartAtAPeriodOf225Minutes) {
    EXPECT_FALSE(propagatorOf(88888).isDeepSpace());
    EXPECT_TRUE(propagatorOf(11801).isDeepSpace());
    MadeSet made;
    made.turnsPerDay = 6.45;  // 223.3 minutes
    EXPECT_FALSE(Propagator(madeElements(made)).isDeepSpace());
    made.turnsPerDay = 6.35;  // 226.8 minutes
    EXPECT_TRUE(Propagator(madeElements(made)).isDeepSpace());
}

/// E + omega of u = E - ax sin E + ay cos E, in extended precision by halving: the left side grows with E.
long double bracketed(long double u, long double ax, long double ay) {
    long double low = u - 2.0L;
    long double high = u + 2.0L;
    for (int i = 0; i < 90; ++i) {
        const long double middle = 0.5L * (low + high);
        const long double value = middle - ax * std::sin(middle) + ay * std::cos(middle);
        (value < u ? low : high) = middle;
    }
    return 0.5L * (low + high);
}

void expectSolved(double u, double eccentricity, double perigee) {
    const double ax = eccentricity * std::cos(perigee);
    const double ay = eccentricity * std::sin(perigee);
    const long double truth = bracketed(u, ax, ay);
    const SinCos solved = solveKepler(u, ax, ay);
    // The equation is met to some 1e-14; its slope magnifies that, and what the argument's last bit means.
    const double slope = static_cast<double>(1.0L - ax * std::cos(truth) - ay * std::sin(truth));
    const double tolerance = 2e-15 + (4e-15 / (1.0 - eccentricity) + 4e-16 * std::abs(u)) / slope;
    const double error = std::max(std::abs(solved.sin - static_cast<double>(std::sin(truth))),
                                  std::abs(solved.cos - static_cast<double>(std::cos(truth))));
    EXPECT_LE(error, tolerance) << "u " << u << " e " << eccentricity << " perigee " << perigee;
}

TEST(Kepler, EquationIsSolvedForEveryEccentricityAndManyTurnsAway) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> angle(-3.2, 3.2);
    std::uniform_real_distribution<double> turns(-5e4, 5e4);
    for (const double eccentricity : {0.0, 1e-6, 0.001, 0.01, 0.1, 0.3, 0.5, 0.7, 0.8, 0.9, 0.95, 0.99}) {
        for (int i = 0; i < 1000; ++i) expectSolved(angle(random), eccentricity, angle(random));
        if (eccentricity > 0.75) continue;
        for (int i = 0; i < 1000; ++i) expectSolved(turns(random), eccentricity, turns(random));
    }
}

TEST(Kepler, EquationIsSolvedAtPerigeeAndApogee) {
    for (const double eccentricity : {0.001, 0.7, 0.97}) {
        for (const double perigee : {0.0, 1.0, 3.0}) {
            for (const double aside : {0.0, 1e-12, 1e-6, 1e-3}) {
                expectSolved(perigee + aside, eccentricity, perigee);
                expectSolved(perigee + 3.14159265358979 - aside, eccentricity, perigee);
            }
        }
    }
}

struct Orbit {
    std::string file;
    std::string name;
};

class OrderOfQuestions : public ::testing::TestWithParam<Orbit> {
  protected:
    Propagator fresh() const { return Propagator(shippedSet(GetParam().file, GetParam().name)); }
};

/// Status, position and argument; what a failing call leaves in its result is no answer.
using Answer = std::tuple<PropagationStatus, double, double, double, double>;

Answer ask(Propagator& propagator, double minutes) {
    Propagated result;
    const PropagationStatus status = propagator.propagate(minutes, result);
    const Vector3& r = result.state.positionKm;
    return status == PropagationStatus::ok ? Answer{status, r.x, r.y, r.z, result.meanLatitudeArgument}
                                           : Answer{status, 0, 0, 0, 0};
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
    Propagator propagator = fresh();
    std::map<double, Answer> alone;
    for (const double t : times) {
        alone[t] = ask(propagator, t);
        propagator = fresh();
    }
    std::mt19937 random(5);
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
