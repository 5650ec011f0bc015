// The published verification cases of the model (data/SOURCES.txt).

#include "orbit/sgp4/propagator.h"
#include "platform/text_file.h"
#include "tests/orbit/element_texts.h"
#include "tests/support/testing.h"

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

std::vector<ElementSet> verificationSets() {
    return readAll(verificationText("SGP4-VER.TLE")).sets;
}

Propagator propagatorOf(std::int32_t catalogNumber) {
    for (const ElementSet& set : verificationSets()) {
        if (set.catalogNumber == catalogNumber) return Propagator(set);
    }
    throw std::runtime_error("no verification set " + std::to_string(catalogNumber));
}

double differenceSum(const Vector3& a, const Vector3& b) {
    return std::abs(a.x - b.x) + std::abs(a.y - b.y) + std::abs(a.z - b.z);
}

double greatestDifference(const Vector3& a, const Vector3& b) {
    return std::max({std::abs(a.x - b.x), std::abs(a.y - b.y), std::abs(a.z - b.z)});
}

TEST(Verification, EverySetOfTheVerificationFileIsRead) {
    const ReadElements read = readAll(verificationText("SGP4-VER.TLE"));
    EXPECT_EQ(read.sets.size(), 33U);
    EXPECT_TRUE(read.remarks.empty()) << read.remarks.front().reason;
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
            EXPECT_LE(differenceSum(result.state.positionKm, row.state.positionKm), 2e-7);
            // Printed to nine places: 5e-10 is all that rounding leaves.
            EXPECT_LE(greatestDifference(result.state.velocityKmS, row.state.velocityKmS), 6e-10);
            ++states;
        }
    }
    EXPECT_EQ(states, 249U);
}

struct ErrorCase {
    std::int32_t catalogNumber;
    double lastGoodMinutes;
    double failingMinutes;
    PropagationStatus status;
};

class VerificationErrors : public ::testing::TestWithParam<ErrorCase> {};

TEST_P(VerificationErrors, TheSetEndsInItsError) {
    const ErrorCase& wanted = GetParam();
    Propagator propagator = propagatorOf(wanted.catalogNumber);
    Propagated result;
    EXPECT_EQ(propagator.propagate(wanted.lastGoodMinutes, result), PropagationStatus::ok);
    EXPECT_EQ(propagator.propagate(wanted.failingMinutes, result), wanted.status);
}

// The last good minutes are the last rows of the published tables or lie on their grid.
INSTANTIATE_TEST_SUITE_P(
    Published, VerificationErrors,
    ::testing::Values(ErrorCase{28350, 1440.0, 1560.0, PropagationStatus::meanEccentricityOutOfRange},
                      ErrorCase{22312, 474.2028672, 494.2028672,
                                PropagationStatus::meanEccentricityOutOfRange},
                      ErrorCase{29141, 420.0, 440.0, PropagationStatus::decayed},
                      ErrorCase{28872, 50.0, 55.0, PropagationStatus::decayed},
                      ErrorCase{33333, 20.0, 25.0, PropagationStatus::semiLatusRectumNegative}),
    [](const auto& one) { return std::to_string(one.param.catalogNumber); });

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

}  // namespace
}  // namespace vantrace
