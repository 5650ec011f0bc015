#include "orbit/elements/element_reader.h"
#include "tests/internet/omm/omm_test.h"

namespace vantrace {
namespace {

/// The sets that the engine reads; none is left out or odd.
std::vector<ElementSet> setsOf(const std::string& text) {
    std::vector<ElementSet> sets;
    ElementReceiver receiver;
    receiver.set = [&](ElementSet&& set) { sets.push_back(std::move(set)); };
    receiver.remark = [](ElementRemark&& remark) { ADD_FAILURE() << remark.name << ": " << remark.reason; };
    readElementSets(text, receiver);
    return sets;
}

TEST(ThreeLineConversionTest, EveryFormGivesThePublishersOwnBytes) {
    const std::string published = example("stations_20260806.txt");
    for (const char* form : {"csv", "json", "kvn", "xml"}) {
        ThreeLineConversion conversion =
            threeLinesFromMessages(example("stations_20260806." + std::string(form)));
        EXPECT_TRUE(conversion.hasHeading) << form;
        EXPECT_EQ(conversion.good, 22) << form;
        EXPECT_TRUE(conversion.refused.empty()) << form;
        // The publisher has no such numbers in this form.
        constexpr std::size_t setLength = 24 + 2 + 2 * (69 + 2);
        const std::size_t soyuz = conversion.text.find("SOYUZ-MS 29 ");
        ASSERT_NE(soyuz, std::string::npos) << form;
        EXPECT_EQ(conversion.text.substr(soyuz + 26, 24), "1 A0057U 26162A   26218.") << form;
        conversion.text.erase(soyuz, setLength);
        EXPECT_EQ(conversion.text, published) << form;
    }
    const ThreeLineConversion weather = threeLinesFromMessages(example("weather_20260806.csv"));
    EXPECT_EQ(weather.good, 74);
    EXPECT_EQ(weather.text, example("weather_20260806.txt"));
}

TEST(ThreeLineConversionTest, TheOddExamplesAreReadByTheEngine) {
    const std::pair<const char*, int> cases[] = {{"celestrak_20260906.csv", 5}, {"vanguard1.csv", 1},
                                                 {"vanguard1.json", 1},         {"vanguard1.xml", 1},
                                                 {"kvn_variant_units.kvn", 1},  {"supgp_sample.csv", 1}};
    for (const auto& [name, good] : cases) {
        const ThreeLineConversion conversion = threeLinesFromMessages(example(name));
        EXPECT_EQ(conversion.good, good) << name;
        EXPECT_EQ(setsOf(conversion.text).size(), static_cast<std::size_t>(good)) << name;
    }
    EXPECT_EQ(threeLinesFromMessages("\r\n  \n " + example("vanguard1.xml")).good, 1);
    // As published for these very elements.
    EXPECT_EQ(threeLinesFromMessages(example("kvn_variant_units.kvn")).text,
              "ISS (ZARYA)             \r\n"
              "1 25544U 98067A   98324.28472222 -.00003657  11563-4  00000+0 0    10\r\n"
              "2 25544  51.5908 168.3788 0125362  86.4185 359.7454 16.05064833    05\r\n");
    const ThreeLineConversion supplemental = threeLinesFromMessages(example("supgp_sample.csv"));
    EXPECT_EQ(setsOf(supplemental.text).at(0).catalogNumber, 100001);
    EXPECT_NEAR(setsOf(supplemental.text).at(0).bStar, -0.056082, 1e-12);
    ASSERT_EQ(supplemental.refused.size(), 1U);
    EXPECT_EQ(supplemental.refused[0],
              "STARLINK-40083 (799501648): NORAD_CAT_ID \"799501648\" doesn't fit the three-line form");
}

TEST(ThreeLineConversionTest, WhatTheFormCanHoldIsKept) {
    // The eccentricity is cut, as the publisher does.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"ECCENTRICITY", "0.00072169999", " 0007216 "},
        {"ECCENTRICITY", "0.99999999", " 9999999 "},
        {"RA_OF_ASC_NODE", "359.99996", "51.6321   0.0000 "},
        {"RA_OF_ASC_NODE", "-10.5", "51.6321 349.5000 "},
        {"MEAN_MOTION", "1.00271", " 1.00271000"},
        {"MEAN_MOTION", "0.99163989", " 0.99163989"},
        {"REV_AT_EPOCH", "117656", "15.4935977417656"},
        {"REV_AT_EPOCH", "", "15.49359774    0"},
        {"ELEMENT_SET_NO", "12345", " 0 23457\r"},
        {"CLASSIFICATION_TYPE", "", "1 25544U "},
        {"CLASSIFICATION_TYPE", "C", "1 25544C "},
        {"CLASSIFICATION_TYPE", "secret", "1 25544U "},
        {"OBJECT_ID", "", "1 25544U          26218"},
        {"MEAN_MOTION_DOT", "", "  .00000000 "},
        {"MEAN_ELEMENT_THEORY", "SGP/SGP4", "1 25544U"},
        {"MEAN_ANOMALY", "342.9616 [deg]", " 342.9616 "}};
    for (const auto& [key, value, wanted] : cases) {
        const ThreeLineConversion conversion = threeLinesFromMessages(messageWith({{key, value}}));
        ASSERT_EQ(conversion.good, 1)
            << key << " " << value << ": " << (conversion.refused.empty() ? "" : conversion.refused[0]);
        EXPECT_NE(conversion.text.find(wanted), std::string::npos) << wanted << "\n" << conversion.text;
        EXPECT_EQ(setsOf(conversion.text).size(), 1U);
    }
}

void expectRefused(const char* key, const std::string& value, const std::string& remark) {
    const ThreeLineConversion conversion =
        threeLinesFromMessages(messageWith({{key, value}}) + keyValueMessage(goodWords()));
    EXPECT_EQ(conversion.text, goodSet) << key << " " << value;
    EXPECT_TRUE(conversion.hasHeading);
    ASSERT_EQ(conversion.refused.size(), 1U) << key << " " << value;
    EXPECT_TRUE(conversion.refused[0].starts_with("ISS (ZARYA) (")) << conversion.refused[0];
    EXPECT_NE(conversion.refused[0].find(remark), std::string::npos) << conversion.refused[0];
}

TEST(ThreeLineConversionTest, WhatTheFormCannotHoldCostsItsSetAlone) {
    const std::pair<const char*, Texts> cases[] = {{"NORAD_CAT_ID", {"340000", "", "-5", "25544.5"}},
                                                   {"EPOCH", {"2057-01-01T00:00:00"}},
                                                   {"MEAN_MOTION", {"NaN", "100", "1e999"}},
                                                   {"ECCENTRICITY", {"1", "-0.00000001"}},
                                                   {"INCLINATION", {"-1"}},
                                                   {"ARG_OF_PERICENTER", {"360.5"}},
                                                   {"BSTAR", {"", "1e10"}},
                                                   {"MEAN_MOTION_DOT", {"1.5"}},
                                                   {"EPHEMERIS_TYPE", {"4"}},
                                                   {"MEAN_ELEMENT_THEORY", {"SGP4-XP"}},
                                                   {"REF_FRAME", {"EME2000"}},
                                                   {"TIME_SYSTEM", {"TAI"}},
                                                   {"CENTER_NAME", {"MARS"}}};
    for (const auto& [key, values] : cases) {
        for (const std::string& value : values) {
            expectRefused(key, value, std::string(key) + (value.empty() ? " is missing" : ""));
        }
    }
    expectRefused("EPOCH", "", "EPOCH \"\" is no time");
    // In the engine's words.
    expectRefused("MEAN_MOTION", "0", "mean motion");
    expectRefused("INCLINATION", "180.0001", "inclination");
}

TEST(ThreeLineConversionTest, NamesCanBeTakenForNothingElse) {
    const std::pair<const char*, const char*> cases[] = {
        {"GPS BIIR-5  (PRN 22)", "GPS BIIR-5  (PRN 22)    \r\n"},
        {"A NAME THAT HAS MORE THAN 24 SIGNS", "A NAME THAT HAS MORE THAN 24 SIGNS\r\n"},
        {"", "25544                   \r\n"},
        {"1 25544U 98067A   26218.", "0 1 25544U 98067A   26218.\r\n"},
        {"2", "0 2                     \r\n"},
        {"#1", "0 #1                    \r\n"},
        {"1WORLDSAT-1", "1WORLDSAT-1             \r\n"},
        {"A\x01\tB", "A  B                    \r\n"},
        {"BLOCK [X]", "BLOCK [X]               \r\n"},
    };
    for (const auto& [name, line] : cases) {
        const ThreeLineConversion conversion = threeLinesFromMessages(messageWith({{"OBJECT_NAME", name}}));
        EXPECT_TRUE(conversion.text.starts_with(line)) << conversion.text;
        ASSERT_EQ(setsOf(conversion.text).size(), 1U) << name;
        const std::string read = setsOf(conversion.text)[0].name;
        EXPECT_EQ(read, *name == '\0' ? "25544" : std::string(name) == "A\x01\tB" ? "A  B" : name);
    }
}

}  // namespace
}  // namespace vantrace
