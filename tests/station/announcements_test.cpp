#include "station/announcements.h"

#include "core/config.h"
#include "core/date_time.h"
#include "core/labels.h"
#include "orbit/next_pass.h"
#include "tests/orbit/program/program_test.h"

namespace vantrace {
namespace {

class AnnouncementsTest : public ProgramTest {
  protected:
    AnnouncementsTest() { SaveConfig(services, settings::speechpack, "1"); }

    void addFavourite(std::string_view name, double azimuth = 0, double elevation = 0) {
        FavouriteRecord& favourite = state.Favourites[++state.FavouriteCount];
        favourite.Name = name;
        favourite.Azimuth = azimuth;
        favourite.Elevation = elevation;
    }
    /// Sets the clock to so many seconds before a rise, which is a whole second.
    void standBefore(double riseLocal, int seconds) {
        fakes.clock.setLocal(dateParts(riseLocal), 120);
        fakes.clock.advanceSeconds(-seconds);
    }
    double nextRise(std::string_view name) {
        double rise = 0;
        NextPassRAW(state, services, name, rise);
        return rise;
    }
    Texts announced(int muting = 0) {
        fakes.speech.texts.clear();
        Makeannouncment(state, services, muting);
        return fakes.speech.texts;
    }
};

TEST_F(AnnouncementsTest, PositionsAreThoseOfTheTableWithTheFloorOfEachAngle) {
    addFavourite("ISS (ZARYA)", 359.99, 10.7);
    addFavourite("AO-73", 12.0, -0.2);
    addFavourite("HST", 0.5, 0.0);
    AnnouncePositions(state, services, true);
    EXPECT_EQ(fakes.speech.texts, (Texts{"The International Space station Azimuth 359 Elevation 10. ",
                                         "The Hubble space telescope Azimuth 0 Elevation 0. "}));
    fakes.speech.texts.clear();
    AnnouncePositions(state, services, false);
    EXPECT_EQ(fakes.speech.texts, (Texts{"The International Space station, Azimuth 359 Elevation 10. ",
                                         "AO 73, Azimuth 12 Elevation -1. ",
                                         "The Hubble space telescope, Azimuth 0 Elevation 0. "}));
}

TEST_F(AnnouncementsTest, APassIsAnnouncedFromFourteenMinutesToOne) {
    addFavourite("FUNCUBE-1 (AO-73)");
    const double rise = nextRise("FUNCUBE-1 (AO-73)");
    const auto saysBefore = [&](int seconds) {
        standBefore(rise, seconds);
        return announced();
    };
    const auto saying = [](const std::string& time) {
        return Texts{"FUNCUBE 1 (AO 73) will be in range in " + time + "."};
    };
    EXPECT_EQ(saysBefore(15 * 60), Texts{});
    EXPECT_EQ(saysBefore(14 * 60 + 59), saying("14 minutes"));
    EXPECT_EQ(saysBefore(2 * 60), saying("2 minutes"));
    EXPECT_EQ(saysBefore(2 * 60 - 1), saying("1 minute"));
    EXPECT_EQ(saysBefore(60), saying("1 minute"));
    EXPECT_EQ(saysBefore(59), Texts{});
    standBefore(rise, 5 * 60);
    EXPECT_EQ(announced(1), Texts{}) << "muted";
    EXPECT_EQ(announced(-1), Texts{}) << "muted";
}

TEST_F(AnnouncementsTest, WholeDaysOfTheWaitDontCount) {
    // Never seen from here: the next rise is at the end of time, 23:59:59.
    state.OrbitEngine->EngineSetLongitude(180.0);
    addFavourite("INTELSAT 10-02");
    standBefore(packDateTime({2026, 8, 22, 23, 59, 59}), 10 * 60);
    EXPECT_EQ(announced(), Texts{"INTELSAT 10 02 will be in range in 10 minutes."});
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(AnnouncementsTest, YieldsOnceAfterEachAndTakesTheFavouritesAsTheyAreThen) {
    const double rise = nextRise("FUNCUBE-1 (AO-73)");
    standBefore(rise, 5 * 60);
    for (int i = 0; i < 3; ++i) addFavourite("FUNCUBE-1 (AO-73)");
    EXPECT_EQ(announced().size(), 3U);
    EXPECT_EQ(fakes.events.yields, 3);
    fakes.events.onYield = [&] { state.FavouriteCount = 2; };
    EXPECT_EQ(announced().size(), 2U);
    EXPECT_EQ(fakes.events.yields, 5);
}

TEST_F(AnnouncementsTest, AFailureIsLoggedAndTheNextFavouriteHasItsTurn) {
    const double rise = nextRise("FUNCUBE-1 (AO-73)");
    standBefore(rise, 5 * 60);
    addFavourite("NO SUCH SATELLITE");
    addFavourite("FUNCUBE-1 (AO-73)");
    fakes.events.onYield = [] { throw std::runtime_error("a handler failed"); };
    EXPECT_EQ(announced(), Texts{"FUNCUBE 1 (AO 73) will be in range in 5 minutes."});
    EXPECT_EQ(fakes.logged(labels::globalNextPassRAW), 1);
    EXPECT_EQ(fakes.logged(labels::mapMakeannouncment), 2);
    fakes.events.onYield = nullptr;
    state.FavouriteCount = 501;
    announced();
    EXPECT_EQ(fakes.logged(labels::mapMakeannouncment), 3) << "the one past the end of the table";
}

}  // namespace
}  // namespace vantrace
