#include "orbit/upcoming_passes.h"

#include "core/date_time.h"
#include "core/labels.h"
#include "core/rich_text.h"
#include "tests/orbit/program/program_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class UpcomingPasses : public ProgramTest {
  protected:
    UpcomingPasses() { fakes.settings.set("Speechpack", "1"); }
    void addFavourite(std::string_view name, double elevation) {
        FavouriteRecord& favourite = state.Favourites[++state.FavouriteCount];
        favourite.Name = name;
        favourite.Elevation = elevation;
    }
    void update(bool speak = false) { UpdateQuickETA(panel, speak, state, services); }
    double now() const { return packDateTime({2026, 8, 21, 20, 0, 0}); }
    std::string localClock(double utc) const {
        const DateParts parts = dateParts(ToLocal(fakes.clock, utc));
        const auto digits = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
        return digits(parts.hour) + ":" + digits(parts.minute);
    }
    /// Sets the clock so that a time is that many seconds ahead.
    void goTo(double utc, int secondsBefore) {
        fakes.clock.setUtc(dateParts(utc - secondsBefore / 86400.0), 120);
    }
    Texts lines() const {
        Texts result;
        std::string rest = panel.plainText();
        while (!rest.empty()) {
            const std::size_t end = rest.find('\n');
            result.push_back(rest.substr(0, end));
            rest.erase(0, end == std::string::npos ? end : end + 1);
        }
        return result;
    }

    RichText panel;
};

TEST_F(UpcomingPasses, WithoutFavouritesTheHeadingsStandAlone) {
    panel.append(0, "old");
    update();
    EXPECT_EQ(panel.parts, (std::vector<RichText::Part>{{0x8080FF, "Upcoming Satellite Passes :\n"},
                                                        {0x8080FF, "Satellite     \tAOS     LOS\n"}}));
    EXPECT_FALSE(state.QuickETABusy);
}

TEST_F(UpcomingPasses, AWaitingPassHasItsRiseAndTheSetOfThatVeryPass) {
    addFavourite("ISS (ZARYA)", -10);
    addFavourite("ISS (ZARYA)", -10);
    update();
    // Of two that wait the unused row pushes the later one out.
    const double rise = state.OrbitEngine->EngineNextAOS("ISS (ZARYA)", now());
    const double set = state.OrbitEngine->EngineNextLOS("ISS (ZARYA)", rise);
    ASSERT_EQ(panel.parts.size(), 5U);
    EXPECT_EQ(panel.parts[2], (RichText::Part{0xFFFF00, "ISS (ZARYA)   \t"}));
    EXPECT_EQ(panel.parts[3], (RichText::Part{0x80FFFF, localClock(rise) + "   "}));
    EXPECT_EQ(panel.parts[4], (RichText::Part{0xFFFFFF, localClock(set) + "   \n"}));
}

TEST_F(UpcomingPasses, OneInRangeAtExactlyZeroDegreesComesFirstInGreen) {
    addFavourite("FUNCUBE-1 (AO-73)", -5);
    addFavourite("ISS (ZARYA)", 0);
    update();
    ASSERT_EQ(panel.parts.size(), 5U) << "the waiting one is pushed out by the unused row";
    EXPECT_EQ(panel.parts[2], (RichText::Part{0x00FF00, "ISS (ZARYA)   \t"}));
    EXPECT_EQ(panel.parts[3], (RichText::Part{0x80FFFF, "NOW     "}));
    EXPECT_EQ(panel.parts[4].text, localClock(state.OrbitEngine->EngineNextLOS("ISS (ZARYA)", now())) + "\n");
}

TEST_F(UpcomingPasses, OfThreeThatWaitTheLastToRiseIsNotShown) {
    addFavourite("ISS (ZARYA)", -1);
    addFavourite("FUNCUBE-1 (AO-73)", -1);
    addFavourite("NO SUCH SATELLITE", -1);
    update();
    // The unknown one has the times of the one before it.
    const double iss = state.OrbitEngine->EngineNextAOS("ISS (ZARYA)", now());
    const double cube = state.OrbitEngine->EngineNextAOS("FUNCUBE-1 (AO-73)", now());
    const Texts rows = lines();
    ASSERT_EQ(rows.size(), 4U);
    const auto riseOf = [](const std::string& row) { return row.substr(15, 5); };
    EXPECT_EQ(riseOf(rows[2]), localClock(std::min(iss, cube)));
    EXPECT_EQ(riseOf(rows[3]), localClock(cube));
    EXPECT_EQ(fakes.logged(labels::globalUpdateQuickETA), 2);
}

TEST_F(UpcomingPasses, WithinAQuarterOfAnHourItTurnsRedAndIsAnnouncedFromItsCutName) {
    const double rise = state.OrbitEngine->EngineNextAOS("FUNCUBE-1 (AO-73)", now());
    addFavourite("FUNCUBE-1 (AO-73)", -1);
    addFavourite("FUNCUBE-1 (AO-73)", -1);
    struct Case {
        int seconds;
        Colour colour;
        Texts spoken;
    };
    const std::string name = "FUNCUBE 1 (AO ";
    for (const Case& expected : {Case{15 * 60 + 5, 0xFFFF00, {}},
                                 Case{14 * 60 + 40, 0x0000FF, {name + " will be in range in 14 minutes"}},
                                 Case{75, 0x0000FF, {name + " will be in range in 1 minute"}},
                                 Case{20, 0x0000FF, {name + " will be in range in Less than a minute"}}}) {
        goTo(rise, expected.seconds);
        fakes.speech.texts.clear();
        update(true);
        ASSERT_EQ(panel.parts.size(), 5U);
        EXPECT_EQ(panel.parts[2], (RichText::Part{expected.colour, "FUNCUBE-1 (AO-\t"}));
        EXPECT_EQ(fakes.speech.texts, expected.spoken);
    }
}

TEST_F(UpcomingPasses, OneThatSetsWithinThreeMinutesOfAnyHourIsAnnounced) {
    const double rise = state.OrbitEngine->EngineNextAOS("ISS (ZARYA)", now());
    const double set = state.OrbitEngine->EngineNextLOS("ISS (ZARYA)", rise);
    addFavourite("ISS (ZARYA)", 10);
    goTo(set, 170);
    update(true);
    EXPECT_EQ(fakes.speech.texts, Texts{"The International Space station will be out of range in 2 minutes"});
    fakes.speech.texts.clear();
    goTo(set, 190);
    update(true);
    EXPECT_TRUE(fakes.speech.texts.empty());
    goTo(set, 100);
    update(false);
    EXPECT_TRUE(fakes.speech.texts.empty());
}

TEST_F(UpcomingPasses, OneThatNeverRisesIsNeitherShownNorAnnounced) {
    state.ObserverLongitude = 180.0;
    state.OrbitEngine->EngineSetLongitude(180.0);
    addFavourite("INTELSAT 10-02", -50);
    addFavourite("FUNCUBE-1 (AO-73)", -5);
    addFavourite("ISS (ZARYA)", 0);
    // A quarter of an hour before the end of the day, which the mark of no rise stands at.
    fakes.clock.setUtc({2026, 8, 21, 23, 50, 0}, 0);
    update(true);
    EXPECT_EQ(panel.plainText().find("INTELSAT"), std::string::npos) << panel.plainText();
    EXPECT_NE(panel.plainText().find("ISS"), std::string::npos);
    EXPECT_EQ(fakes.logged(labels::globalUpdateQuickETA), 0);
}

TEST_F(UpcomingPasses, LeavingTheMapDuringARunEndsThePanelForGood) {
    addFavourite("ISS (ZARYA)", -1);
    addFavourite("FUNCUBE-1 (AO-73)", -1);
    update();
    const std::string before = panel.plainText();
    const int yields = fakes.events.yields;
    EXPECT_EQ(yields, 2 + 2 * 2 * 2 + 2 * 200);
    for (const char* const word : {"menu", "exit"}) {
        for (const int last : {1, 5, 100}) {
            state.QuickETABusy = false;
            state.MainTag = "worldnormal";
            fakes.events.yields = 0;
            fakes.events.onYield = [&] {
                if (fakes.events.yields == last) state.MainTag = word;
            };
            update();
            EXPECT_TRUE(state.QuickETABusy) << word << last;
            EXPECT_LE(fakes.events.yields, last < 10 ? last + 1 : 210) << "it leaves at the next look";
        }
    }
    fakes.events.onYield = nullptr;
    state.MainTag = "worldnormal";
    panel.clear();
    update();
    EXPECT_TRUE(panel.isEmpty());
}

TEST_F(UpcomingPasses, ASecondRunInsideTheFirstDoesNothing) {
    addFavourite("ISS (ZARYA)", -1);
    int inner = 0;
    fakes.events.onYield = [&] {
        RichText other;
        UpdateQuickETA(other, false, state, services);
        inner += other.isEmpty() ? 0 : 1;
    };
    update();
    EXPECT_EQ(inner, 0);
    EXPECT_FALSE(state.QuickETABusy);
}

TEST_F(UpcomingPasses, AtTheTablesEndTheRowBehindItIsLoggedAtEachComparison) {
    for (int i = 0; i < 500; ++i) addFavourite("", 0);
    // Yields are counted, not served: a quarter of a million of them.
    update();
    // 500 lines of the log are less than its limit.
    EXPECT_EQ(fakes.logged(labels::globalUpdateQuickETA), 500);
}

}  // namespace
}  // namespace vantrace
