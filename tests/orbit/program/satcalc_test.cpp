#include "orbit/satcalc.h"

#include "core/date_time.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "tests/orbit/program/program_test.h"
#include "tests/support/fake_window.h"

namespace vantrace {
namespace {

const std::string station = "ISS (ZARYA)";

class SatcalcTest : public ProgramTest {
  protected:
    SatcalcTest() { state.PrimarySatName = station; }
    ~SatcalcTest() override { services.windows.close(); }

    /// The minutes count from 2026-08-21 22:00 local time, 20:00 UTC.
    void calculate(const std::string& name, bool primary, int minutes = 0) {
        const DateParts local = dateParts(packDateTime({2026, 8, 21, 22, minutes, 0}));
        const auto part = [](int value) { return static_cast<std::int16_t>(value); };
        Satcalc(state, services, name, part(local.year), part(local.month), part(local.day), part(local.hour),
                part(local.minute), part(local.second), primary);
    }
    double engineTime(int minutes = 0) const {
        return state.OrbitEngine->EngineJulianDate(packDateTime({2026, 8, 21, 20, minutes, 0}));
    }
    /// The engine's answer from where the observer ought to be.
    TrackResult expected(const std::string& name, int minutes = 0) const {
        return newEngine()->EngineTrack(name, engineTime(minutes), 0, 0);
    }

    WindowScript& passPrediction = fakes.fakeWindow("PassPrediction");
};

TEST_F(SatcalcTest, GivesTheEnginesPositionInDegreesAndWestLongitude) {
    calculate(station, false);
    const TrackResult track = expected(station);
    EXPECT_NEAR(state.SatAzimuth, inDegrees(track.azimuthRad), 1e-9);
    EXPECT_NEAR(state.SatElevation, inDegrees(track.elevationRad), 1e-9);
    EXPECT_NEAR(state.SatLatitude, inDegrees(track.latitudeRad), 1e-9);
    EXPECT_NEAR(state.SatLongitude, 360.0 - inDegrees(track.longitudeRad), 1e-9);
    EXPECT_EQ(state.SatRange, track.rangeKm);
    EXPECT_EQ(state.SatRangeRate, track.rangeRateKmS);
    EXPECT_EQ(state.SatHeight, track.heightKm);
    EXPECT_EQ(state.SatDescending, track.descending);
    EXPECT_NEAR(std::hypot(state.SatVectorX, state.SatVectorY, state.SatVectorZ), 6378.0 + state.SatHeight,
                25.0);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(SatcalcTest, PhasesAreTheFractionOfTheOrbitToTwoDecimals) {
    calculate(station, false);
    const double count = state.OrbitEngine->EngineOrbitPhase();
    EXPECT_NEAR(state.SatPhase255, (count - std::floor(count)) * 255.0, 0.005);
    EXPECT_NEAR(std::round(state.SatPhase255 * 100.0), state.SatPhase255 * 100.0, 1e-9);
    EXPECT_EQ(state.SatPhase360, formatNumber((count - std::floor(count)) * 360.0, "0.00"));
    EXPECT_EQ(state.SatOrbitNumber, std::to_string(state.OrbitEngine->EngineOrbitNumber()));

    const double phase255 = state.SatPhase255;
    std::string phase360 = state.SatPhase360;
    services.format.decimalMark = ',';
    calculate(station, false);
    EXPECT_EQ(state.SatPhase255, phase255) << "a number has no mark";
    EXPECT_EQ(state.SatPhase360, phase360.replace(phase360.find('.'), 1, ","));
}

TEST_F(SatcalcTest, DoesNothingWhileTheMenuIsOnScreen) {
    state.MainTag = "menu";
    state.SatAzimuth = 123.0;
    calculate(station, true);
    EXPECT_EQ(state.SatAzimuth, 123.0);
    EXPECT_EQ(state.SatOrbitNumber, "");
    state.OrbitEngine.reset();
    calculate(station, true);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(SatcalcTest, OnlyAPrimaryCallForTheSelectedSatelliteLooksAtLightAndNextPass) {
    state.SatSunlit = true;
    state.SatVisible = true;
    calculate(station, false);
    calculate("sun", true);
    calculate("moon", true);
    calculate("FUNCUBE-1 (AO-73)", true);
    EXPECT_TRUE(state.SatSunlit);
    EXPECT_TRUE(state.SatVisible);
    EXPECT_EQ(state.SatNextAOS, "");
    EXPECT_TRUE(fakes.logLines().empty());
    calculate(station, true);
    EXPECT_EQ(state.SatNextAOS.size(), 8U);
    EXPECT_NE(state.SatNextDuration, "");
    EXPECT_NE(state.SatNextMaxElevation, "");
    services.windows.show("PassPrediction");
    state.SatNextAOS = "before";
    calculate(station, true);
    EXPECT_EQ(state.SatNextAOS, "before") << "the predictions' window keeps it";
}

TEST_F(SatcalcTest, LightAndVisibilityFollowTheSunAtSatelliteAndObserver) {
    services.windows.show("PassPrediction");
    int visible = 0;
    int eclipsedInTwilight = 0;
    auto atSatellite = newEngine();
    for (int minutes = 0; minutes < 4 * 1440; ++minutes) {
        calculate(station, true, minutes);
        atSatellite->EngineSetLatitude(state.SatLatitude);
        atSatellite->EngineSetLongitude(360.0 - state.SatLongitude);
        atSatellite->EngineSetHeight(state.SatHeight);
        const double sunThere =
            inDegrees(atSatellite->EngineTrack("sun", engineTime(minutes), 0, 0).elevationRad);
        const double sunHere = inDegrees(expected("sun", minutes).elevationRad);
        const bool twilight = sunHere >= -18.0 && sunHere <= -6.0;
        ASSERT_EQ(state.SatSunlit, sunThere > -18.0) << minutes;
        ASSERT_EQ(state.SatVisible, twilight && sunThere > -18.0 && state.SatElevation > 0.0) << minutes;
        visible += state.SatVisible ? 1 : 0;
        eclipsedInTwilight += twilight && !state.SatSunlit ? 1 : 0;
    }
    EXPECT_GT(visible, 0);
    EXPECT_GT(eclipsedInTwilight, 0);
}

TEST_F(SatcalcTest, AFailureIsLoggedAndKeepsTheFieldsAndTheObserverIsAlwaysPutBack) {
    calculate(station, true);
    EXPECT_EQ(state.OrbitEngine->EngineGetLongitude(), 5.0);
    const TrackResult here = state.OrbitEngine->EngineTrack("moon", engineTime(), 0, 0);
    EXPECT_EQ(here.azimuthRad, expected("moon").azimuthRad);
    EXPECT_EQ(here.rangeKm, expected("moon").rangeKm);
    const double longitude = state.SatLongitude;
    const double range = state.SatRange;
    state.PrimarySatName = "NO SUCH SATELLITE";
    calculate("NO SUCH SATELLITE", true, 10);
    EXPECT_EQ(fakes.logged(labels::globalSatcalc), 1);
    EXPECT_EQ(state.SatLongitude, longitude);
    EXPECT_EQ(state.SatRange, range);
    EXPECT_EQ(state.OrbitEngine->EngineGetLongitude(), 5.0);
    // A settings file can hold any latitude.
    state.ObserverLatitude = -200;
    state.OrbitEngine->EngineSetLatitude(-200);
    const double southOfAll = expected("moon").elevationRad;
    state.PrimarySatName = station;
    calculate(station, true);
    EXPECT_EQ(expected("moon").elevationRad, southOfAll);
}

TEST_F(SatcalcTest, WithoutAnEngineOnlyTheLogTells) {
    calculate(station, true);
    const auto fields = [&] {
        return std::tuple(state.SatLongitude, state.SatOrbitNumber, state.SatPhase360);
    };
    const auto before = fields();
    state.OrbitEngine.reset();
    calculate(station, true);
    EXPECT_GT(fakes.logged(labels::globalSatcalc), 5) << "one line for each statement that failed";
    EXPECT_EQ(fields(), before);
}

}  // namespace
}  // namespace vantrace
