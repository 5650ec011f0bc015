#include "orbit/upcoming_passes.h"

#include "core/date_time.h"
#include "core/labels.h"
#include "core/rich_text.h"
#include "tests/orbit/program/program_test.h"

namespace vantrace {
namespace {

class UpcomingPasses : public ProgramTest {
  protected:
    UpcomingPasses() { fakes.settings.set("Speechpack", "1"); }
    void update(bool speak = false) { UpdateQuickETA(panel, speak, state, services); }
    double riseOf(std::string_view name) const {
        return state.OrbitEngine->EngineNextAOS(name, packDateTime({2026, 8, 21, 20, 0, 0}));
    }
    double setOf(std::string_view name, double after) const {
        return state.OrbitEngine->EngineNextLOS(name, after);
    }
    std::string localClock(double utc) const {
        const DateParts parts = dateParts(ToLocal(fakes.clock, utc));
        return TimeText(parts.hour, parts.minute, 0).substr(0, 5);
    }
    /// Sets the clock so that a time is that many seconds ahead.
    void goTo(double utc, int secondsBefore) {
        fakes.clock.setUtc(dateParts(utc - secondsBefore / 86400.0), 120);
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
    const double rise = riseOf("ISS (ZARYA)");
    const double set = setOf("ISS (ZARYA)", rise);
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
    EXPECT_EQ(panel.parts[4].text, localClock(setOf("ISS (ZARYA)", NowUTC(fakes.clock))) + "\n");
}

TEST_F(UpcomingPasses, OfThreeThatWaitTheLastToRiseIsNotShown) {
    addFavourite("ISS (ZARYA)", -1);
    addFavourite("FUNCUBE-1 (AO-73)", -1);
    addFavourite("NO SUCH SATELLITE", -1);
    update();
    // The unknown one has the times of the one before it.
    const double cube = riseOf("FUNCUBE-1 (AO-73)");
    ASSERT_EQ(panel.parts.size(), 8U);
    EXPECT_EQ(panel.parts[3].text, localClock(std::min(riseOf("ISS (ZARYA)"), cube)) + "   ");
    EXPECT_EQ(panel.parts[6].text, localClock(cube) + "   ");
    EXPECT_EQ(fakes.logged(labels::globalUpdateQuickETA), 2);
}

TEST_F(UpcomingPasses, WithinAQuarterOfAnHourItTurnsRedAndIsAnnouncedFromItsCutName) {
    const double rise = riseOf("FUNCUBE-1 (AO-73)");
    addFavourite("FUNCUBE-1 (AO-73)", -1);
    addFavourite("FUNCUBE-1 (AO-73)", -1);
    for (const auto& [seconds, wait] : {std::pair(15 * 60 + 5, ""),
                                        {14 * 60 + 40, "14 minutes"},
                                        {75, "1 minute"},
                                        {20, "Less than a minute"}}) {
        goTo(rise, seconds);
        fakes.speech.texts.clear();
        update(true);
        ASSERT_EQ(panel.parts.size(), 5U);
        const bool isFar = seconds > 15 * 60;
        EXPECT_EQ(panel.parts[2], (RichText::Part{isFar ? 0xFFFF00U : 0x0000FFU, "FUNCUBE-1 (AO-\t"}));
        const std::string words = std::string("FUNCUBE 1 (AO  will be in range in ") + wait;
        EXPECT_EQ(fakes.speech.texts, isFar ? Texts{} : Texts{words});
    }
}

TEST_F(UpcomingPasses, OneThatSetsWithinThreeMinutesOfAnyHourIsAnnounced) {
    const double rise = riseOf("ISS (ZARYA)");
    const double set = setOf("ISS (ZARYA)", rise);
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
    EXPECT_NE(panel.plainText().find("FUNCUBE"), std::string::npos) << "the other one is the last to rise";
    EXPECT_EQ(fakes.logged(labels::globalUpdateQuickETA), 0);
}

TEST_F(UpcomingPasses, OneThatNeverSetsHasNoTimeAndIsNotAnnounced) {
    state.OrbitEngine->EngineSetLongitude(0.0);
    addFavourite("INTELSAT 10-02", 30);
    fakes.clock.setUtc({2026, 8, 21, 12, 58, 0}, 0);
    update(true);
    EXPECT_TRUE(panel.plainText().ends_with("INTELSAT 10-02\tNOW     --:--\n")) << panel.plainText();
    EXPECT_TRUE(fakes.speech.texts.empty());
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
    for (int i = 0; i < 500; ++i) addFavourite("");
    // Yields are counted, not served: a quarter of a million of them.
    update();
    // 500 lines of the log are less than its limit.
    EXPECT_EQ(fakes.logged(labels::globalUpdateQuickETA), 500);
}

}  // namespace
}  // namespace vantrace
