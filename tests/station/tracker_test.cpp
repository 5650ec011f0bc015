#include "tests/station/tracker_test.h"

#include <cstdio>

#include "orbit/angles.h"
#include "tests/support/fake_window.h"

namespace vantrace {
namespace {

TEST_F(TrackerTest, TheLinkRunsFromItsSwitchToItsSwitchAndAClosedWindowTakesLineAndWordAlong) {
    state.TrackerTag = "of a window before";
    Form_Load(form, state, services);
    EXPECT_EQ(state.TrackerTag, "");
    EXPECT_EQ(form.lblSelSat, "");
    EXPECT_FALSE(form.Timer1.isEnabled);
    EXPECT_EQ(form.Timer1.intervalMs, 1000);
    open("ISS (ZARYA)");
    EXPECT_TRUE(form.Timer1.isEnabled);
    tick();
    EXPECT_NE(form.Tracking, "");
    form.CHonOff = false;
    CHonOff_Click(form, services);
    EXPECT_FALSE(form.Timer1.isEnabled);
    EXPECT_EQ(form.Tracking, "");
    EXPECT_EQ(published().back(), "");
    track("ISS (ZARYA)");
    Form_Unload(form, state, services);
    EXPECT_EQ(published().back(), "");
    EXPECT_EQ(state.TrackerTag, "");
    EXPECT_FALSE(form.Timer1.isEnabled);
}

TEST_F(TrackerTest, TheDropDownsAreFilledWithEachFrequencyOnce) {
    track("ISS (ZARYA)");
    EXPECT_EQ(form.lblSelSat, "ISS (ZARYA)");
    // "437.800" doesn't stand in its line, "145.800" in both of its own does.
    EXPECT_EQ(form.COMdownlink.items, (Texts{"145.800", "437.800", "437.550"}));
    EXPECT_EQ(form.COMuplink.items, (Texts{"145.990", "144.490"}));
    EXPECT_EQ(form.COMdownlink.text, "145.800");
    EXPECT_EQ(form.COMuplink.text, "145.990");
}

TEST_F(TrackerTest, OnlyTwentyLinesOfTheBlockAreLookedAt) {
    std::string record = "ISS\r\n";
    for (int i = 0; i < 18; ++i) record += "DNLINK 145." + std::to_string(100 + i) + "\r\n";
    fakes.folder.write("satellite.dat",
                       record + "DNLINK 437.100\r\nDNLINK 437.200\r\nUPLINK 435.1\r\n***\r\n");
    track("ISS");
    ASSERT_EQ(form.COMdownlink.items.size(), 19U) << "the first of the twenty is the heading";
    EXPECT_EQ(form.COMdownlink.items.back(), "437.100");
    EXPECT_EQ(form.COMuplink.text, "0");
}

TEST_F(TrackerTest, WithoutFrequenciesTheLineSaysZero) {
    track("INTELSAT 10-02");
    EXPECT_EQ(form.COMuplink.text, "0");
    EXPECT_EQ(form.COMdownlink.text, "0");
    EXPECT_EQ(form.lblUplink, "0.0000");
    EXPECT_EQ(field("UP"), "0");
    EXPECT_EQ(field("DN"), "0");
    EXPECT_TRUE(form.Tracking.starts_with("SNINTELSAT_10-02 AZ")) << form.Tracking;
}

TEST_F(TrackerTest, AWholePassAgreesWithTheChangeOfTheRange) {
    open("ISS (ZARYA)");
    const PassSearchResult found =
        engine().passes("ISS (ZARYA)", instantFromCalendar({2026, 8, 21, 20, 0, 0}), 1.0);
    ASSERT_FALSE(found.passes.empty());
    const Pass& pass = found.passes.front();
    const CalendarTime rise = calendarTime(pass.rise.time, 0);
    fakes.clock.setUtc({rise.year, rise.month, rise.day, rise.hour, rise.minute, 0}, 120);
    const Instant start = instantFromCalendar({rise.year, rise.month, rise.day, rise.hour, rise.minute, 0});
    double least = 1e9;
    double most = -1e9;
    for (int second = 0; second < 720; ++second, fakes.clock.advanceSeconds(1)) {
        tick();
        const Instant now = plusSeconds(start, second);
        const double rate = engine().track("ISS (ZARYA)", plusSeconds(now, 0.5)).rangeKm -
                            engine().track("ISS (ZARYA)", plusSeconds(now, -0.5)).rangeKm;
        const double ratio = rate / 299792.458;
        // The caption is good to 50 Hz, a frequency in single precision to 8.
        ASSERT_NEAR(number("DN"), 145.8e6 * (1 - ratio), 70) << form.Tracking;
        ASSERT_NEAR(number("UP"), 145.99e6 * (1 + ratio), 70) << form.Tracking;
        ASSERT_NEAR(number("DO"), -ratio * 1e8, 2) << form.Tracking;
        const TrackResult track = engine().track("ISS (ZARYA)", now);
        ASSERT_NEAR(number("AZ"), track.azimuthRad * 180 / M_PI, 0.0051) << form.Tracking;
        ASSERT_NEAR(number("EL"), track.elevationRad * 180 / M_PI, 0.0051) << form.Tracking;
        least = std::min(least, number("DO"));
        most = std::max(most, number("DO"));
    }
    // From rise to set the satellite comes nearer, then goes: some 4 km/s on this low pass.
    EXPECT_GT(most, 1000);
    EXPECT_LT(least, -1000);
    EXPECT_EQ(published().size(), 720U);
}

TEST_F(TrackerTest, WithoutMovementAlongTheLineOfSightNothingIsShifted) {
    open("INTELSAT 10-02");
    form.COMdownlink.text = "4000";
    form.TrackAz = 0;
    // A geostationary satellite all but stands: below 2 m/s, that is 27 Hz at 4 GHz.
    CalculateTracking(form, state, services, "INTELSAT 10-02", 4000.0F, 6000.0F);
    EXPECT_NEAR(form.DownlinkNow, 4000.0F, 0.0005F);
    EXPECT_NEAR(form.UplinkNow, 6000.0F, 0.0005F);
    EXPECT_NEAR(form.DopplerAt100, 0.0, 1.0);
}

TEST_F(TrackerTest, TheLineIsWrittenToTheLetterWithFiguresOfSinglePrecision) {
    form.lblAz = "164.64";
    form.lblEL = "-43.23";
    form.lblUplink = "145.9900";
    form.lblDownlink = "437.8000";
    form.DopplerAt100 = 0.0;
    EXPECT_EQ(trackingLine(form, " ISS (ZARYA) ", '.'),
              "SN_ISS_(ZARYA)_ AZ164.64 EL-43.23 UP145990000 DN437800000 DO0");
    open("ISS (ZARYA)");
    form.lblSelSat = "ISS (ZARYA)";
    // Beyond single precision: the nearest such number is 10368.12793.
    form.COMdownlink.text = "10368.1282";
    form.COMuplink.text = "16777.2171";
    tick();
    const TrackResult track = engine().track("ISS (ZARYA)", instantFromCalendar({2026, 8, 21, 20, 0, 0}));
    const double ratio = track.rangeRateKmS / 299792.458;
    const double downlink = 10368.1282F;
    const double uplink = 16777.2171F;
    EXPECT_EQ(form.DownlinkNow, static_cast<float>(downlink - ratio * downlink));
    EXPECT_EQ(form.UplinkNow, static_cast<float>(ratio * uplink + uplink));
    EXPECT_EQ(form.TrackAz, static_cast<float>(RadToDeg(track.azimuthRad)));
    char caption[32];
    std::snprintf(caption, sizeof caption, "%.4f", static_cast<double>(form.DownlinkNow));
    EXPECT_NEAR(number("DN"), std::stod(caption) * 1e6, 100.1);
}

TEST_F(TrackerTest, TypedFrequenciesAreReadAtEachTickAndAnEmptyOneEndsIt) {
    track("ISS (ZARYA)");
    form.COMdownlink.text = "437.8";
    tick();
    EXPECT_NEAR(number("DN"), 437.8e6, 15000);
    const std::string line = form.Tracking;
    const std::size_t told = published().size();
    fakes.clock.advanceSeconds(30);
    form.COMuplink.text = "";
    tick();
    EXPECT_EQ(form.Tracking, line);
    EXPECT_EQ(published().size(), told) << "who reads it sees that nothing comes";
}

TEST_F(TrackerTest, TheMoonTakesTheSatellitesPlaceAndFillsTheDropDownsEachTick) {
    open("ISS (ZARYA)");
    form.CHtrackMoon = true;
    tick();
    EXPECT_EQ(form.lblSelSat, "Moon");
    EXPECT_EQ(form.lblDownlink, "Manual");
    EXPECT_EQ(form.lblUplink, "Manual");
    const TrackResult moon = engine().track("moon", instantFromCalendar({2026, 8, 21, 20, 0, 0}));
    EXPECT_TRUE(form.Tracking.starts_with("SNmoon AZ")) << form.Tracking;
    EXPECT_NEAR(std::stod(form.lblAz), moon.azimuthRad * 180 / M_PI, 0.0051);
    EXPECT_NEAR(number("EL"), moon.elevationRad * 180 / M_PI, 0.0051);
    EXPECT_EQ(field("UP"), "none");
    EXPECT_EQ(field("DN"), "none");
    EXPECT_NE(field("DO"), "none");
    form.COMdownlink.text = "1296.1";
    tick();
    EXPECT_EQ(form.COMdownlink.text, "145.800");
    form.CHtrackMoon = false;
    tick();
    EXPECT_EQ(form.lblSelSat, "ISS (ZARYA)");
    EXPECT_NE(form.lblDownlink, "Manual");
}

TEST_F(TrackerTest, AnotherSatelliteIsSeenAtTheNextTick) {
    track("ISS (ZARYA)");
    state.TrackerTag = " FUNCUBE-1 (AO-73)";
    fakes.folder.write("satellite.dat", " FUNCUBE 1 (AO 73)\r\nBEACON 145.935\r\n***\r\n");
    tick();
    EXPECT_EQ(form.COMdownlink.text, "145.935");
    EXPECT_TRUE(form.Tracking.starts_with("SN_FUNCUBE-1_(AO-73) AZ")) << form.Tracking;
}

TEST_F(TrackerTest, WhatFailsIsLoggedAndTheRestGoesOn) {
    track("ISS (ZARYA)");
    const std::string elevation = form.lblEL;
    form.COMdownlink.text = "low";
    fakes.clock.advanceSeconds(60);
    tick();
    EXPECT_EQ(fakes.logged(labels::trackerTimer1), 1);
    EXPECT_NE(form.lblEL, elevation) << "the antenna follows all the same";
    EXPECT_EQ(field("DN"), "0");
    form.COMdownlink.text = "1e30000";
    tick();
    EXPECT_EQ(fakes.logged(labels::trackerTimer1), 2);
    state.TrackerTag = "NOBODY";
    tick();
    EXPECT_EQ(fakes.logged(labels::trackerTimer1), 3);
    EXPECT_TRUE(form.Tracking.starts_with("SNNOBODY AZ")) << "with the values there are";
}

TEST_F(TrackerTest, WithoutTheEngineTheWindowGoes) {
    fakes.fakeWindow("frmTracker");
    fakes.windows.show("frmTracker");
    open("ISS (ZARYA)");
    state.OrbitEngine.reset();
    tick();
    EXPECT_FALSE(fakes.windows.isLoaded("frmTracker"));
    fakes.windows.releaseUnloaded();
}

TEST_F(TrackerTest, TheCommaStandsEverywhereButInTheFrequenciesOfTheLine) {
    services.format.decimalMark = ',';
    track("ISS (ZARYA)");
    // The comma keeps the two texts apart, so that the frequency of the repeated line is added again.
    EXPECT_EQ(form.COMdownlink.items, (Texts{"145,800", "437,800", "145,800", "437,550"}));
    EXPECT_NE(form.lblAz.find(','), std::string::npos);
    EXPECT_NE(form.lblDownlink.find(','), std::string::npos);
    EXPECT_NE(field("AZ").find(','), std::string::npos);
    EXPECT_NE(field("EL").find(','), std::string::npos);
    EXPECT_NE(field("DO").find(','), std::string::npos);
    EXPECT_NEAR(number("DN"), 145.8e6, 5000);
    EXPECT_EQ(field("UP").find(','), std::string::npos);
    form.COMdownlink.text = "437,8";
    tick();
    EXPECT_NEAR(number("DN"), 437.8e6, 15000);
}

}  // namespace
}  // namespace vantrace
