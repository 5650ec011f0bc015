// The frame of the map: its layers, and what stands on them.

#include "mapview/map_projection.h"
#include "tests/mapview/paint/painter_test.h"

namespace vantrace {
namespace {

using RepaintTest = PainterTest;

constexpr Colour white = 0xFFFFFF;
constexpr Colour green = 0x00FF00;
constexpr Colour orange = 0x0080FF;

TEST_F(RepaintTest, EachLayerLiesOnThoseBeforeIt) {
    constexpr int x = 90;
    constexpr int y = 90;
    putFavourite("A", x, y);
    map.SunLongitude = map.MoonLongitude = longitudeAt(x);
    map.GroundTrackPoints[0] = {0, longitudeAt(x), 0x123456};
    map.FootprintPoints[0] = {0, longitudeAt(x)};
    SaveConfig(services, settings::showGroundtrack, "1");
    SaveConfig(services, settings::groundTrackLen, "0");
    SaveConfig(services, settings::showFootprints, "1");
    state.CompatibilityMode = false;

    repaint();
    EXPECT_EQ(pixel(x, y), satelliteColour(0));
    state.FavouriteCount = 0;
    repaint();
    EXPECT_EQ(pixel(x, y), orange);
    SaveConfig(services, settings::showFootprints, "0");
    repaint();
    EXPECT_EQ(pixel(x, y), Colour{0x123456});
    SaveConfig(services, settings::showGroundtrack, "0");
    repaint();
    EXPECT_EQ(pixel(x, y), moonColour) << "the moon isn't shaded";
    map.MoonLongitude = 0;
    repaint();
    // 215 / 255 of its brightness, by night.
    EXPECT_EQ(pixel(x, y), Colour{84}) << "the sun lies under the shade";
    state.CompatibilityMode = true;
    surfaces.Alpha = noise(alphaSize.width, alphaSize.height, 1);
    repaint();
    EXPECT_EQ(pixel(x, y), sunColour);
    EXPECT_EQ(wordsOf(surfaces.Alpha), wordsOf(noise(alphaSize.width, alphaSize.height, 1))) << "left alone";
    map.SunLongitude = 0;
    repaint();
    EXPECT_EQ(pixel(x, y), ground);
    EXPECT_EQ(logged(), 0);
}

TEST_F(RepaintTest, SpritesHaveTheirCornersRoundedHalvesToEven) {
    map.SunLongitude = longitudeAt(40.5);    // the corner at 25.5
    map.SunLatitude = 90 - 59.5;             // and 44.5
    map.MoonLongitude = longitudeAt(100.4);  // 90.4
    map.MoonLatitude = 90 - 60.6;            // 50.6
    putFavourite("A", 150.5, 100.5);         // 136.5 and 86.5
    surfaces.Final.setFont({});
    repaint();
    const auto isSquare = [&](Colour colour, int left, int top, int size) {
        for (const auto& [dx, dy] : {std::pair{0, 0}, {size - 1, size - 1}}) {
            EXPECT_EQ(pixel(left + dx, top + dy), colour) << left << "+" << dx;
        }
        EXPECT_EQ(pixel(left - 1, top + size - 1), ground);
        EXPECT_EQ(pixel(left + size, top + size - 1), ground);
        EXPECT_EQ(pixel(left + size - 1, top + size), ground);
    };
    isSquare(sunColour, 26, 44, 30);
    isSquare(moonColour, 90, 51, 20);
    isSquare(satelliteColour(0), 136, 86, 32);
}

TEST_F(RepaintTest, NamesChooseThePictureAndTheLift) {
    for (const auto& [name, look] : {std::pair("ISS (ZARYA)", SatelliteLook{1, 24}),
                                     {"STS-115", {3, 24}},
                                     {"AMSAT P3D", {4, 16}},
                                     {"OSCAR (AO-40)", {4, 16}},
                                     {"NOAA 18", {5, 21}},
                                     {"NOAA AO-40", {5, 21}},
                                     {"ISS AO-40", {4, 16}},
                                     {"SWISSCUBE", {0, 14}},
                                     {"iss", {0, 14}},
                                     {"X NOAA", {0, 14}},
                                     {"", {0, 14}}}) {
        EXPECT_EQ(satelliteLook(name), look) << name;
    }
    putFavourite("NOAA", 200, 100);
    repaint();
    EXPECT_EQ(pixel(200, 100), satelliteColour(5));
    // The letters of the test are boxes that start a pixel to the left of the pen and two below it.
    EXPECT_EQ(pixel(200 - 16 - 1, 100 - 21 + 2), white);
    EXPECT_NE(pixel(200 - 16 - 1, 100 - 21 + 1), white);
    EXPECT_NE(pixel(200 - 16 - 2, 100 - 21 + 2), white);
}

TEST_F(RepaintTest, TheObserverIsACircleWithANameBesideIt) {
    state.ObserverName = "Home";
    state.ObserverLongitude = longitudeAt(70);
    state.ObserverLatitude = 90 - 60;
    repaint();
    EXPECT_EQ(pixel(72, 56), green);
    EXPECT_EQ(pixel(73, 57), green);
    EXPECT_EQ(pixel(70, 60), ground) << "not at the place itself";
    EXPECT_EQ(printed().front(), "Home");
    EXPECT_EQ(fakes.textPainter.questions.front().font, (Font{"Small fonts", 7, true}));
}

TEST_F(RepaintTest, OfThePlacesTheFirst101RowsAreLookedAt) {
    state.Locations[0] = {"first", "30.5", "100.25", 0, "1"};
    state.Locations[1] = {"hidden", "30", "100", 0, "0"};
    state.Locations[2] = {"equator", "0", "100", 0, "1"};
    state.Locations[3] = {"Greenwich", "50", "0.00", 0, "1"};
    state.Locations[4] = {"no number", "north", "100", 0, "1"};
    state.Locations[5] = {"comma", "-30,5", "100,5", 0, "1"};
    state.Locations[100] = {"last", "20", "20", 0, "1"};
    state.Locations[101] = {"too late", "20", "30", 0, "1"};
    repaint();
    for (const char* name : {"first", "comma", "last"}) EXPECT_TRUE(isPrinted(name)) << name;
    for (const char* name : {"hidden", "equator", "Greenwich", "no number", "too late"})
        EXPECT_FALSE(isPrinted(name)) << name;
    // The dot of two pixels lies around the corner at (x - 3, y - 3).
    EXPECT_EQ(pixel(160 - 4, 70 - 4), green);
    EXPECT_EQ(pixel(160 - 3, 70 - 4), green);
    EXPECT_EQ(pixel(160 - 5, 70 - 4), ground);
    EXPECT_EQ(logged(), 0);
}

TEST_F(RepaintTest, TheTrackHasTwoDotsAMinuteUpToTheTablesEnd) {
    SaveConfig(services, settings::showGroundtrack, "1");
    const auto place = [](int i) { return std::pair{2 + i % 119 * 3, 30 + i / 119 * 20}; };
    for (int i = 0; i <= 600; ++i) {
        const auto [x, y] = place(i);
        map.GroundTrackPoints[i] = {90.0 - y, longitudeAt(x), i % 2 == 0 ? Colour{255} : white};
    }
    const auto dots = [&](const char* minutes) {
        SaveConfig(services, settings::groundTrackLen, minutes);
        surfaces.Final.clear();
        paintGroundTrack(frame());
        int count = 0;
        for (int i = 0; i <= 600; ++i) {
            const auto [x, y] = place(i);
            if (pixel(x, y) == Colour{0}) continue;
            EXPECT_EQ(pixel(x, y), i % 2 == 0 ? Colour{255} : white) << i;
            ++count;
        }
        return count;
    };
    for (const auto& [minutes, count, failures] : {std::tuple("0", 1, 0),
                                                   {"90", 181, 0},
                                                   {"-5", 0, 0},
                                                   {"300", 601, 0},
                                                   {"301", 601, 1},
                                                   {"1e9", 601, 2}}) {
        EXPECT_EQ(dots(minutes), count) << minutes;
        EXPECT_EQ(logged(), failures) << minutes;
    }
    SaveConfig(services, settings::showGroundtrack, "0");
    EXPECT_EQ(dots("90"), 0);
}

TEST_F(RepaintTest, TheFootprintIsEveryOtherPoint) {
    SaveConfig(services, settings::showFootprints, "1");
    for (int i = 0; i <= 361; ++i) {
        map.FootprintPoints[i] = {90.0 - (20 + i % 2 * 20), longitudeAt(2 + i / 2)};
    }
    paintFootprint(frame());
    for (int i = 0; i <= 360; i += 2) EXPECT_EQ(pixel(2 + i / 2, 20), orange) << i;
    EXPECT_NE(pixel(183, 20), orange);
    for (int x = 0; x < 360; ++x) EXPECT_NE(pixel(x, 40), orange) << x;
}

TEST_F(RepaintTest, TheLinesOfTextTellTheSkyAndThePrimarySatellite) {
    map.StatusLine = "3 out of 10";
    form.RemoteStat = {"Satellite : ISS", "one", "two", "three", "four", "five", "six", "seven"};
    const auto questions = [&](const char* view) {
        state.MainTag = view;
        fakes.textPainter.questions.clear();
        repaint();
        const auto& asked = fakes.textPainter.questions;
        return std::vector(asked.end() - 2, asked.end());
    };
    const auto lines = questions("worldnormal");
    EXPECT_EQ(lines[0].text, " 3 out of 10");
    EXPECT_EQ(lines[0].font, (Font{"Arial", 11, true}));
    EXPECT_EQ(lines[1].text, " ISS  one  two  three  four   seven");
    EXPECT_EQ(lines[1].font, (Font{"Arial", 8, true}));
    // Blue at the top; at the bottom, 20 pixels from the edge, the colour depends on the view.
    EXPECT_EQ(pixel(0, 2), Colour{0xFF0000});
    for (const std::string view :
         {"worldnormal", "worldalt", "SWQ", "SCQ", "SEQ", "nonsense", "NWQ", "NCQ", "NEQ"}) {
        questions(view.c_str());
        EXPECT_EQ(pixel(0, 162), view[0] == 'N' ? white : Colour{0}) << view;
        EXPECT_EQ(pixel(0, 161), ground) << view;
    }
    form.RemoteStat = {"short"};
    EXPECT_EQ(questions("worldnormal")[1].text, "            ");
}

TEST_F(RepaintTest, WhatIsOutsideARegionIsClippedWithoutAFailure) {
    state.MainTag = "SWQ";
    state.CompatibilityMode = false;
    SaveConfig(services, settings::showGroundtrack, "1");
    SaveConfig(services, settings::showFootprints, "1");
    putFavourite("far", 359, 1);
    putFavourite("there", 90, 135);
    repaint();
    EXPECT_EQ(logged(), 0);
    EXPECT_EQ(pixel(180, 90), satelliteColour(0));
}

TEST_F(RepaintTest, ABadItemCostsItselfAlone) {
    putFavourite("lost", 50, 50);
    state.Favourites[1].Latitude = std::numeric_limits<double>::quiet_NaN();
    putFavourite("beyond", 50, 50);
    state.Favourites[2].Longitude = 1e200;
    putFavourite("good", 100, 100);
    map.MoonLongitude = std::numeric_limits<double>::infinity();
    repaint();
    EXPECT_EQ(logged(), 3);
    EXPECT_EQ(pixel(100, 100), satelliteColour(0));
    EXPECT_FALSE(isPrinted("lost"));
    EXPECT_TRUE(isPrinted("good"));
}

TEST_F(RepaintTest, YieldsTwiceAndGoesOnWithTheViewThatIsWantedThen) {
    std::vector<std::size_t> textsBefore;
    putFavourite("A", 270, 135);
    state.ObserverName = "Home";
    fakes.events.onYield = [&] {
        textsBefore.push_back(printed().size());
        state.MainTag = "SEQ";
        if (textsBefore.size() == 2) throw std::runtime_error("a handler failed");
    };
    form.place.isVisible = true;
    repaint();
    EXPECT_EQ(textsBefore, (std::vector<std::size_t>{0, printed().size()}));
    EXPECT_EQ(pixel(180, 90), satelliteColour(0)) << "in the middle of the region";
    EXPECT_EQ(logged(), 1);
    EXPECT_TRUE(fakes.settings.get("WinPosX").has_value()) << "stored in spite of the failure";
}

TEST_F(RepaintTest, StoresThePlaceOfAWindowOnScreen) {
    form.place = {200, -15.5F, 12195, 0.1F, false, false};
    const auto stored = [&](const char* key) { return fakes.settings.get(key); };
    repaint();
    form.place.isVisible = form.place.isMinimised = true;
    repaint();
    EXPECT_EQ(stored("WinPosX"), std::nullopt);
    form.place.isMinimised = false;
    repaint();
    EXPECT_EQ(stored("WinPosX"), "200");
    EXPECT_EQ(stored("WinPosY"), "-15.5");
    EXPECT_EQ(stored("WinPosW"), "12195");
    EXPECT_EQ(stored("WinPosH"), "0.1") << "no more digits than a single has";
    services.format.decimalMark = ',';
    repaint();
    EXPECT_EQ(stored("WinPosY"), "-15,5");
}

TEST_F(RepaintTest, PaintsMapsOfEverySizeAndDensity) {
    state.CompatibilityMode = false;
    putFavourite("A", 180, 90);
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 200}, {3840, 2160}}) {
        for (const double density : {1.0, 1.5, 2.0}) {
            surfaces.Final.resize(width, height, density);
            repaint();
        }
    }
    EXPECT_EQ(logged(), 0);
    surfaces.Final.resize(0, 100);
    repaint();
    EXPECT_EQ(logged(), 0);

    surfaces.Final.resize(360, 180, 2);
    repaint();
    EXPECT_EQ(pixel(180 - 14 + 31, 90), satelliteColour(0)) << "as large as on any screen";
    EXPECT_NE(pixel(180 - 14 + 32, 90), satelliteColour(0));
}

}  // namespace
}  // namespace vantrace
