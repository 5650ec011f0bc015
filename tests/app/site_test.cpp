#include "app/program/site.h"

#include "app/program/arguments.h"
#include "tests/app/cli_run.h"
#include "tests/support/testing.h"

namespace vantrace {

namespace {

using SiteTest = CliTest;

TEST_F(SiteTest, IsReadFromTheSettingsWithWestLongitudeAndDecimalComma) {
    fakes.settings.set("Location Name", "Zuerich");
    fakes.settings.set("Latitude", "47,38");
    fakes.settings.set("Longitude", "351,46");
    fakes.settings.set("HASL", "450");
    const Texts arguments{"track", "ISS (ZARYA)", "--data", folder.path().string()};
    const CliResult stored = runBare(arguments);
    EXPECT_EQ(stored.err, "");
    EXPECT_EQ(stored.out, run({"track", "ISS (ZARYA)", "--site", "47.38,8.54,450"}).out);
    const Site place = siteOfSettings(fakes.services);
    EXPECT_NEAR(place.longitudeDeg, 8.54, 1e-9);
    EXPECT_EQ(placeText(place), "47.3800 N 8.5400 E, 450 m");
}

TEST_F(SiteTest, ASettingThatIsNoPlaceIsNamed) {
    fakes.settings.set("Latitude", "north");
    const CliResult result = runBare({"track", "sun", "--data", folder.path().string()});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("\"Latitude\" is \"north\""), std::string::npos) << result.err;
    // What needs no place doesn't look at it, and a given one takes its place.
    EXPECT_EQ(runBare({"list", "--data", folder.path().string()}).status, 0);
    EXPECT_EQ(run({"track", "sun"}).status, 0);
}

TEST_F(SiteTest, NegativeNumbersWorkWithAndWithoutTheEqualsSign) {
    const std::string expected = run({"track", "sun", "--site", " -33.9 , 151.2 , +20 "}).out;
    EXPECT_EQ(run({"track", "sun", "--site", "-33.9,151.2,20"}).out, expected);
    EXPECT_EQ(run({"track", "sun", "--site=-33.9,151.2,20"}).out, expected);
    const Site place = parseSite("-33.9,-151.2,-20");
    EXPECT_EQ(placeText(place), "33.9000 S 151.2000 W, -20 m");
}

TEST_F(SiteTest, WhatIsNoPlaceIsAUserError) {
    for (const char* text : {"", "1,2", "1,2,3,4", "91,0,0", "0,181,0", "0,0,x", "0,0,", "nan,0,0", "0,inf,0",
                             "0,0,1e9", "0x10,0,0", "1 2,0,0"}) {
        EXPECT_THROW(parseSite(text), UserError) << text;
    }
}

TEST(EastLongitude, LiesAboveMinus180UpTo180) {
    EXPECT_DOUBLE_EQ(eastLongitude(190.0), -170.0);
    EXPECT_DOUBLE_EQ(eastLongitude(-360.0), 0.0);
    EXPECT_DOUBLE_EQ(eastLongitude(-180.0), 180.0);
    EXPECT_DOUBLE_EQ(eastLongitude(180.0), 180.0);
    EXPECT_DOUBLE_EQ(eastLongitude(540.0), 180.0);
}

}  // namespace

}  // namespace vantrace
