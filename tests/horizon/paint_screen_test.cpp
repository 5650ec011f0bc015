#include "horizon/paint_screen.h"

#include "horizon/sky_projection.h"
#include "tests/horizon/horizon_test.h"

namespace vantrace {
namespace {

using PaintScreenTest = HorizonTest;

TEST(SkyProjection, NorthIsAtTheEdgesOrInTheMiddle) {
    const std::array<double, 3> table[] = {{0, 0, 360},     {90, 180, 540},  {180, 360, 720},
                                           {180.5, 361, 1}, {270, 540, 180}, {360, 720, 360}};
    for (const auto& [azimuth, southern, northern] : table) {
        EXPECT_DOUBLE_EQ(AzimuthToX(false, 720, azimuth), southern) << azimuth;
        EXPECT_DOUBLE_EQ(AzimuthToX(true, 720, azimuth), northern) << azimuth;
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

/// Like "%.1f", but without the 0 in front of the point.
std::string tenths(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.1f", value);
    std::string result = text;
    const std::size_t zero = result.find('0');
    if (result.starts_with("0.") || result.starts_with("-0.")) result.erase(zero, 1);
    return result;
}

TEST_F(PaintScreenTest, AKeptLandscapeIsTheOneThatWouldBePaintedAnew) {
    KeptLandscape kept;
    const auto expectPainted = [&](int width, const Surface& land) {
        Surface anew(width, 30);
        anew.stretch({0, 0, 1.0 * width, 30}, land, {0, 0, 60, 20});
        for (int frame = 0; frame < 2; ++frame) {
            Surface final = noise(width, 30, 3);
            kept.paint(final, land);
            EXPECT_TRUE(std::ranges::equal(final.words(), anew.words())) << width << " " << frame;
        }
    };
    Surface land = noise(60, 20, 1);
    expectPainted(90, land);
    expectPainted(91, land);
    land = noise(60, 20, 2);
    kept.forget();
    expectPainted(91, land);
}

TEST_F(PaintScreenTest, SentencesOnSunAndMoonGoByTheirElevationsAndHoldTheirAngles) {
    surfaces.SunPic = surfaces.SunMask = surfaces.MoonPic = surfaces.MoonMask = Surface(30, 30);
    const auto sentence = [](const char* body, const TrackResult& track) {
        return std::string("The ") + body + " is " + tenths(inDegrees(track.elevationRad)) +
               " degrees above the horizon, at " + tenths(inDegrees(track.azimuthRad)) + " degrees heading";
    };
    int moonlessMinutes = 0;
    std::set<int> skies;
    for (int minute = 0; minute < 3 * 24 * 60; minute += 7) {
        const DateParts utc = dateParts(packDateTime({2026, 8, 21, 0, minute, 0}));
        fakes.clock.setUtc(utc, 120);
        fakes.textPainter.questions.clear();
        paint();
        const TrackResult sun = seenAt("sun", utc);
        const double sunDeg = inDegrees(sun.elevationRad);
        skies.insert(sunDeg < -18 ? 0 : sunDeg <= -6 ? 1 : sunDeg < 0 ? 2 : 3);
        EXPECT_EQ(isPrinted("The Sun is too far below the horizon for visual observations"), sunDeg < -18);
        EXPECT_EQ(
            isPrinted("The Sun is slightly below the horizon, Astronomical Twilight Time, Ideal for visual "
                      "satellite observations"),
            sunDeg >= -18 && sunDeg <= -6)
            << sunDeg;
        EXPECT_EQ(isPrinted(sentence("Sun", sun)), sunDeg > -6) << sunDeg;
        const TrackResult moon = seenAt("moon", utc);
        const bool isMoonUp = inDegrees(moon.elevationRad) >= 1;
        EXPECT_EQ(isPrinted(sentence("Moon", moon)), isMoonUp);
        EXPECT_EQ(isPrinted("The Moon is below the horizon."), !isMoonUp);
        moonlessMinutes += isMoonUp ? 0 : 1;
        EXPECT_EQ(fakes.textPainter.questions[5].text.starts_with("The Sun"), true);
        EXPECT_EQ(surfaces.Final.pixel(0, 15), 0U) << "the dot before the sentence on the moon";
    }
    EXPECT_EQ(skies.size(), 4U) << "night, twilight, the sun just below the horizon, and day";
    EXPECT_GT(moonlessMinutes, 0);
}

TEST_F(PaintScreenTest, SpritesLieAtTheirOffsets) {
    const Colour sunColour = 0x0000F0;
    surfaces.SunMask = Surface(30, 30);
    surfaces.SunPic = ofOneColour(30, 30, sunColour);
    fakes.clock.setUtc({2026, 8, 21, 12, 0, 0}, 120);
    paint();
    const TrackResult sun = seenAt("sun", {2026, 8, 21, 12, 0, 0});
    const int x = static_cast<int>(std::nearbyint(inDegrees(sun.azimuthRad) * 2));
    const int y = static_cast<int>(std::nearbyint((90 - inDegrees(sun.elevationRad)) * 2));
    EXPECT_EQ(surfaces.Final.pixel(x, y), sunColour) << "its corner is at its place";
    EXPECT_EQ(surfaces.Final.pixel(x + 29, y + 29), sunColour);
    EXPECT_EQ(surfaces.Final.pixel(x - 1, y), sky);

    addFavourite("INTELSAT 10-02");
    addFavourite("ISS (ZARYA)");
    goIntoPass("ISS (ZARYA)", 200);
    state.PrimarySatIndex = 2;
    for (std::size_t i = 0; i < 2; ++i) {
        surfaces.SatMask[i] = Surface(32, 32);
        surfaces.SatPic[i] = ofOneColour(32, 32, 0xF00000 + static_cast<Colour>(i));
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
    for (const auto& [name, look] : std::map<const char*, SkySatelliteLook>{{"FUNCUBE-1", {0, 14}},
                                                                            {"ISS (ZARYA)", {1, 24}},
                                                                            {"MIR", {2, 24}},
                                                                            {"MIR 2", {0, 14}},
                                                                            {"STS-107", {3, 24}},
                                                                            {"OSCAR AO-40", {4, 16}},
                                                                            {"P3D", {4, 16}},
                                                                            {"NOAA AO-40", {5, 21}},
                                                                            {"XISS", {0, 14}}}) {
        EXPECT_EQ(skySatelliteLook(name), look) << name;
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

class SkyTrackTest : public HorizonTest {
  protected:
    SkyTrackTest() { addFavourite("ISS (ZARYA)"); }
    void draw(std::int16_t index = 1) {
        surfaces.Final.clear();
        state.PrimarySatIndex = index;
        DrawSkyTrack(surfaces, form, state, services, state.Favourites[index].Name);
    }
    /// The pixels where the satellite is, every two seconds of true time from 10 seconds on, up to its set.
    std::set<std::pair<int, int>> expectedDots() const {
        std::set<std::pair<int, int>> dots;
        ClockParts utc = fakes.clock.read().utc;
        utc.second += 10;
        for (int i = 0; i <= 800; ++i, utc.second += 2) {
            const TrackResult seen = seenAt("ISS (ZARYA)", utc);
            if (seen.elevationRad < 0) break;
            const double x = AzimuthToX(false, 720, inDegrees(seen.azimuthRad));
            const double y = ElevationToY(180, inDegrees(seen.elevationRad));
            dots.insert({static_cast<int>(std::floor(x + 0.5)), static_cast<int>(std::floor(y + 0.5))});
        }
        return dots;
    }
    std::set<std::pair<int, int>> greenDots() const {
        std::set<std::pair<int, int>> dots;
        for (int y = 0; y < 180; ++y) {
            for (int x = 0; x < 720; ++x) {
                if (surfaces.Final.pixel(x, y) == 0x00FF00) dots.insert({x, y});
            }
        }
        return dots;
    }
};

TEST_F(SkyTrackTest, DotsFollowTheSatelliteToItsSet) {
    goIntoPass("ISS (ZARYA)", 60);
    // From an even second the carries come out even; from an odd one the seconds run on: the same time.
    for (const int second : {0, 1}) {
        ClockParts utc = fakes.clock.read().utc;
        utc.second = second;
        fakes.clock.setUtc(utc, 120);
        draw();
        std::set<std::pair<int, int>> dots = greenDots();
        std::set<std::pair<int, int>> expected = expectedDots();
        for (auto* each : {&dots, &expected}) {
            std::erase_if(*each, [](const auto& dot) { return dot.first >= 719 || dot.second >= 180; });
        }
        EXPECT_GT(dots.size(), 50U);
        EXPECT_EQ(dots, expected) << second;
        EXPECT_EQ(state.PrimarySatIndex, 1);
    }
}

TEST_F(SkyTrackTest, OneThatIsBelowTheHorizonInTenSecondsIsLetGo) {
    const double set = goIntoPass("ISS (ZARYA)", 60);
    fakes.clock.setUtc(dateParts(set - 12 / 86400.0), 120);
    draw();
    EXPECT_EQ(state.PrimarySatIndex, 1);
    fakes.clock.setUtc(dateParts(set - 8 / 86400.0), 120);
    draw();
    EXPECT_EQ(state.PrimarySatIndex, 0);
    EXPECT_TRUE(greenDots().empty());
}

TEST_F(SkyTrackTest, TheDayRunsPastTheEndOfItsMonth) {
    // Local midnight of the last of August, with a satellite that never sets there.
    addFavourite("INTELSAT 10-02");
    fakes.clock.setUtc({2026, 8, 31, 21, 59, 40}, 120);
    draw(2);
    EXPECT_EQ(fakes.logged(labels::globalSatcalc), 0);
    EXPECT_FALSE(greenDots().empty());
    EXPECT_EQ(state.PrimarySatIndex, 2);
}

}  // namespace
}  // namespace vantrace
