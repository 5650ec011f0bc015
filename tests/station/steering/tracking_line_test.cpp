#include "station/steering/tracking_line.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

std::string faultOf(std::string_view text) {
    std::string fault;
    const std::optional<TrackingLine> line = readTrackingLine(text, fault);
    EXPECT_EQ(line.has_value(), fault.empty()) << text;
    return fault;
}

TEST(TrackingLine, IsReadWithPointAndWithComma) {
    std::string fault;
    const auto line =
        readTrackingLine("SNISS_(ZARYA) AZ164.64 EL-43.23 UP145988800 DN145801200 DO831.217477326618", fault);
    ASSERT_TRUE(line) << fault;
    EXPECT_EQ(line->name, "ISS_(ZARYA)");
    EXPECT_FALSE(line->isMoon);
    EXPECT_DOUBLE_EQ(line->direction.azimuthDeg, 164.64);
    EXPECT_DOUBLE_EQ(line->direction.elevationDeg, -43.23);
    EXPECT_DOUBLE_EQ(*line->uplinkHz, 145988800);
    EXPECT_DOUBLE_EQ(*line->downlinkHz, 145801200);
    EXPECT_DOUBLE_EQ(line->dopplerHzAt100MHz, 831.217477326618);
    const auto comma =
        readTrackingLine("SNX AZ0,50 EL7,25 UP0 DN437125000.5 DO-0,0000000142108547152", fault);
    ASSERT_TRUE(comma) << fault;
    EXPECT_DOUBLE_EQ(comma->direction.azimuthDeg, 0.5);
    EXPECT_DOUBLE_EQ(comma->direction.elevationDeg, 7.25);
    EXPECT_DOUBLE_EQ(comma->dopplerHzAt100MHz, -1.42108547152e-8);
    EXPECT_DOUBLE_EQ(*comma->downlinkHz, 437125000.5);
    EXPECT_EQ(faultOf("SNX AZ1 EL1 UP0 DN0 DO1.5E-16"), "");
    const auto wild = readTrackingLine("SNX AZ1 EL1 UP-5 DN2E+12 DO0", fault);
    ASSERT_TRUE(wild) << "the antenna follows all the same";
    EXPECT_EQ(*wild->uplinkHz, 0.0);
    EXPECT_EQ(*wild->downlinkHz, 0.0);
}

TEST(TrackingLine, OfTheMoonHasNoFrequencies) {
    std::string fault;
    const auto moon = readTrackingLine("SNmoon AZ360.00 EL6.54 DO-35.59", fault);
    ASSERT_TRUE(moon) << fault;
    EXPECT_TRUE(moon->isMoon);
    EXPECT_DOUBLE_EQ(moon->direction.azimuthDeg, 0.0) << "what rounds up to a whole turn is north";
    EXPECT_FALSE(moon->uplinkHz);
    EXPECT_NE(faultOf("SNISS AZ1 EL1 DO0"), "");
    const auto named = readTrackingLine("SNmoon AZ1 EL1 UP0 DN0 DO0", fault);
    ASSERT_TRUE(named);
    EXPECT_FALSE(named->isMoon) << "a satellite may have that name";
}

TEST(TrackingLine, WhatIsNotWhollyALineIsNone) {
    for (const std::string name : {"SN ", "snISS ", "SNISS  ", "SN\x1b[2J ", "SNI\tS ", "ISS ", ""}) {
        EXPECT_NE(faultOf(name + "AZ1 EL1 UP0 DN0 DO0"), "") << name;
    }
    for (const std::string azimuth :
         {"", "nan", "inf", "1x", "1;2", "0x10", "1,2,3", "361", "-1", "+1", "1\r"}) {
        EXPECT_NE(faultOf("SNISS AZ" + azimuth + " EL1 UP0 DN0 DO0"), "") << azimuth;
    }
    for (const std::string_view rest :
         {"", " AZ1", " AZ1 EL1 UP0 DN0", " AZ1 EL1 UP0 DN0 DO0 ", " AZ1 EL1 UP0 DN0 DO0 X",
          " EL1 AZ1 UP0 DN0 DO0", " AZ1 EL1 UP1,5 DN0 DO0", " AZ1 EL91 UP0 DN0 DO0", " AZ1 EL1 UPx DN0 DO0",
          " AZ1 EL1 UP0 DN0 DO1E+300", " AZ1\rEL1 UP0 DN0 DO0"}) {
        EXPECT_NE(faultOf("SNISS" + std::string(rest)), "") << rest;
    }
    for (const std::string& text : {std::string(), std::string("SN"), std::string("SNmoon AZ1 EL1"),
                                    "SN" + std::string(600, 'A') + " AZ1 EL1 UP0 DN0 DO0",
                                    std::string("SNA\0B AZ1 EL1 UP0 DN0 DO0", 25)}) {
        EXPECT_NE(faultOf(text), "") << text;
    }
}

TEST(TrackingLine, IsShownWithoutWhatCouldSteerATerminal) {
    EXPECT_EQ(shownLine("SN\x1b[2J\n\x80"), "SN?[2J??");
    EXPECT_EQ(shownLine(std::string(200, 'A')), std::string(100, 'A') + "...");
}

}  // namespace
}  // namespace vantrace
