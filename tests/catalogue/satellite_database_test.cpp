#include "catalogue/satellite_database.h"

#include "core/labels.h"
#include "tests/catalogue/catalogue_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr std::string_view database =
    "FUNCUBE-1 AO-73 39444\r\n"
    "NAME   FUNcube 1\r\n"
    "NOTES  replaced below\r\n"
    "OWNER  AMSAT-UK\r\n"
    "BEACON 145.935\r\n"
    "UPLINK 435.150 - 435.130\r\n"
    "DNLINK 145.950 - 145.970\r\n"
    "DNLINK\r\n"
    "NOTES  Transponder at night\r\n"
    "*** end\r\n"
    "***\r\n"
    "RS 15\n"
    "DNLINK 29.380\n";

class SatelliteDataTest : public CatalogueTest {
  protected:
    std::string ask(std::string_view name, std::string_view content = database) {
        folder.write("satellite.dat", content);
        return SatelliteDataFunc(state, services, name);
    }
};

TEST_F(SatelliteDataTest, TellsWhatTheRecordHolds) {
    EXPECT_EQ(ask("FUNCUBE-1"),
              "Data for FUNCUBE-1\r\n"
              "(FUNcube 1)\r\n"
              "Beacon: 145.935\r\n"
              "Uplink: 435.150 - 435.130\r\n"
              "Downlink: 145.950 - 145.970\r\n"
              "Downlink: \r\n"
              "Notes: Transponder at night");
}

TEST_F(SatelliteDataTest, HyphensAndBlanksAreOneAndTheNameIsTrimmedForTheSearchOnly) {
    EXPECT_EQ(ask(" RS-15 "), "Data for  RS-15 \r\nDownlink: 29.380\r\nNotes: ");
    EXPECT_TRUE(ask("FUNCUBE 1").starts_with("Data for FUNCUBE 1\r\n"));
    EXPECT_TRUE(ask("AO-73 39").starts_with("Data for AO-73 39\r\n(FUNcube 1)"));
}

TEST_F(SatelliteDataTest, OnlyFirstLinesOfRecordsAreSearched) {
    EXPECT_EQ(ask("AMSAT"), "");
    EXPECT_EQ(ask("end"), "");
    EXPECT_EQ(ask("funcube-1"), "");
    EXPECT_TRUE(fakes.dialogs.messages.empty());
}

TEST_F(SatelliteDataTest, ABlankNameFindsTheFirstRecord) {
    EXPECT_TRUE(ask("  ").starts_with("Data for   \r\n(FUNcube 1)\r\n"));
    EXPECT_EQ(ask("", ""), "");
}

TEST_F(SatelliteDataTest, AMissingFileIsTold) {
    EXPECT_EQ(SatelliteDataFunc(state, services, "RS-15"), "");
    EXPECT_EQ(fakes.dialogs.messages, Texts{"Satellite.dat file is missing !!"});
}

}  // namespace
}  // namespace vantrace
