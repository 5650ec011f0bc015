#include "horizon/paint_screen.h"

#include "core/date_time.h"
#include "horizon/sky_projection.h"
#include "tests/horizon/horizon_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

using PaintScreenTest = HorizonTest;

TEST(SkyProjection, NorthIsAtTheEdgesOrInTheMiddle) {
    struct Case {
        double azimuth;
        double southern;
        double northern;
    };
    for (const Case& expected : {Case{0, 0, 360}, Case{90, 180, 540}, Case{180, 360, 720},
                                 Case{180.5, 361, 1}, Case{270, 540, 180}, Case{360, 720, 360}}) {
        EXPECT_DOUBLE_EQ(AzimuthToX(false, 720, expected.azimuth), expected.southern);
        EXPECT_DOUBLE_EQ(AzimuthToX(true, 720, expected.azimuth), expected.northern) << expected.azimuth;
    }
    EXPECT_DOUBLE_EQ(ElevationToY(180, 90), 0);
    EXPECT_DOUBLE_EQ(ElevationToY(180, 0), 180);
    EXPECT_DOUBLE_EQ(ElevationToY(180, -10), 200);
}

TEST_F(PaintScreenTest, WordsStandOnTheLandscapeInTheirPlaces) {
    const auto words = [&] {
        fakes.textPainter.questions.clear();
        paint();
        Texts texts;
        for (const auto& question : fakes.textPainter.questions) texts.push_back(question.text);
        texts.resize(5);
        return texts;
    };
    EXPECT_EQ(words(), (Texts{"NORTH", "EAST", "SOUTH", "WEST", "NORTH"}));
    form.CenteredNorth = true;
    EXPECT_EQ(words(), (Texts{"SOUTH", "WEST", "NORTH", "EAST", "SOUTH"}));
    // Every letter of the tests' face is a box two pixels below the pen; before each word there is a dot.
    for (const int x : {0, 180, 360, 533, 680}) {
        EXPECT_EQ(surfaces.Final.pixel(x, 40), 0U) << x;
        EXPECT_EQ(surfaces.Final.pixel(x + 2, 45), 0x00FFFFU) << x;
    }
    EXPECT_EQ(surfaces.Final.pixel(300, 100), sky);
    EXPECT_EQ(fakes.logged(labels::horizonPaintScreen), 0);
}

/// The moments of an evening in which the sun passes -6 and -18 degrees, by the engine itself.
TEST_F(PaintScreenTest, TheSentenceOnTheSunGoesByItsElevation) {
    const std::string twilight =
        "The Sun is slightly below the horizon, Astronomical Twilight Time, Ideal for visual satellite "
        "observations";
    const std::string night = "The Sun is too far below the horizon for visual observations";
    for (int minute = 0; minute < 24 * 60; minute += 7) {
        fakes.clock.setUtc({2026, 8, 21, 0, minute, 0}, 120);
        fakes.textPainter.questions.clear();
        paint();
        const double julian = state.OrbitEngine->EngineJulianDate(packDateTime({2026, 8, 21, 0, minute, 0}));
        const TrackResult sun = state.OrbitEngine->EngineTrack("sun", julian, 0, 0);
        const double elevation = sun.elevationRad * 180 / std::numbers::pi;
        EXPECT_EQ(isPrinted(night), elevation < -18) << elevation;
        EXPECT_EQ(isPrinted(twilight), elevation >= -18 && elevation <= -6) << elevation;
    }
}

/// Like "%.1f", but without the 0 in front of the point.
std::string tenths(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.1f", value);
    std::string result = text;
    const std::size_t zero = result.find('0');
    if (result.starts_with("0.") || result.starts_with("-0.")) result.erase(zero, 1);
    return result;
}

TEST_F(PaintScreenTest, SentencesOfSunAndMoonHoldTheirAngles) {
    surfaces.SunPic = surfaces.SunMask = surfaces.MoonPic = surfaces.MoonMask = Surface(30, 30);
    int moonlessMinutes = 0;
    bool hasSeenTheSunBelow = false;
    for (int minute = 0; minute < 3 * 24 * 60; minute += 7) {
        fakes.clock.setUtc(dateParts(packDateTime({2026, 8, 21, 0, minute, 0})), 120);
        fakes.textPainter.questions.clear();
        paint();
        const double julian = state.OrbitEngine->EngineJulianDate(packDateTime({2026, 8, 21, 0, minute, 0}));
        const auto sentence = [&](const char* body, const TrackResult& track) {
            constexpr double perRadian = 180 / std::numbers::pi;
            return std::string("The ") + body + " is " + tenths(track.elevationRad * perRadian) +
                   " degrees above the horizon, at " + tenths(track.azimuthRad * perRadian) +
                   " degrees heading";
        };
        const TrackResult sun = state.OrbitEngine->EngineTrack("sun", julian, 0, 0);
        const double sunDeg = sun.elevationRad * 180 / std::numbers::pi;
        EXPECT_EQ(isPrinted(sentence("Sun", sun)), sunDeg > -6) << sunDeg;
        hasSeenTheSunBelow = hasSeenTheSunBelow || (sunDeg > -6 && sunDeg < 0);
        const TrackResult moon = state.OrbitEngine->EngineTrack("moon", julian, 0, 0);
        const bool isMoonUp = moon.elevationRad * 180 / std::numbers::pi >= 1;
        EXPECT_EQ(isPrinted(sentence("Moon", moon)), isMoonUp);
        EXPECT_EQ(isPrinted("The Moon is below the horizon."), !isMoonUp);
        moonlessMinutes += isMoonUp ? 0 : 1;
        EXPECT_EQ(fakes.textPainter.questions[5].text.starts_with("The Sun"), true);
        EXPECT_EQ(surfaces.Final.pixel(0, 15), 0U) << "the dot before the sentence on the moon";
    }
    EXPECT_TRUE(hasSeenTheSunBelow && moonlessMinutes > 0);
}

TEST_F(PaintScreenTest, SpritesLieAtTheirOffsets) {
    const Colour sunColour = 0x0000F0;
    surfaces.SunPic = surfaces.SunMask = Surface(30, 30);
    surfaces.SunPic.setBackgroundColour(sunColour);
    surfaces.SunPic.clear();
    fakes.clock.setUtc({2026, 8, 21, 12, 0, 0}, 120);
    paint();
    const TrackResult sun = state.OrbitEngine->EngineTrack(
        "sun", state.OrbitEngine->EngineJulianDate(packDateTime({2026, 8, 21, 12, 0, 0})), 0, 0);
    const int x = static_cast<int>(std::nearbyint(sun.azimuthRad * 180 / std::numbers::pi * 2));
    const int y = static_cast<int>(std::nearbyint((90 - sun.elevationRad * 180 / std::numbers::pi) * 2));
    EXPECT_EQ(surfaces.Final.pixel(x, y), sunColour) << "its corner is at its place";
    EXPECT_EQ(surfaces.Final.pixel(x + 29, y + 29), sunColour);
    EXPECT_EQ(surfaces.Final.pixel(x - 1, y), sky);

    addFavourite("INTELSAT 10-02");
    addFavourite("ISS (ZARYA)");
    goIntoPass("ISS (ZARYA)", 200);
    state.PrimarySatIndex = 2;
    for (std::size_t i = 0; i < 2; ++i) {
        surfaces.SatPic[i] = surfaces.SatMask[i] = Surface(32, 32);
        surfaces.SatPic[i].setBackgroundColour(0xF00000 + static_cast<Colour>(i));
        surfaces.SatPic[i].clear();
    }
    paint();
    const FavouriteRecord& station = state.Favourites[2];
    ASSERT_GT(station.Elevation, 1);
    const int left = static_cast<int>(std::nearbyint(AzimuthToX(false, 720, station.Azimuth) - 16));
    const int top = static_cast<int>(std::nearbyint(ElevationToY(180, station.Elevation) - 20));
    ASSERT_TRUE(left > 0 && left + 31 < 720 && top > 0 && top < 178) << left << ' ' << top;
    EXPECT_EQ(surfaces.Final.pixel(left, top + 1), 0xF00001U);
    EXPECT_EQ(surfaces.Final.pixel(left + 31, top + 1), 0xF00001U);
    EXPECT_EQ(surfaces.Final.pixel(left - 1, top + 1), sky);
    EXPECT_TRUE(isPrinted("ISS (ZARYA)"));
}

TEST_F(PaintScreenTest, PicturesAndNamesFollowTheSatellitesName) {
    struct Case {
        const char* name;
        SkySatelliteLook look;
    };
    for (const Case& expected :
         {Case{"FUNCUBE-1", {0, 14}}, Case{"ISS (ZARYA)", {1, 24}}, Case{"MIR", {2, 24}},
          Case{"MIR 2", {0, 14}}, Case{"STS-107", {3, 24}}, Case{"OSCAR AO-40", {4, 16}},
          Case{"P3D", {4, 16}}, Case{"NOAA AO-40", {5, 21}}, Case{"XISS", {0, 14}}}) {
        EXPECT_EQ(skySatelliteLook(expected.name), expected.look) << expected.name;
    }
}

TEST_F(PaintScreenTest, WithoutASelectionTheFirstAboveTheHorizonIsSelectedAndSaid) {
    addFavourite("ISS (ZARYA)");
    addFavourite("INTELSAT 10-02");
    addFavourite("INTELSAT 10-02");
    paint();  // the first has set; the second never does here, over 359 degrees east
    EXPECT_EQ(state.PrimarySatIndex, 2);
    EXPECT_EQ(fakes.speech.texts, Texts{"Selected Satellite INTELSAT 10 02"});
    paint();
    EXPECT_EQ(fakes.speech.texts.size(), 1U);
    EXPECT_GT(count(0x00FF00), 0);
    EXPECT_EQ(surfaces.Final.pixel(2, 170), 0x00FF00U) << "the line at the bottom has the track's colour";
    const FavouriteRecord& chosen = state.Favourites[2];
    EXPECT_TRUE(
        isPrinted(" INTELSAT 10-02     AZ: " + std::to_string(static_cast<int>(std::floor(chosen.Azimuth))) +
                  "      EL: " + std::to_string(static_cast<int>(std::floor(chosen.Elevation)))));
}

TEST_F(PaintScreenTest, ASelectedSatelliteThatHasSetIsLetGoInTheSameFrame) {
    addFavourite("ISS (ZARYA)");
    state.PrimarySatIndex = 1;
    paint();
    ASSERT_LT(state.Favourites[1].Elevation, 0);
    EXPECT_EQ(state.PrimarySatIndex, 0);
    EXPECT_TRUE(isPrinted(" No Satellite Selected"));
    EXPECT_EQ(count(0x00FF00), 0);
    EXPECT_EQ(surfaces.Final.pixel(2, 170), 0xFFFFFFU) << "the line has the colour of the names";
    state.FavouriteCount = 0;
    paint();
    EXPECT_EQ(surfaces.Final.pixel(2, 170), 0x00FFFFU) << "or that of the sentences";
}

TEST_F(PaintScreenTest, AnUnknownSatelliteCostsJustItself) {
    addFavourite("NO SUCH SATELLITE");
    addFavourite("INTELSAT 10-02");
    paint();
    EXPECT_TRUE(isPrinted("INTELSAT 10-02"));
    EXPECT_EQ(fakes.logged(labels::horizonPaintScreen), 0)
        << "the position routine logs it under its own label";
    const int before = fakes.logged(labels::globalSatcalc);
    EXPECT_GT(before, 0);
    state.PrimarySatIndex = 1;
    paint();
    EXPECT_EQ(fakes.logged(labels::globalSatcalc), before + 2) << "once for its place, once for its track";
    EXPECT_EQ(count(0x00FF00), 0);
}

}  // namespace
}  // namespace vantrace
