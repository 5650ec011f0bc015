#include "orbit/passes/pass_list_text.h"

#include "core/date_time.h"
#include "tests/orbit/engine_test.h"

namespace vantrace {
namespace {

struct Record {
    std::string rise;
    int riseAzimuth = 0, setAzimuth = 0, elevation = 0, seconds = 0;
};

/// Takes the text apart, and sees that its records are five words with one blank between them.
std::vector<Record> recordsOf(const std::string& text) {
    std::vector<Record> records;
    std::istringstream list(text);
    std::string part;
    while (std::getline(list, part, ',')) {
        Record record;
        std::istringstream(part) >> record.rise >> record.riseAzimuth >> record.setAzimuth >>
            record.elevation >> record.seconds;
        std::ostringstream again;
        again << record.rise << ' ' << record.riseAzimuth << ' ' << record.setAzimuth << ' '
              << record.elevation << ' ' << record.seconds;
        EXPECT_EQ(again.str(), part);
        EXPECT_EQ(record.rise.size(), 14U) << part;
        EXPECT_EQ(record.rise.find_first_not_of("0123456789"), std::string::npos) << part;
        for (const int azimuth : {record.riseAzimuth, record.setAzimuth}) {
            EXPECT_TRUE(azimuth >= 0 && azimuth < 360) << part;
        }
        EXPECT_TRUE(record.elevation >= 0 && record.elevation <= 90) << part;
        EXPECT_GE(record.seconds, 0) << part;
        records.push_back(record);
    }
    return records;
}

/// The text of one pass.
std::string textOf(const CalendarTime& rise, double seconds, double elevationDeg) {
    Pass pass;
    pass.rise = {instantFromCalendar(rise), 200.99 * radiansPerDegree, 0.0};
    pass.set = {plusSeconds(pass.rise.time, seconds), 359.999 * radiansPerDegree, 0.0};
    pass.culmination = {plusSeconds(pass.rise.time, seconds / 2.0), 0.0, elevationDeg * radiansPerDegree};
    return passListText({{pass}, "", {}}, pass.rise.time, 1.0, 0.0);
}

TEST(PassListText, RoundsEachFigureItsOwnWay) {
    EXPECT_EQ(textOf({2026, 8, 21, 12, 0, 59.4}, 600.001, 45.0001), "20260821120059 200 359 45 600");
    EXPECT_EQ(textOf({2026, 8, 21, 12, 0, 59.6}, 599.99, 44.9999), "20260821120100 200 359 44 599");
    EXPECT_EQ(textOf({2026, 12, 31, 23, 59, 59.7}, 0.9, 0.2), "20270101000000 200 359 0 0");
    EXPECT_EQ(textOf({2026, 1, 2, 3, 4, 5.0}, 60.0001, 90.0), "20260102030405 200 359 90 60");
}

class PassListTest : public EngineTest {
  protected:
    PassListTest() { loadShipped(); }
};

TEST_F(PassListTest, HoldsEveryPassOfItsSpan) {
    setSite(52.0, 5.0, 0.0);
    const double start = packDateTime({2026, 8, 21, 12, 0, 0});
    for (const char* name : {"ISS (ZARYA)", "HST", "MERIDIAN 7"}) {
        for (const int days : {1, 3, 4, 10}) {
            const std::vector<Record> records = recordsOf(engine.EnginePassList(name, start, 1, days, 0, 0));
            const auto passes = engine.passes(name, instantFromDayNumber(start), days).passes;
            ASSERT_EQ(records.size(), passes.size()) << name << ' ' << days;
            for (std::size_t i = 0; i < records.size(); ++i) {
                std::string rise = isoText(passes[i].rise.time, 0);
                std::erase_if(rise, [](char c) { return c < '0' || c > '9'; });
                EXPECT_EQ(records[i].rise, rise);
                EXPECT_NEAR(records[i].seconds + 0.5, passes[i].durationS(), 0.51);
                EXPECT_NEAR(records[i].elevation + 0.5, passes[i].culmination.elevationRad / radiansPerDegree,
                            0.51);
            }
        }
    }
    EXPECT_GT(recordsOf(engine.EnginePassList("ISS (ZARYA)", start, 1, 10, 0, 0)).size(), 20U);
    EXPECT_EQ(engine.EnginePassList("ISS (ZARYA)", start, 1, 0, 0, 0), "");
    setSite(30.0, 95.0, 0.0);
    EXPECT_EQ(engine.EnginePassList("GOES 19", start, 1, 4, 0, 0), "") << "it never rises";
}

TEST_F(PassListTest, WhatNeverSetsIsCutIntoLocalDays) {
    setSite(30.0, 275.0, 0.0);
    const struct {
        int offsetMinutes;
        DateParts startUtc;
        int days;
        Texts rises;
    } table[] = {
        {0, {2026, 8, 21, 20}, 3, {"20260821000000", "20260822000000", "20260823000000", "20260824000000"}},
        {0, {2026, 8, 21}, 2, {"20260821000000", "20260822000000"}},
        {330, {2026, 8, 21, 20}, 3, {"20260821183000", "20260822183000", "20260823183000", "20260824183000"}},
        {330, {2026, 8, 21, 18, 29, 59}, 1, {"20260820183000", "20260821183000"}},
        {-480, {2026, 8, 21, 7}, 1, {"20260820080000", "20260821080000"}},
        {-480, {2026, 12, 31, 9}, 2, {"20261231080000", "20270101080000", "20270102080000"}},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.rises.front());
        clock.setUtc({2026, 8, 21, 12, 0, 0}, row.offsetMinutes);
        Texts rises;
        for (const Record& record :
             recordsOf(engine.EnginePassList("GOES 19", packDateTime(row.startUtc), 1, row.days, 0, 0))) {
            rises.push_back(record.rise);
            EXPECT_EQ(record.seconds, 86399);
            EXPECT_TRUE(record.elevation > 40 && record.elevation < 60) << record.elevation;
        }
        EXPECT_EQ(rises, row.rises);
    }
}

TEST_F(PassListTest, AsksTheClockForItsOffsetAtEachCall) {
    const auto firstRise = [](OrbitEngine& asked) {
        asked.EngineSetLatitude(30.0);
        asked.EngineSetLongitude(275.0);
        const double start = packDateTime({2026, 8, 21, 12, 0, 0});
        return recordsOf(asked.EnginePassList("GOES 19", start, 1, 1, 0, 0)).front().rise;
    };
    clock.setUtc({2026, 8, 21, 12, 0, 0}, 0);
    EXPECT_EQ(firstRise(engine), "20260821000000");
    clock.setUtc({2026, 8, 21, 12, 0, 0}, 60);
    EXPECT_EQ(firstRise(engine), "20260820230000");
    OrbitEngine withoutClock;
    withoutClock.EngineSetKepPath(shippedFolder().string());
    EXPECT_EQ(firstRise(withoutClock), "20260821000000");
}

}  // namespace
}  // namespace vantrace
