#include <cstdlib>

#include "app/pictures/fixed_clock.h"
#include "app/program/unsaved_settings.h"
#include "platform/qt/qt_pictures.h"
#include "tests/app/cli_run.h"
#include "tests/support/surface_pictures.h"

namespace vantrace {
namespace {

class MapCommandTest : public CliTest {
  protected:
    MapCommandTest() {
        folder.write("faves.dat", "ISS (ZARYA)\r\nGOES 19\r\n");
        folder.write("locations.dat", "1Berlin;346.63;52.50;35\r\n");
        pictures.save(noise(64, 32, 1), folder.path() / "Default.jpg");
    }

    /// A small map at the test's time, or with other options.
    CliResult map(Texts options, const std::string& file = "map.png") {
        const auto isGiven = [&](std::string_view option) {
            return std::ranges::find(options, option) != options.end();
        };
        if (!isGiven("--size")) options.insert(options.end(), {"--size", "240x120"});
        options.insert(options.end(), {"--out", out(file)});
        options.insert(options.begin(), "map");
        return run(options);
    }
    std::string out(const std::string& file) const { return (pictureFolder.path() / file).string(); }
    std::string bytes(const std::string& file = "map.png") const { return pictureFolder.read(file); }

    QtPictures pictures;
    TemporaryFolder pictureFolder;
};

TEST_F(MapCommandTest, WritesAPngOfThatSizeTheSameEveryTime) {
    const Texts before = folder.names();
    const std::string favourites = folder.read("faves.dat");
    const CliResult result = map({});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out + result.err, "");
    const Surface picture = pictures.load(out("map.png"));
    EXPECT_EQ(picture.width(), 240);
    EXPECT_EQ(picture.height(), 120);
    map({}, "again.png");
    EXPECT_EQ(bytes("again.png"), bytes());
    // It is 20:00 UTC on the clock of the test.
    map({"--at", "2026-08-21T20:00:00.9Z"}, "at.png");
    EXPECT_EQ(pictures.load(out("at.png")).words().size(), picture.words().size());

    EXPECT_EQ(folder.names(), before);
    EXPECT_EQ(folder.read("faves.dat"), favourites);
    EXPECT_EQ(fakes.settings.writes(), 0);
}

TEST_F(MapCommandTest, EveryOptionShowsInThePicture) {
    map({});
    const std::string plain = bytes();
    for (const Texts& options : std::vector<std::vector<std::string>>{
             {"--view", "SEQ"},
             {"--primary", "GOES 19"},
             {"--primary", "HYPERVIEW 1G (RS66S)", "--at", "2026-08-10T00:00Z"},
             {"--site", "-33.9,151.2,20"},
             {"--at", "2026-08-21T21:00:00Z"},
             {"--size", "241x120"}}) {
        EXPECT_EQ(map(options).status, 0) << options.at(0);
        EXPECT_NE(bytes(), plain) << options.at(0);
    }
    map({"--primary", " ISS (ZARYA) ", "--view", "WorldNormal"});
    EXPECT_EQ(bytes(), plain) << "what it would be without";
    fakes.settings.set("ShowFootprints", "0");
    map({});
    EXPECT_NE(bytes(), plain) << "the tracker's settings count";
    EXPECT_EQ(map({"--view", "seq", "--size", "1x1"}).status, 0);
    EXPECT_EQ(pictures.load(out("map.png")).words().size(), 1U);
}

TEST_F(MapCommandTest, WhatIsMissingIsToldAndTheRestPainted) {
    folder.write("faves.dat", "ISS (ZARYA)\r\nHYPERVIEW 1G (RS66S)\r\n");
    const CliResult fallen = map({"--at", "2026-09-30T00:00:00Z"});
    EXPECT_EQ(fallen.status, 1);
    EXPECT_NE(fallen.err.find("decayed"), std::string::npos) << fallen.err;
    EXPECT_NE(bytes(), "");

    fakes.settings.set("MapFile", "Nowhere");
    const CliResult ground = map({}, "black.png");
    EXPECT_EQ(ground.status, 1);
    EXPECT_NE(ground.err.find("Nowhere.jpg"), std::string::npos) << ground.err;
    EXPECT_NE(bytes("black.png"), "");

    fakes.settings.set("MapFile", "Default");
    folder.write("faves.dat", "");
    const CliResult empty = map({}, "empty.png");
    EXPECT_EQ(empty.status, 0) << empty.err;
    EXPECT_NE(bytes("empty.png"), "");
}

TEST_F(MapCommandTest, AMistakeIsToldWithWhatCouldBe) {
    const auto mistake = [&](const Texts& options) {
        const CliResult result = map(options, "none.png");
        EXPECT_EQ(result.status, 2) << result.err;
        EXPECT_FALSE(pictureFolder.exists("none.png"));
        return result.err;
    };
    EXPECT_NE(mistake({"--view", "NQW"}).find("worldnormal, worldalt, NWQ, NCQ, NEQ, SWQ, SCQ, SEQ"),
              std::string::npos);
    for (const char* size : {"", "x", "100", "0x10", "10x0", "8193x10", "10x10x10", "1.5x2", "1e99x2", "ax2"})
        EXPECT_NE(mistake({"--size", size}).find("1400x704"), std::string::npos) << size;
    EXPECT_NE(mistake({"--primary", "iss"}).find("ISS (ZARYA)"), std::string::npos);
    EXPECT_NE(mistake({"--primary", "sun"}).find("no satellite"), std::string::npos);
    mistake({"--at", "noon"});
    mistake({"--site", "1,2"});
    mistake({"--format", "csv"});
    EXPECT_EQ(run({"map"}).status, 2);
    EXPECT_EQ(run({"map", "--size", "9x9", "--out", out("no/such/folder.png")}).status, 2);
    std::filesystem::remove(folder.path() / "faves.dat");
    mistake({});
}

TEST(FixedClock, ReadsWholeSecondsInTheMachinesZone) {
    const Instant summer = *parseIsoText("2026-07-01T10:00:00.7Z");
    const ClockReading reading = readingAt(summer);
    EXPECT_EQ(reading.utc, (ClockParts{2026, 7, 1, 10, 0, 0}));
    ::setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
    EXPECT_EQ(readingAt(summer).local, (ClockParts{2026, 7, 1, 12, 0, 0}));
    EXPECT_EQ(readingAt(*parseIsoText("1969-12-31T23:59:59.5Z")).local, (ClockParts{1970, 1, 1, 0, 59, 59}));
    ::unsetenv("TZ");
    ::tzset();
}

TEST_F(MapCommandTest, TheSkyIsPaintedToo) {
    pictures.save(noise(64, 32, 1), folder.path() / "hdefault.jpg");
    const auto horizon = [&](Texts options, const std::string& file) {
        options.insert(options.begin(), "horizon");
        options.insert(options.end(), {"--size", "240x120", "--out", out(file)});
        return run(options);
    };
    EXPECT_EQ(horizon({}, "sky.png").status, 0);
    EXPECT_EQ(pictures.load(out("sky.png")).width(), 240);
    EXPECT_EQ(horizon({}, "again.png").status, 0);
    EXPECT_EQ(bytes("again.png"), bytes("sky.png"));
    EXPECT_EQ(horizon({"--centre", "North"}, "north.png").status, 0);
    EXPECT_NE(bytes("north.png"), bytes("sky.png"));
    EXPECT_EQ(horizon({"--centre", "east"}, "east.png").status, 2);
    EXPECT_EQ(horizon({"--format", "csv"}, "csv.png").status, 2);
    EXPECT_EQ(fakes.settings.writes(), 0);
    fakes.settings.set("HorizonFile", "nowhere");
    const CliResult landless = horizon({}, "landless.png");
    EXPECT_EQ(landless.status, 1);
    EXPECT_NE(landless.err.find("nowhere.jpg"), std::string::npos) << landless.err;
}

TEST(UnsavedSettings, NeverReachTheirStore) {
    MemorySettingsStore store;
    store.set("MapFile", "Moon");
    UnsavedSettings settings(store);
    settings.set("MAPFILE", "Mars");
    settings.set("Skin", "0");
    EXPECT_EQ(settings.get("mapfile"), "Mars");
    EXPECT_EQ(store.get("MapFile"), "Moon");
    EXPECT_EQ(store.get("Skin"), std::nullopt);
    settings.removeAll();
    EXPECT_EQ(settings.get("MapFile"), std::nullopt);
    EXPECT_EQ(store.get("MapFile"), "Moon");
}

}  // namespace
}  // namespace vantrace
