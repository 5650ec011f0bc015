// The orbit count: its whole number and its fraction.
#include "orbit/satellite.h"

#include "tests/orbit/engine_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class OrbitCountTest : public EngineTest {
  protected:
    OrbitCountTest() { loadShipped(); }

    double phaseAt(std::string_view name, const Instant& time) {
        engine.track(name, time);
        return engine.EngineOrbitPhase();
    }
};

TEST_F(OrbitCountTest, IsTheSetsRevolutionNumberAtItsEpoch) {
    int looked = 0;
    for (const CatalogueEntry& entry : engine.catalogue().entries()) {
        if (!failureOf([&] { engine.track(entry.set->name, entry.set->epoch); }).empty()) continue;
        EXPECT_EQ(engine.EngineOrbitNumber(), entry.set->revolutionNumber) << entry.set->name;
        ++looked;
    }
    EXPECT_GT(looked, 1500);
}

TEST_F(OrbitCountTest, StepsByOneAtEveryAscendingNodeAndNowhereElse) {
    for (const char* name : {"ISS (ZARYA)", "HST", "NOAA 20 (JPSS-1)", "Ofeq 16", "GPS BIIR-5  (PRN 22)",
                             "MERIDIAN 7", "QZS-2 (MICHIBIKI-2)", "CLUSTER II-FM7 (SAMBA)"}) {
        SCOPED_TRACE(name);
        const Instant epoch = elementsOf(name).epoch;
        const double periodS = twoPi / elementsOf(name).meanMotionRadPerMin * 60.0;
        int nodes = 0;
        std::int32_t lastNumber = 0;
        double lastZ = 0.0;
        for (int i = -2000; i <= 2000; ++i) {
            engine.track(name, plusSeconds(epoch, i * periodS * 0.0051));
            const double z = engine.EngineStateVector().positionKm.z;
            const std::int32_t number = engine.EngineOrbitNumber();
            if (i > -2000) {
                const bool ascended = lastZ < 0.0 && z >= 0.0;
                ASSERT_EQ(number - lastNumber, ascended ? 1 : 0) << "step " << i;
                nodes += ascended ? 1 : 0;
            }
            lastNumber = number;
            lastZ = z;
        }
        EXPECT_NEAR(nodes, 20, 1);
    }
}

TEST_F(OrbitCountTest, GrowsEvenlyThroughTheOrbit) {
    const Instant epoch = elementsOf("ISS (ZARYA)").epoch;
    double last = phaseAt("ISS (ZARYA)", epoch);
    for (int i = 1; i <= 3000; ++i) {
        const double phase = phaseAt("ISS (ZARYA)", plusSeconds(epoch, i * 10.0));
        EXPECT_NEAR(phase - last, 10.0 / 5570.0, 1e-5) << i;
        EXPECT_EQ(engine.EngineOrbitNumber(), static_cast<std::int32_t>(std::floor(phase)));
        last = phase;
    }
}

TEST_F(OrbitCountTest, HasItsQuartersAtTheNodesAndAtTheGreatestLatitudes) {
    const Instant epoch = elementsOf("HST").epoch;
    Vector3 before;
    for (int i = 0; i < 12000; ++i) {
        const double phase = phaseAt("HST", plusSeconds(epoch, i * 1.0));
        const StateVector state = engine.EngineStateVector();
        const double fraction = phase - std::floor(phase);
        if (i > 0 && before.z >= 0.0 && state.positionKm.z < 0.0) {
            EXPECT_NEAR(fraction, 0.5, 3e-4);
        }
        if (std::abs(state.velocityKmS.z) < 0.003) {
            EXPECT_NEAR(fraction, state.positionKm.z > 0.0 ? 0.25 : 0.75, 1e-3);
        }
        before = state.positionKm;
    }
}

TEST_F(OrbitCountTest, GoesOnOverTheEquatorWhereThereIsNoNode) {
    const Instant epoch = elementsOf("GOES 19").epoch;
    double last = phaseAt("GOES 19", epoch);
    for (int i = 1; i <= 500; ++i) {
        const double phase = phaseAt("GOES 19", plusSeconds(epoch, i * 600.0));
        EXPECT_NEAR(phase - last, 600.0 / 86164.0, 2e-5);
        last = phase;
    }
}

TEST_F(OrbitCountTest, SurvivesANewReadingOfTheFolder) {
    load(elementText({.meanAnomalyDeg = 10.0}));
    engine.track("MADE", plusSeconds(elementsOf("MADE").epoch, 5000.0));
    OrbitEngine other;
    other.EngineSetKepPath(folder.appPath());
    other.track("MADE", plusSeconds(elementsOf("MADE").epoch, 5000.0));
    load("");
    EXPECT_EQ(engine.EngineOrbitPhase(), other.EngineOrbitPhase());
    EXPECT_EQ(engine.EngineOrbitNumber(), 100);
}

TEST_F(OrbitCountTest, IsZeroForSunAndMoon) {
    engine.track("ISS (ZARYA)", elementsOf("ISS (ZARYA)").epoch);
    for (const char* name : {"sun", "moon"}) {
        engine.track(name, instantFromCalendar({2026, 8, 21, 12, 0, 0.0}));
        EXPECT_EQ(engine.EngineOrbitNumber(), 0);
        EXPECT_EQ(engine.EngineOrbitPhase(), 0.0);
    }
}

}  // namespace
}  // namespace vantrace
