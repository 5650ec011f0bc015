#include "core/spoken_name.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(SpokenName, SpeaksSomeNamesInFullAndOthersWithBlanksForHyphens) {
    EXPECT_EQ(SpokenName("NOAA-20 (JPSS-1)"), "NOAA 20 (JPSS 1)");
    EXPECT_EQ(SpokenName("ISS (ZARYA)"), "The International Space station");
    EXPECT_EQ(SpokenName("MISSION"), "The International Space station") << "anywhere in the name";
    EXPECT_EQ(SpokenName("PCSAT (NO-44)"), "P C SAT");
    EXPECT_EQ(SpokenName("STARSHINE-3"), "Starshiine 3") << "looked for after the hyphens are gone";
    EXPECT_EQ(SpokenName("iss hst"), "iss hst");
    EXPECT_EQ(SpokenName(""), "");
}

TEST(SpokenName, OfSeveralThatFitTheLaterCounts) {
    EXPECT_EQ(SpokenName("STS-125 HST"), "The Space shuttle");
    EXPECT_EQ(SpokenName("HST ISS"), "The International Space station");
    EXPECT_EQ(SpokenName("PCSAT STARSHINE 2"), "Starshiine 2");
}

TEST(SpokenName, NamesWithHyphensInTheTableAreNeverFound) {
    EXPECT_EQ(SpokenName("AO-40"), "AO 40");
    EXPECT_EQ(SpokenName("AO-13"), "AO 13");
}

}  // namespace
}  // namespace vantrace
