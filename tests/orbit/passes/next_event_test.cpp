// The searches for one rise or set, and how they follow one another.

#include "core/date_time.h"
#include "tests/orbit/engine_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class NextEventTest : public EngineTest {
  protected:
    NextEventTest() { loadShipped(); }
};

/// Seconds between two day numbers.
double secondsTo(double earlier, double later) {
    return (later - earlier) * secondsPerDay;
}

TEST_F(NextEventTest, RisesAndSetsFollowThePassesOneByOne) {
    const Instant from = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    for (const double latitude : {52.0, 5.0, -45.0}) {
        setSite(latitude, 20.0, 0.0);
        for (const char* name : {"ISS (ZARYA)", "HST", "MERIDIAN 7", "GPS BIIR-5  (PRN 22)"}) {
            SCOPED_TRACE(name);
            double time = dayNumber(from);
            for (const Pass& pass : engine.passes(name, from, 3.0).passes) {
                if (secondsBetween(from, pass.rise.time) < 0.0) {
                    time = engine.EngineNextLOS(name, time);
                    EXPECT_NEAR(secondsTo(dayNumber(pass.set.time), time), 0.0, 0.02);
                    continue;
                }
                const double aos = engine.EngineNextAOS(name, time);
                EXPECT_NEAR(secondsTo(dayNumber(pass.rise.time), aos), 0.0, 0.02);
                // The set at a rise that was told ends that very pass.
                const double los = engine.EngineNextLOS(name, aos);
                EXPECT_NEAR(secondsTo(dayNumber(pass.set.time), los), 0.0, 0.02);
                // From a rise the next rise is another one, as it is from the set.
                EXPECT_GT(secondsTo(aos, engine.EngineNextAOS(name, aos)), 60.0);
                EXPECT_NEAR(secondsTo(engine.EngineNextAOS(name, aos), engine.EngineNextAOS(name, los)), 0.0,
                            0.02);
                // From a set the next set is another one.
                EXPECT_GT(secondsTo(los, engine.EngineNextLOS(name, los)), 60.0);
                time = los;
            }
        }
    }
}

TEST_F(NextEventTest, WithinAPassTheSetComesBeforeTheRise) {
    setSite(52.0, 5.0, 0.0);
    const Instant from = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    for (const Pass& pass : engine.passes("ISS (ZARYA)", from, 1.0).passes) {
        const double middle = dayNumber(pass.culmination.time);
        EXPECT_NEAR(secondsTo(dayNumber(pass.set.time), engine.EngineNextLOS("ISS (ZARYA)", middle)), 0.0,
                    0.02);
        EXPECT_GT(engine.EngineNextAOS("ISS (ZARYA)", middle), dayNumber(pass.set.time));
    }
}

TEST_F(NextEventTest, WithoutAnEventInThirtyDaysTheAnswerIsTheEndOfTime) {
    const double never = packDateTime({9999, 1, 1, 23, 59, 59});
    const double time = packDateTime({2026, 8, 21, 12, 0, 0});
    setSite(30.0, 275.0, 0.0);  // always up
    EXPECT_EQ(engine.EngineNextAOS("GOES 19", time), never);
    EXPECT_EQ(engine.EngineNextLOS("GOES 19", time), never);
    setSite(30.0, 95.0, 0.0);  // never up
    EXPECT_EQ(engine.EngineNextAOS("GOES 19", time), never);
    EXPECT_EQ(engine.EngineNextLOS("GOES 19", time), never);
    setSite(90.0, 0.0, 0.0);
    EXPECT_EQ(engine.EngineNextAOS("sun", packDateTime({2026, 10, 15, 0, 0, 0})), never);
}

TEST_F(NextEventTest, SunriseIsFoundToTheMinute) {
    // The centre of the sun stands on the mathematical horizon at the equator, on the day of an equinox, six
    // hours before and after its noon; the equation of time of 2026-03-20 is -7.5 minutes.
    setSite(0.0, 0.0, 0.0);
    const double midnight = packDateTime({2026, 3, 20, 0, 0, 0});
    const double rise = engine.EngineNextAOS("sun", midnight);
    const double set = engine.EngineNextLOS("sun", midnight);
    EXPECT_NEAR(secondsTo(midnight, rise), 6.0 * 3600.0 + 7.5 * 60.0, 30.0);
    EXPECT_NEAR(secondsTo(midnight, set), 18.0 * 3600.0 + 7.5 * 60.0, 30.0);
}

TEST_F(NextEventTest, AnEndingPathIsToldWithItsMoment) {
    load(verificationText("SGP4-VER.TLE"));
    setSite(89.9, 0.0, 0.0);
    const double epoch = dayNumber(elementsOf("22312").epoch);
    std::string failure;
    double time = epoch;
    // Rise after rise, until the path ends.
    for (int i = 0; i < 50 && failure.empty(); ++i) {
        failure = failureOf([&] { time = engine.EngineNextAOS("22312", time); });
    }
    EXPECT_NE(failure.find("22312 at 2006-04-04T19:1"), std::string::npos) << failure;
    EXPECT_NE(failure.find("mean eccentricity"), std::string::npos) << failure;
}

TEST_F(NextEventTest, TimesThatAreNoneFailAndNameTheReason) {
    setSite(52.0, 5.0, 0.0);
    for (const double time :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), 1e12, -1e12, 1e300}) {
        EXPECT_NE(failureOf([&] { engine.EngineNextAOS("HST", time); }), "") << time;
        EXPECT_NE(failureOf([&] { engine.EngineNextLOS("sun", time); }), "") << time;
        EXPECT_NE(failureOf([&] { engine.EnginePassList("HST", time, 1, 3, 0, 0); }), "") << time;
    }
    EXPECT_NE(failureOf([&] { engine.EngineNextAOS("NO SUCH THING", 46000.0); }).find("NO SUCH THING"),
              std::string::npos);
}

}  // namespace
}  // namespace vantrace
