#include "orbit/next_pass.h"

#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/texts.h"
#include "tests/orbit/program/program_test.h"

namespace vantrace {
namespace {

const double noon = packDateTime({2026, 8, 21, 12, 0, 0});

class NextPassTest : public ProgramTest {
  protected:
    std::string next(std::string_view list) {
        const auto record = nextPassRecord(list, noon, label);
        return record ? record->text : "none";
    }
    void ask(std::string_view name) { NextPass(state, services, name, rise, length, elevation); }
    double rawRise(std::string_view name) {
        double utc = 0.0;
        NextPassRAW(state, services, name, utc);
        return utc;
    }

    const double never = packDateTime({9999, 1, 1, 23, 59, 59});
    ErrorLabel label{services, labels::globalNextPass};
    std::string rise = "rise", length = "length", elevation = "elevation";
};

TEST_F(NextPassTest, TheRecordIsTheFirstThatRisesLaterThanNow) {
    EXPECT_EQ(next("20260821115959 1 2 3 4,20260821120000 1 2 3 4,20260821120001 5 6 7 8,20260822000000 9"),
              "20260821120001 5 6 7 8");
    const auto record = nextPassRecord("20260821120001 5 6 7 8", noon, label);
    ASSERT_TRUE(record);
    EXPECT_NEAR(record->riseUtc, noon + 1.0 / secondsPerDay, 1e-9);
}

TEST_F(NextPassTest, TheTwentiethIsKeptWhenAllArePast) {
    std::string list;
    for (int record = 1; record <= 25; ++record) {
        list += "202608" + formatNumber(record, "00") + "000000 " + std::to_string(record) + ",";
    }
    EXPECT_EQ(nextPassRecord(list, packDateTime({2026, 9, 1, 0, 0, 0}), label)->text, "20260820000000 20");
    EXPECT_EQ(next(list), "20260820000000 20") << "the 22nd would be later than now";
    // A short list is read over again.
    EXPECT_EQ(next("20260801000000 1,20260802000000 2,20260803000000 3"), "20260802000000 2")
        << "word 20 of three";
}

TEST_F(NextPassTest, RecordsWithoutADateAreLoggedAndPassedOver) {
    EXPECT_EQ(next("20260801000000 1,garbage,2026082112000x 2,-0260821120001 3,20260822000000 4"),
              "20260822000000 4");
    EXPECT_EQ(fakes.logged(labels::globalNextPass), 3);
    EXPECT_EQ(next("garbage"), "none");
    EXPECT_EQ(next("99999999999999 1"), "none");
}

TEST_F(NextPassTest, AgreesWithTheEnginesNextRiseAndSet) {
    ask("ISS (ZARYA)");
    const double now = NowUTC(services.clock);
    const double riseUtc = state.OrbitEngine->EngineNextAOS("ISS (ZARYA)", now);
    const double setUtc = state.OrbitEngine->EngineNextLOS("ISS (ZARYA)", riseUtc);
    const auto secondOf = [](double dateTime) {
        return static_cast<double>(std::lround(dateTime * 86400.0) % 86400);
    };
    const auto asSeconds = [](const std::string& text) {
        return 3600.0 * std::stoi(text) + 60.0 * std::stoi(text.substr(3)) + std::stoi(text.substr(6));
    };
    ASSERT_EQ(rise.size(), 8U);
    EXPECT_NEAR(asSeconds(rise), secondOf(riseUtc + 2.0 / 24.0), 1) << "local time";
    ASSERT_EQ(length.size(), 9U);
    EXPECT_EQ(length.substr(2, 4) + length.substr(8), "m : s");
    EXPECT_NEAR(60.0 * std::stoi(length) + std::stoi(length.substr(6)), (setUtc - riseUtc) * 86400.0, 1.5);
    EXPECT_GE(elevation.size(), 2U);
    EXPECT_LE(std::stoi(elevation), 90);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(NextPassTest, RawGivesTheSameRiseAsALocalDate) {
    ask("FUNCUBE-1 (AO-73)");
    const double raw = rawRise("FUNCUBE-1 (AO-73)");
    const DateParts parts = dateParts(raw);
    EXPECT_EQ(TimeText(parts.hour, parts.minute, parts.second), rise);
    EXPECT_GT(raw, NowLocal(services.clock));
    EXPECT_LT(raw, NowLocal(services.clock) + 1.0);
}

TEST_F(NextPassTest, ASatelliteThatNeverSetsPassesForADayAtATime) {
    ask("INTELSAT 10-02");
    EXPECT_EQ(rise, "00:00:00");
    EXPECT_EQ(length, "1439m : 59s");
}

TEST_F(NextPassTest, WithoutAPassTheRiseIsThePresentDateAndTheRestStays) {
    state.OrbitEngine->EngineSetLongitude(180.0);
    ask("INTELSAT 10-02");
    EXPECT_EQ(rise, "2026-08-21 22:00:00");
    EXPECT_EQ(length, "length");
    EXPECT_EQ(elevation, "elevation");
    EXPECT_EQ(rawRise("INTELSAT 10-02"), never);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(NextPassTest, AFailingEngineIsLoggedAndCountsAsNoPass) {
    ask("NO SUCH SATELLITE");
    EXPECT_EQ(rise, "2026-08-21 22:00:00");
    EXPECT_EQ(length, "length");
    EXPECT_EQ(fakes.logged(labels::globalNextPass), 1);
    state.OrbitEngine.reset();
    EXPECT_EQ(rawRise("ISS (ZARYA)"), never);
    EXPECT_EQ(fakes.logged(labels::globalNextPassRAW), 1);
}

}  // namespace
}  // namespace vantrace
