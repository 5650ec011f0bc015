#include "orbit/earth/earth_rotation.h"

#include <initializer_list>

#include "orbit/elements/element_set.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

double turnsOf(int hours, int minutes, double seconds) {
    return (hours * 3600.0 + minutes * 60.0 + seconds) / secondsPerDay;
}

// Meeus, "Astronomical Algorithms", 2nd ed. (1998), examples 12.a and 12.b.
TEST(EarthRotation, SiderealTimeIsThatOfThePublishedExamples) {
    const Instant midnight = instantFromCalendar({1987, 4, 10, 0, 0, 0.0});
    EXPECT_NEAR(greenwichMeanSiderealTime(midnight) / twoPi, turnsOf(13, 10, 46.3668), 6e-5 / secondsPerDay);
    const Instant evening = instantFromCalendar({1987, 4, 10, 19, 21, 0.0});
    EXPECT_NEAR(greenwichMeanSiderealTime(evening) / twoPi, turnsOf(8, 34, 57.0896), 6e-5 / secondsPerDay);
}

TEST(EarthRotation, SiderealTimeRunsAtItsPublishedRateWithoutASeam) {
    for (const int year : {1957, 2000, 2026, 2056}) {
        const Instant start = instantFromCalendar({year, 3, 1, 23, 59, 0.0});
        const double before = greenwichMeanSiderealTime(start);
        for (const double seconds : {1.0, 59.5, 60.0, 61.0, 3600.0, 43200.0}) {
            const double after = greenwichMeanSiderealTime(plusSeconds(start, seconds));
            EXPECT_TRUE(after >= 0.0 && after < twoPi);
            const double turned = std::remainder(after - before - earthRotationRadPerS * seconds, twoPi);
            EXPECT_NEAR(turned, 0.0, 2e-9) << year << " after " << seconds;
        }
    }
}

TEST(EarthRotation, ATenthOfAMillisecondIsSeen) {
    const Instant start = instantFromCalendar({2026, 8, 22, 23, 0, 0.0});
    const double turned =
        greenwichMeanSiderealTime(plusSeconds(start, 1e-4)) - greenwichMeanSiderealTime(start);
    EXPECT_NEAR(turned, 1e-4 * earthRotationRadPerS, 1e-12);
}

}  // namespace
}  // namespace vantrace
