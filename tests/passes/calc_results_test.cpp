#include "passes/calc_results.h"

#include <cstdio>

#include "orbit/elements/element_set.h"
#include "orbit/engine_error.h"
#include "platform/text_file.h"
#include "tests/passes/passes_test.h"

namespace vantrace {
namespace {

std::string printed(const char* picture, int value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), picture, value);
    return text.data();
}

std::string hoursText(int seconds) {
    return printed("%02d:", seconds / 3600) + printed("%02d:", seconds / 60 % 60) +
           printed("%02d", seconds % 60);
}

/// What a row should say, from the engine's own passes and positions and no text of it.
class Expected {
  public:
    Expected(OrbitEngine& engine, const std::string& name, const Pass& pass, int offsetMinutes)
        : m_engine(engine), m_name(name), m_offsetDays(offsetMinutes / 1440.0) {
        const CalendarTime rise = calendarTime(pass.rise.time, 0);
        m_start = dayNumber(instantFromCalendar(rise));
        m_seconds = static_cast<int>(std::floor(pass.durationS()));
        m_peak = static_cast<int>(std::floor(pass.culmination.elevationRad / radiansPerDegree));
    }

    DateParts localStart() const { return dateParts(m_start + m_offsetDays); }
    DateParts localEnd() const { return dateParts(m_start + m_offsetDays + m_seconds / 86400.0); }

    ResultRow row() {
        constexpr std::array months{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                    "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
        const DateParts start = localStart();
        const bool isLong = m_seconds % 86400 >= 11 * 3600;
        const double middle = m_start + (m_seconds + 1) / 2 / 86400.0;
        const double end = m_start + m_seconds / 86400.0;
        const bool isSunlit = sunAtSatelliteDeg(m_start) > -18.0 || sunAtSatelliteDeg(end) > -18.0;
        const double sun = elevationDeg("sun", m_start);
        ResultRow row = rowOfTexts(
            {m_name, printed("%02d ", start.day) + months.at(static_cast<std::size_t>(start.month - 1)),
             isLong ? "00:00:00" : hoursText(start.hour * 3600 + start.minute * 60 + start.second),
             azimuth(m_start), printed("%02d (AZ ", m_peak) + azimuth(middle) + ")",
             isLong ? "24 Hours" : hoursText(m_seconds % 86400), azimuth(end), isSunlit ? "Yes" : "No ",
             isSunlit && sun >= -18.0 && sun <= -6.0 ? "Yes" : "No "});
        row.lengthSeconds = m_seconds;
        return row;
    }

  private:
    TrackResult trackAt(const char* name, double utc) {
        return m_engine.EngineTrack(name, m_engine.EngineJulianDate(utc), 0, 0);
    }
    double elevationDeg(const char* name, double utc) {
        return trackAt(name, utc).elevationRad / radiansPerDegree;
    }
    std::string azimuth(double utc) {
        // To the second, as the program takes its times.
        const double whole = packDateTime(dateParts(utc));
        const double degrees = trackAt(m_name.c_str(), whole).azimuthRad / radiansPerDegree;
        return printed("%03d", static_cast<int>(std::nearbyint(degrees)));
    }
    double sunAtSatelliteDeg(double utc) {
        const double whole = packDateTime(dateParts(utc));
        const TrackResult place = trackAt(m_name.c_str(), whole);
        setSite(place.latitudeRad / radiansPerDegree, place.longitudeRad / radiansPerDegree, place.heightKm);
        const double sun = elevationDeg("sun", whole);
        setSite(52.0, 5.0, 10.0);
        return sun;
    }
    void setSite(double latitudeDeg, double longitudeDeg, double heightM) {
        m_engine.EngineSetLatitude(latitudeDeg);
        m_engine.EngineSetLongitude(longitudeDeg);
        m_engine.EngineSetHeight(heightM);
    }

    OrbitEngine& m_engine;
    std::string m_name;
    double m_offsetDays;
    double m_start = 0;
    int m_seconds = 0;
    int m_peak = 0;
};

class CalcResultsTest : public PassesTest {
  protected:
    CalcResultsTest() { openWindow(); }

    void calculate(const std::string& name, int day, int month = 8) {
        CalcResults(form, state, services, name, static_cast<std::int16_t>(day),
                    static_cast<std::int16_t>(month), 2026);
    }
    /// All passes of the engine from 2026-08-`day` on.
    std::vector<Pass> enginePasses(const std::string& name, int day, double days) {
        return engine().passes(name, instantFromCalendar({2026, 8, day, 0, 0, 0}), days).passes;
    }
};

TEST_F(CalcResultsTest, EachPassIsListedOnceOnTheLocalDayOfItsEndWhateverTheZone) {
    for (const int offset : {0, 120, 345, 840, -210, -720}) {
        SCOPED_TRACE(offset);
        fakes.clock.setUtc({2026, 8, 21, 20, 0, 0}, offset);
        for (const std::string name : {"ISS (ZARYA)", "FUNCUBE-1 (AO-73)"}) {
            std::vector<ResultRow> expected;
            for (const Pass& pass : enginePasses(name, 20, 7)) {
                Expected each(engine(), name, pass, offset);
                if (each.localEnd().day >= 22 && each.localEnd().day <= 25) expected.push_back(each.row());
            }
            form.LISTpasses.clear();
            for (int day = 22; day <= 25; ++day) calculate(name, day);
            ASSERT_GT(expected.size(), 16U);
            ASSERT_EQ(rows().size(), expected.size());
            for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(rows()[i].texts, expected[i].texts);
        }
    }
}

TEST_F(CalcResultsTest, APassOverMidnightBelongsToTheLaterDayWithTheEarlierOneInItsDateColumn) {
    // Some zone has its midnight in the middle of the first pass.
    const Pass pass = enginePasses("ISS (ZARYA)", 22, 1).at(0);
    const CalendarTime rise = calendarTime(pass.rise.time, 0);
    const int offset = 24 * 60 - (rise.hour * 60 + rise.minute) - 4;
    const int wrapped = offset > 14 * 60 ? offset - 24 * 60 : offset;
    fakes.clock.setUtc({2026, 8, 21, 20, 0, 0}, wrapped);
    const Expected expected(engine(), "ISS (ZARYA)", pass, wrapped);
    ASSERT_NE(expected.localStart().day, expected.localEnd().day);

    calculate("ISS (ZARYA)", expected.localEnd().day);
    const auto isIt = [&](const ResultRow& row) {
        return row[ResultColumn::Date] == printed("%02d AUG", expected.localStart().day) &&
               row[ResultColumn::Time] >= "23:50";
    };
    EXPECT_TRUE(isIt(rows().at(0)));
    EXPECT_EQ(std::ranges::count_if(takenRows(), isIt), 1);
    calculate("ISS (ZARYA)", expected.localStart().day);
    EXPECT_EQ(std::ranges::count_if(rows(), isIt), 0);
}

TEST_F(CalcResultsTest, TheOffsetIsTodaysOnBothSidesOfAChangeOfTheClocks) {
    // Summer time ends on the 25th of October: the offset of the day on which one asks counts.
    calculate("ISS (ZARYA)", 26, 10);
    const std::vector<ResultRow> inSummer = takenRows();
    fakes.clock.setUtc({2026, 10, 25, 20, 0, 0}, 60);
    calculate("ISS (ZARYA)", 26, 10);
    std::size_t same = 0;
    for (const ResultRow& summer : inSummer) {
        for (const ResultRow& winter : rows()) {
            const double hours = (summer.startLocal - winter.startLocal) * 24;
            if (std::abs(hours - 1) > 1e-6) continue;
            ++same;
            EXPECT_EQ(summer[ResultColumn::StartAZ], winter[ResultColumn::StartAZ]);
            EXPECT_EQ(summer[ResultColumn::MaxElevation], winter[ResultColumn::MaxElevation]);
        }
    }
    EXPECT_GE(same + 1, inSummer.size());
    EXPECT_GT(same, 2U);
}

TEST_F(CalcResultsTest, OnlyPassesBelowTheLeastElevationAreLeftOut) {
    calculate("ISS (ZARYA)", 22);
    const std::vector<ResultRow> all = rows();
    ASSERT_GT(all.size(), 3U);
    const std::string peak = all[1][ResultColumn::MaxElevation].substr(0, 2);
    const auto countWith = [&](const std::string& least) {
        fakes.settings.set("WxEL", least);
        form.LISTpasses.clear();
        calculate("ISS (ZARYA)", 22);
        return std::ranges::count(rows(), all[1]);
    };
    EXPECT_EQ(countWith(peak), 1) << "as high as asked for";
    EXPECT_EQ(countWith(peak + ".5"), 0);
    EXPECT_EQ(countWith("90"), 0);
    EXPECT_TRUE(rows().empty());
    EXPECT_EQ(countWith("nothing"), 1);
    EXPECT_EQ(rows(), all);
}

TEST_F(CalcResultsTest, WhatStaysUpHasOneRowADayOf24Hours) {
    for (const int offset : {120, -300, 765}) {
        fakes.clock.setUtc({2026, 8, 21, 20, 0, 0}, offset);
        calculate("INTELSAT 10-02", 23);
        const std::vector<ResultRow> all = takenRows();
        ASSERT_EQ(all.size(), 1U) << offset;
        EXPECT_EQ(all[0][ResultColumn::Date], "23 AUG");
        EXPECT_EQ(all[0][ResultColumn::Time], "00:00:00");
        EXPECT_EQ(all[0][ResultColumn::Duration], "24 Hours");
    }
}

TEST_F(CalcResultsTest, FromElevenHoursOnAPassHasThe24HoursAndShorterOnesTheirOwn) {
    const std::string shipped = VANTRACE_SHIPPED_FOLDER;
    const std::string text = readTextFile(shipped + "/molniya.txt", 1 << 20);
    fakes.folder.write("molniya.txt", text);
    engine().EngineSetKepPath(state.AppPath);
    int longOnes = 0;
    int nearlyLong = 0;
    for (const std::string_view line : splitLines(text)) {
        if (line.starts_with("1 ") || line.starts_with("2 ")) continue;
        const std::string name(line.substr(0, line.find_last_not_of(' ') + 1));
        form.LISTpasses.clear();
        calculate(name, 22);
        for (const ResultRow& row : rows()) {
            const bool isLong = row.lengthSeconds >= 11 * 3600;
            longOnes += isLong ? 1 : 0;
            nearlyLong += !isLong && row.lengthSeconds > 9 * 3600 ? 1 : 0;
            EXPECT_EQ(row[ResultColumn::Duration], isLong ? "24 Hours" : hoursText(row.lengthSeconds))
                << name;
            EXPECT_EQ(row[ResultColumn::Time] == "00:00:00", isLong) << name;
        }
    }
    EXPECT_GT(longOnes, 0);
    EXPECT_GT(nearlyLong, 0);
}

TEST_F(CalcResultsTest, VisibleOnesAloneAreKept) {
    for (int day = 20; day <= 31; ++day) calculate("ISS (ZARYA)", day);
    const std::vector<ResultRow> all = takenRows();
    const auto isVisible = [](const ResultRow& row) { return row[ResultColumn::Visible] == "Yes"; };
    const auto visible = std::ranges::count_if(all, isVisible);
    ASSERT_GT(visible, 0);
    ASSERT_LT(static_cast<std::size_t>(visible), all.size());
    form.CHvisOnly = true;
    for (int day = 20; day <= 31; ++day) calculate("ISS (ZARYA)", day);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(rows().size()), visible);
    EXPECT_TRUE(std::ranges::all_of(rows(), isVisible));
}

TEST_F(CalcResultsTest, LeavesThePrimarySatelliteYieldsOnceAndAsksForANewSelection) {
    state.PrimarySatName = "FUNCUBE-1 (AO-73)";
    state.PrimarySatIndex = 7;
    form.Groupname.text = "Space Stations";
    form.SatelliteName.text = "ISS (ZARYA)";
    form.FavouriteName.text = "ISS (ZARYA)";
    std::string seen;
    fakes.events.onYield = [&] { seen = form.SatelliteName.text; };
    CalcResults(form, state, services, form.SatelliteName.text, 22, 8, 2026);
    EXPECT_EQ(fakes.events.yields, 1);
    EXPECT_EQ(seen, "ISS (ZARYA)") << "the texts come back after the yield";
    EXPECT_EQ(state.PrimarySatName, "ISS (ZARYA)");
    EXPECT_EQ(state.PrimarySatIndex, 7);
    EXPECT_EQ(form.Groupname.text, "Select Satellite Group");
    EXPECT_EQ(form.SatelliteName.text, "Select a Satellite");
    EXPECT_EQ(form.FavouriteName.text, "Select a Favourite");
    const std::size_t once = rows().size();
    calculate("ISS (ZARYA)", 22);
    EXPECT_EQ(rows().size(), 2 * once) << "a calculation only appends";
    EXPECT_DOUBLE_EQ(engine().EngineGetLongitude(), 5.0);
    EXPECT_TRUE(state.SatNextAOS.empty()) << "no next pass is looked for while the window is open";
}

TEST_F(CalcResultsTest, AnUnknownNameGoesToTheCallerAndASatelliteWithoutPassesGivesNone) {
    EXPECT_THROW(calculate("Select Satellite", 22), EngineError);
    EXPECT_EQ(form.Groupname.text, "Select Satellite Group");
    EXPECT_EQ(fakes.events.yields, 0);
    engine().EngineSetLongitude(185.0);
    calculate("INTELSAT 10-02", 22);
    EXPECT_TRUE(rows().empty());
    EXPECT_EQ(fakes.events.yields, 1);
}

}  // namespace
}  // namespace vantrace
