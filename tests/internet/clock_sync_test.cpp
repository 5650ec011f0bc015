#include "internet/clock_sync.h"

#include "tests/internet/updates_test.h"

namespace vantrace {
namespace {

class ClockSyncTest : public UpdatesTest {
  protected:
    ClockSyncTest() {
        fakes.clock.setLocal({2026, 8, 23, 12, 30, 15}, 120);
        fakes.folder.write("hosts.dat", "timeHost=time.example\n");
        serverSays("08/23/2026", "12:30:15");
    }
    void serverSays(const char* date, const char* time) {
        fakes.timeClient.dateText = date;
        fakes.timeClient.timeText = time;
    }
    void run() {
        form = {};
        fakes.speech.texts.clear();
        fakes.dialogs.messages.clear();
        fakes.dialogs.titles.clear();
        BUTsyncClock_Click(form, state, fakes.services);
    }

    static constexpr const char* start =
        "Checking your PC clock with Atomic Clock...\r\n\r\nConnecting to Atomic Clock Server...\r\n";
    static constexpr const char* noConnection =
        "Couldn't connect to Time server, some firewall software can cause this, try again later";
};

TEST_F(ClockSyncTest, LessThanTwoSecondsIsPerfectAndElseSecondsAreToldBeforeMinutesBeforeHours) {
    struct Case {
        const char* date;
        const char* time;
        const char* sentence = "";  ///< empty where the clock is perfect
    };
    const Case cases[] = {
        {"08/23/2026", "12:30:15"},
        {"08/23/2026", "12:30:14"},
        {"08/23/2026", "12:30:16"},
        {"08/22/2026", "12:30:15"},
        {"08/30/2026", "12:30:16"},
        {"08/23/2026", "12:30:17", "Your PC's Clock is 2 Seconds Slow. "},
        {"08/23/2026", "12:30:13", "Your PC's Clock is 2 Seconds Fast. "},
        {"08/23/2026", "13:32:18", "Your PC's Clock is 3 Seconds Slow. "},
        {"08/23/2026", "12:31:16", "Your PC's Clock is 1 Seconds Slow. "},
        {"08/23/2026", "12:33:15", "Your PC's Clock is 3 Minutes, and 0 Seconds Slow. "},
        {"08/23/2026", "10:29:15", "Your PC's Clock is 1 Minutes, and 0 Seconds Fast. "},
        {"08/23/2026", "10:30:15", "Your PC's Clock is 2 Hours, 0 Minutes, and 0 Seconds Fast. "},
        {"08/24/2026", "13:30:15", "Your PC's Clock is 1 Hours, 0 Minutes, and 0 Seconds Slow. "},
    };
    fakes.clock.setMicroseconds(999999);
    for (const auto& [date, time, sentence] : cases) {
        const bool isPerfect = *sentence == '\0';
        const std::string told = isPerfect ? "Your PC is perfectly syncronized." : sentence;
        serverSays(date, time);
        run();
        EXPECT_EQ(fakes.speech.texts, Texts{told}) << date << time;
        EXPECT_EQ(fakes.dialogs.messages, Texts{isPerfect ? told : told + " Synchronize ?"});
        EXPECT_EQ(fakes.dialogs.titles, Texts{isPerfect ? "" : "PC Clock Accuracy"});
        EXPECT_EQ(form.txtStatus, std::string(start) + (isPerfect ? "" : "\r\nClock Not Synchronised"));
    }
    EXPECT_EQ(fakes.timeClient.host, "time.example");
    EXPECT_EQ(fakes.timeClient.timeoutSeconds, 15);
    EXPECT_EQ(fakes.timeClient.settings, 0);
}

TEST_F(ClockSyncTest, OnYesTheClockIsSetByAFreshQuery) {
    serverSays("08/23/2026", "12:30:55");
    fakes.dialogs.saysYes = true;
    std::size_t spokenBefore = 0;
    fakes.dialogs.onMessage = [&] {
        fakes.timeClient.host = "forgotten";
        spokenBefore = fakes.speech.texts.size();
        // Its result isn't looked at: the clock is.
        fakes.timeClient.queryResult = 1;
    };
    run();
    EXPECT_EQ(spokenBefore, 1U) << "while the question stands";
    EXPECT_EQ(fakes.timeClient.queries, 2);
    EXPECT_EQ(fakes.timeClient.settings, 1);
    EXPECT_EQ(fakes.timeClient.host, "time.example");
    EXPECT_EQ(form.txtStatus, std::string(start) +
                                  "\r\nSynchronizing PC clock with Atomic Clock..."
                                  "Clock Synchronized, 12:30:15 Local Time\r\n");
    EXPECT_EQ(fakes.speech.texts.back(), "Clock Syncronized.");

    fakes.timeClient.queryResult = 0;
    fakes.timeClient.setResult = 5;
    run();
    EXPECT_EQ(fakes.dialogs.messages.back(), noConnection);
    EXPECT_TRUE(form.txtStatus.ends_with("Atomic Clock...")) << form.txtStatus;
    EXPECT_EQ(fakes.speech.texts.size(), 1U);
}

TEST_F(ClockSyncTest, AServerThatDoesNotAnswerIsToldInTheStatus) {
    fakes.timeClient.queryResult = 1;
    run();
    EXPECT_EQ(form.txtStatus, std::string(start) + "\r\n" + noConnection +
                                  ", if you have a firewall, try allowing access to time.example on port 13");
    EXPECT_TRUE(fakes.dialogs.messages.empty());
    EXPECT_TRUE(fakes.speech.texts.empty());
    EXPECT_EQ(fakes.logLines().size(), 0U);
    fakes.folder.write("hosts.dat", "timeHost=time.example:1313\n");
    run();
    EXPECT_EQ(fakes.timeClient.host, "time.example:1313");
    EXPECT_TRUE(form.txtStatus.ends_with(" access to time.example on port 13")) << form.txtStatus;
}

TEST_F(ClockSyncTest, AClosedWindowAsksAndSetsNothingMore) {
    serverSays("08/23/2026", "12:30:55");
    fakes.dialogs.saysYes = true;
    // The first yield; the question; the yield behind it.
    for (const int end : {1, 2, 3}) {
        int seen = 0;
        const auto close = [&] { form.isUnloaded = ++seen == end; };
        fakes.events.onYield = close;
        fakes.dialogs.onMessage = close;
        const int before = fakes.timeClient.queries;
        run();
        EXPECT_EQ(fakes.timeClient.queries - before, end == 1 ? 0 : 1) << end;
        EXPECT_EQ(fakes.speech.texts.size(), end == 1 ? 0U : 1U) << end;
        EXPECT_EQ(fakes.timeClient.settings, 0) << end;
        EXPECT_FALSE(form.isWorking);
    }
}

TEST_F(ClockSyncTest, AnAnswerThatIsNoTimeIsLoggedAndTheJobGoesOn) {
    for (const char* date : {"", "today", "08/23", "99999/1/1"}) {
        serverSays(date, "12:30:15");
        run();
        EXPECT_EQ(fakes.dialogs.titles, Texts{"PC Clock Accuracy"}) << date;
    }
    EXPECT_EQ(fakes.logged("UpdateCON - SyncClock"), 4);
}

}  // namespace
}  // namespace vantrace
