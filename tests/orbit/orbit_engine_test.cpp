#include "orbit/orbit_engine.h"

#include "core/date_time.h"
#include "tests/orbit/engine_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

using OrbitEngineTest = EngineTest;

TEST_F(OrbitEngineTest, CountsAndListsTheSatellitesOfTheFolder) {
    load(elementText({.name = "ONE", .number = 1}) + elementText({.name = "TWO", .number = 2}) +
         elementText({.name = "TWO", .number = 2, .epoch = "26240.50000000"}) +
         elementText({.name = "TWO AGAIN", .number = 2}));
    EXPECT_EQ(engine.EngineSatelliteCount(), 2);
    EXPECT_EQ(engine.EngineSatelliteList(), "ONE\nTWO\nTWO AGAIN\n");
}

TEST_F(OrbitEngineTest, KeepsTheLongitudeExactlyAsItWasSet) {
    for (const double longitude : {0.0, 4.7, 360.0 - 355.123, 359.99999999999994, 360.0, 1.0 / 3.0, 1e-300}) {
        engine.EngineSetLongitude(longitude);
        EXPECT_EQ(engine.EngineGetLongitude(), longitude);
    }
}

TEST_F(OrbitEngineTest, AnswersByTrimmedAndCutNames) {
    loadShipped();
    const Instant time = instantFromCalendar({2026, 8, 6, 0, 0, 0.0});
    const double range = engine.track("GSAT0101 (GALILEO-PFM)", time).rangeKm;
    for (const char* name : {"  GSAT0101 (GALILEO-PFM)  ", "GSAT0101 (GALIL", " GSAT0101 (GALIL "}) {
        EXPECT_EQ(engine.track(name, time).rangeKm, range) << name;
    }
    EXPECT_EQ(engine.track(" sun ", time).rangeKm, engine.track("sun", time).rangeKm);
}

TEST_F(OrbitEngineTest, EngineTimeIsTheJulianDate) {
    EXPECT_EQ(engine.EngineJulianDate(packDateTime({2000, 1, 1, 12, 0, 0})), 2451545.0);
    loadShipped();
    const double time = packDateTime({2026, 8, 21, 12, 0, 0});
    const TrackResult byDoor = engine.EngineTrack("HST", engine.EngineJulianDate(time), 0, 0);
    const TrackResult byInstant = engine.track("HST", instantFromDayNumber(time));
    EXPECT_EQ(byDoor.rangeKm, byInstant.rangeKm);
    EXPECT_EQ(byDoor.status, 0);
}

TEST_F(OrbitEngineTest, TellsWhetherTheSubPointMovesSouth) {
    loadShipped();
    const Instant start = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    for (const char* name :
         {"ISS (ZARYA)", "Ofeq 16", "MERIDIAN 7", "GPS BIIR-5  (PRN 22)", "GOES 16", "sun", "moon"}) {
        for (int i = 0; i < 500; ++i) {
            const Instant time = plusSeconds(start, i * 377.0);
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
    const Instant time = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    const TrackResult from = engine.track("ISS (ZARYA)", time);
    setSite(from.latitudeRad / radiansPerDegree, from.longitudeRad / radiansPerDegree, 0.0);
    const TrackResult below = engine.track("ISS (ZARYA)", time);
    EXPECT_NEAR(below.elevationRad, pi / 2.0, 1e-6);
    EXPECT_NEAR(below.rangeKm, from.heightKm, 1e-6);
    engine.EngineSetHeight(100000.0);
    EXPECT_NEAR(engine.track("ISS (ZARYA)", time).rangeKm, from.heightKm - 100.0, 1e-6);
    EXPECT_EQ(below.latitudeRad, from.latitudeRad);
}

TEST_F(OrbitEngineTest, TheStateVectorIsThatOfTheLastTrack) {
    loadShipped();
    const Instant time = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    for (const char* name : {"ISS (ZARYA)", "MERIDIAN 7"}) {
        engine.track(name, time);
        const StateVector told = engine.EngineStateVector();
        const StateVector wanted = engine.stateAt(name, minutesBetween(elementsOf(name).epoch, time));
        EXPECT_EQ(norm(told.positionKm - wanted.positionKm), 0.0);
        EXPECT_EQ(norm(told.velocityKmS - wanted.velocityKmS), 0.0);
    }
    engine.track("sun", time);
    EXPECT_NEAR(norm(engine.EngineStateVector().positionKm), 1.513e8, 1e6);  // August
}

TEST_F(OrbitEngineTest, ARangeRateIsTheRateOfTheRange) {
    loadShipped();
    setSite(52.0, 5.0, 10.0);
    // The model's velocity is the rate of its position but for small periodic terms.
    for (const char* name : {"ISS (ZARYA)", "HST", "GPS BIIR-5  (PRN 22)"}) {
        for (int i = 0; i < 200; ++i) {
            const Instant time = plusSeconds(elementsOf(name).epoch, i * 431.0);
            const double before = engine.track(name, plusSeconds(time, -0.5)).rangeKm;
            const double after = engine.track(name, plusSeconds(time, 0.5)).rangeKm;
            EXPECT_NEAR(engine.track(name, time).rangeRateKmS, after - before, 1e-4) << name << ' ' << i;
        }
    }
}

TEST_F(OrbitEngineTest, AnUnknownNameIsToldAndChangesNothing) {
    loadShipped();
    const Instant time = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    engine.track("HST", time);
    const double phase = engine.EngineOrbitPhase();
    const double x = engine.EngineStateVector().positionKm.x;
    for (const char* name : {"", " ", "hst", "Sun", "MOON", "NO SUCH THING"}) {
        const std::string failure = failureOf([&] { engine.track(name, time); });
        EXPECT_NE(failure.find("unknown name"), std::string::npos) << name;
        EXPECT_NE(failure.find(name), std::string::npos) << failure;
    }
    EXPECT_EQ(engine.EngineOrbitPhase(), phase);
    EXPECT_EQ(engine.EngineStateVector().positionKm.x, x);
}

TEST_F(OrbitEngineTest, AFailedTrackNamesSatelliteTimeAndReason) {
    load(verificationText("SGP4-VER.TLE"));
    const auto failureAt = [&](const char* name, double minutes) {
        const Instant time = plusSeconds(elementsOf(name).epoch, minutes * 60.0);
        const std::string failure = failureOf([&] { engine.track(name, time); });
        EXPECT_EQ(failure.find(std::string(name) + " at " + isoText(time, 3)), 0U) << failure;
        return failure;
    };
    EXPECT_NE(failureAt("28872", 55.0).find("decayed"), std::string::npos);
    EXPECT_NE(failureAt("28350", 1560.0).find("mean eccentricity"), std::string::npos);
    EXPECT_NE(failureAt("33333", 25.0).find("semi-latus rectum"), std::string::npos);
    EXPECT_NE(failureAt("33334", 0.0).find("eccentricity"), std::string::npos);
}

TEST_F(OrbitEngineTest, TimesThatAreNoneOrFarAwayFailCleanly) {
    loadShipped();
    for (const char* name : {"HST", "MERIDIAN 7", "sun", "moon"}) {
        for (const double time :
             {notANumber, infinite, -infinite, 0.0, 1721425.0, 5373485.0, 1e9, -1e9, 1e300}) {
            EXPECT_NE(failureOf([&] { engine.EngineTrack(name, time, 0, 0); }).find(name), std::string::npos)
                << name << ' ' << time;
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
    EXPECT_NE(failureOf([&] { engine.EngineJulianDate(notANumber); }), "");
    EXPECT_NE(failureOf([&] { engine.stateAt("HST", infinite); }), "");
}

TEST_F(OrbitEngineTest, AnObserverThatIsNoneIsRefusedAndTheOldOneStays) {
    loadShipped();
    setSite(52.0, 5.0, 10.0);
    const Instant time = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    const double range = engine.track("HST", time).rangeKm;
    for (const double latitude : {notANumber, infinite, 90.0001, -91.0}) {
        EXPECT_NE(failureOf([&] { engine.EngineSetLatitude(latitude); }), "") << latitude;
    }
    for (const double value : {notANumber, infinite, -infinite}) {
        EXPECT_NE(failureOf([&] { engine.EngineSetLongitude(value); }), "") << value;
        EXPECT_NE(failureOf([&] { engine.EngineSetHeight(value); }), "") << value;
    }
    EXPECT_EQ(engine.EngineGetLongitude(), 5.0);
    EXPECT_EQ(engine.track("HST", time).rangeKm, range);
}

TEST_F(OrbitEngineTest, AnswersFromNewElementsOnceTheFolderIsReadAgain) {
    load(elementText({.meanAnomalyDeg = 10.0}));
    const Instant time = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    const Vector3 old = (engine.track("MADE", time), engine.EngineStateVector().positionKm);
    folder.write("elements.txt", elementText({.meanAnomalyDeg = 20.0}));
    engine.track("MADE", time);
    EXPECT_EQ(norm(engine.EngineStateVector().positionKm - old), 0.0);
    engine.EngineSetKepPath(folder.appPath());
    engine.track("MADE", time);
    EXPECT_NEAR(norm(engine.EngineStateVector().positionKm - old), 6800.0 * 10.0 * radiansPerDegree, 15.0);
    folder.write("elements.txt", "");
    engine.EngineSetKepPath(folder.appPath());
    EXPECT_NE(failureOf([&] { engine.track("MADE", time); }).find("unknown name"), std::string::npos);
    EXPECT_EQ(engine.EngineSatelliteCount(), 0);
}

TEST_F(OrbitEngineTest, AFolderThatCannotBeListedIsAnErrorAndTheOldAnswersStay) {
    load(elementText({}));
    EXPECT_NE(failureOf([&] { engine.EngineSetKepPath(folder.appPath() + "missing/"); }).find("missing"),
              std::string::npos);
    engine.track("MADE", instantFromCalendar({2026, 8, 21, 12, 0, 0.0}));
    EXPECT_EQ(engine.EngineSatelliteCount(), 1);
}

TEST_F(OrbitEngineTest, BeforeAnyTrackThereIsNothingToTell) {
    EXPECT_EQ(engine.EngineOrbitNumber(), 0);
    EXPECT_EQ(engine.EngineOrbitPhase(), 0.0);
    EXPECT_EQ(norm(engine.EngineStateVector().positionKm), 0.0);
    EXPECT_EQ(engine.EngineSatelliteCount(), 0);
    EXPECT_EQ(engine.EngineSatelliteList(), "");
}

}  // namespace
}  // namespace vantrace
