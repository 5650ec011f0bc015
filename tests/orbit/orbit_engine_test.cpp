#include "core/date_time.h"
#include "tests/orbit/engine_test.h"

namespace vantrace {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

using OrbitEngineTest = EngineTest;

TEST_F(OrbitEngineTest, KeepsTheLongitudeExactlyAsItWasSet) {
    for (const double longitude : {0.0, 4.7, 360.0 - 355.123, 359.99999999999994, 360.0, 1.0 / 3.0, 1e-300}) {
        engine.EngineSetLongitude(longitude);
        EXPECT_EQ(engine.EngineGetLongitude(), longitude);
    }
}

TEST_F(OrbitEngineTest, EngineTimeIsTheJulianDate) {
    loadShipped();
    const double time = engine.EngineJulianDate(packDateTime({2026, 8, 21, 12, 0, 0}));
    EXPECT_EQ(time, 2461274.0);
    const TrackResult byDoor = engine.EngineTrack("HST", time, 0, 0);
    EXPECT_EQ(byDoor.rangeKm, engine.track("HST", noon).rangeKm);
    EXPECT_EQ(byDoor.status, 0);
}

TEST_F(OrbitEngineTest, TellsWhetherTheSubPointMovesSouth) {
    loadShipped();
    for (const char* name :
         {"ISS (ZARYA)", "Ofeq 16", "MERIDIAN 7", "GPS BIIR-5  (PRN 22)", "GOES 16", "sun", "moon"}) {
        for (int i = 0; i < 500; ++i) {
            const Instant time = plusSeconds(noon, i * 377.0);
            const double before = engine.track(name, plusSeconds(time, -1.0)).latitudeRad;
            const double after = engine.track(name, plusSeconds(time, 1.0)).latitudeRad;
            const bool southward = after < before;
            // Where the latitude turns either answer is right.
            if (std::abs(after - before) < 2e-9) continue;
            EXPECT_EQ(engine.track(name, time).descending, southward) << name << ' ' << i;
        }
    }
}

TEST_F(OrbitEngineTest, MovingTheObserverMovesTheLookAtOnce) {
    loadShipped();
    const TrackResult from = engine.track("ISS (ZARYA)", noon);
    setSite(from.latitudeRad / radiansPerDegree, from.longitudeRad / radiansPerDegree, 0.0);
    const TrackResult below = engine.track("ISS (ZARYA)", noon);
    EXPECT_NEAR(below.elevationRad, pi / 2.0, 1e-6);
    EXPECT_NEAR(below.rangeKm, from.heightKm, 1e-6);
    engine.EngineSetHeight(100000.0);
    EXPECT_NEAR(engine.track("ISS (ZARYA)", noon).rangeKm, from.heightKm - 100.0, 1e-6);
    EXPECT_EQ(below.latitudeRad, from.latitudeRad);
}

TEST_F(OrbitEngineTest, TheStateVectorIsThatOfTheLastTrack) {
    loadShipped();
    for (const char* name : {"ISS (ZARYA)", "MERIDIAN 7"}) {
        engine.track(name, noon);
        const StateVector told = engine.EngineStateVector();
        const StateVector wanted = engine.stateAt(name, minutesBetween(elementsOf(name).epoch, noon));
        EXPECT_EQ(norm(told.positionKm - wanted.positionKm), 0.0);
        EXPECT_EQ(norm(told.velocityKmS - wanted.velocityKmS), 0.0);
    }
    engine.track("sun", noon);
    EXPECT_NEAR(norm(engine.EngineStateVector().positionKm), 1.513e8, 1e6);  // August
}

TEST_F(OrbitEngineTest, ARangeRateIsTheRateOfTheRange) {
    loadShipped();
    setSite(52.0, 5.0, 10.0);
    // The model's velocity is the rate of its position but for small periodic terms.
    for (const auto& [name, stepS, asideS, tolerance] :
         {std::tuple("ISS (ZARYA)", 431.0, 0.5, 1e-4), std::tuple("HST", 431.0, 0.5, 1e-4),
          std::tuple("GPS BIIR-5  (PRN 22)", 431.0, 0.5, 1e-4), std::tuple("sun", 26000.0, 30.0, 5e-4),
          std::tuple("moon", 26000.0, 30.0, 5e-4)}) {
        for (int i = 0; i < 200; ++i) {
            const Instant time = plusSeconds(noon, i * stepS);
            const double before = engine.track(name, plusSeconds(time, -asideS)).rangeKm;
            const double after = engine.track(name, plusSeconds(time, asideS)).rangeKm;
            EXPECT_NEAR(engine.track(name, time).rangeRateKmS, (after - before) / (2.0 * asideS), tolerance)
                << name << ' ' << i;
        }
    }
}

TEST_F(OrbitEngineTest, AnUnknownNameIsToldAndChangesNothing) {
    loadShipped();
    engine.track(" sun ", noon);
    engine.track(" HST ", noon);
    const double phase = engine.EngineOrbitPhase();
    const double x = engine.EngineStateVector().positionKm.x;
    for (const char* name : {"", " ", "hst", "Sun", "MOON", "NO SUCH THING"}) {
        expectFailure([&] { engine.track(name, noon); }, "unknown name");
        expectFailure([&] { engine.track(name, noon); }, name);
    }
    EXPECT_EQ(engine.EngineOrbitPhase(), phase);
    EXPECT_EQ(engine.EngineStateVector().positionKm.x, x);
}

TEST_F(OrbitEngineTest, AFailedTrackNamesSatelliteTimeAndReason) {
    load(verificationText("SGP4-VER.TLE"));
    for (const auto& [name, minutes, reason] :
         {std::tuple("28872", 55.0, "decayed"), std::tuple("28350", 1560.0, "mean eccentricity"),
          std::tuple("33333", 25.0, "semi-latus rectum"), std::tuple("33334", 0.0, "eccentricity")}) {
        const Instant time = plusSeconds(elementsOf(name).epoch, minutes * 60.0);
        const std::string failure = failureOf([&] { engine.track(name, time); });
        EXPECT_EQ(failure.find(std::string(name) + " at " + isoText(time, 3)), 0U) << failure;
        EXPECT_NE(failure.find(reason), std::string::npos) << failure;
    }
}

TEST_F(OrbitEngineTest, TimesThatAreNoneOrFarAwayFailCleanly) {
    loadShipped();
    for (const char* name : {"HST", "MERIDIAN 7", "sun", "moon"}) {
        for (const double time :
             {notANumber, infinite, -infinite, 0.0, 1721425.0, 5373485.0, 1e9, -1e9, 1e300}) {
            expectFailure([&] { engine.EngineTrack(name, time, 0, 0); }, name);
        }
        // Within the calendar an answer is a place or an error, and finite. (A resonant orbit is integrated
        // step by step: seconds of work at the ends of the calendar.)
        for (const int year : {1, 100, 1600, 1900, 1957, 2100, 3000, 9999}) {
            if (std::string_view(name) == "MERIDIAN 7" && (year < 1900 || year > 2100)) continue;
            const Instant time = instantFromCalendar({year, 7, 1, 0, 0, 0.0});
            failureOf([&] {
                const TrackResult result = engine.track(name, time);
                EXPECT_TRUE(std::isfinite(result.rangeKm + result.azimuthRad + result.rangeRateKmS)) << year;
                EXPECT_TRUE(std::isfinite(engine.EngineOrbitPhase())) << year;
                EXPECT_GE(result.rangeKm, 0.0);
            });
        }
    }
    expectFailure([&] { engine.EngineJulianDate(notANumber); });
    expectFailure([&] { engine.stateAt("HST", infinite); });
}

TEST_F(OrbitEngineTest, AnObserverThatIsNoneIsRefusedAndTheOldOneStays) {
    loadShipped();
    setSite(52.0, 5.0, 10.0);
    const double range = engine.track("HST", noon).rangeKm;
    for (const double value : {notANumber, infinite, -infinite}) {
        expectFailure([&] { engine.EngineSetLatitude(value); });
        expectFailure([&] { engine.EngineSetLongitude(value); });
        expectFailure([&] { engine.EngineSetHeight(value); });
    }
    EXPECT_EQ(engine.EngineGetLongitude(), 5.0);
    EXPECT_EQ(engine.track("HST", noon).rangeKm, range);
    setSite(-90.0, 5.0, 10.0);
    const double fromThePole = engine.track("HST", noon).rangeKm;
    engine.EngineSetLatitude(-90.0001);
    EXPECT_EQ(engine.track("HST", noon).rangeKm, fromThePole);
}

TEST_F(OrbitEngineTest, AnswersFromNewElementsOnceTheFolderIsReadAgain) {
    const auto position = [&] { return engine.track("MADE", noon), engine.EngineStateVector().positionKm; };
    load(elementText({.meanAnomalyDeg = 10.0}));
    EXPECT_EQ(engine.EngineSatelliteList(), "MADE\n");
    const Vector3 old = position();
    folder.write("elements.txt", elementText({.meanAnomalyDeg = 20.0}));
    EXPECT_EQ(norm(position() - old), 0.0);
    expectFailure([&] { engine.EngineSetKepPath(folder.appPath() + "missing/"); }, "missing");
    EXPECT_EQ(norm(position() - old), 0.0);
    engine.EngineSetKepPath(folder.appPath());
    EXPECT_NEAR(norm(position() - old), 6800.0 * 10.0 * radiansPerDegree, 15.0);
    load("");
    expectFailure([&] { position(); }, "unknown name");
    EXPECT_EQ(engine.EngineSatelliteCount(), 0);
}

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

TEST_F(OrbitCountTest, GrowsEvenlyAlsoOverTheEquatorWhereThereIsNoNode) {
    for (const auto& [name, stepS, turnS, tolerance] :
         {std::tuple("ISS (ZARYA)", 10.0, 5570.0, 1e-5), std::tuple("GOES 19", 600.0, 86164.0, 2e-5)}) {
        double last = phaseAt(name, elementsOf(name).epoch);
        for (int i = 1; i <= 3000; ++i) {
            const double phase = phaseAt(name, plusSeconds(elementsOf(name).epoch, i * stepS));
            EXPECT_NEAR(phase - last, stepS / turnS, tolerance) << name << ' ' << i;
            EXPECT_EQ(engine.EngineOrbitNumber(), static_cast<std::int32_t>(std::floor(phase)));
            last = phase;
        }
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
        engine.track(name, noon);
        EXPECT_EQ(engine.EngineOrbitNumber(), 0);
        EXPECT_EQ(engine.EngineOrbitPhase(), 0.0);
    }
}

}  // namespace
}  // namespace vantrace
