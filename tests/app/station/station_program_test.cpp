#include "app/station/station_program.h"

#include "app/station/line_source.h"
#include "tests/app/station/tcp_daemon.h"

namespace vantrace {
namespace {

class StationProgramTest : public ::testing::Test {
  protected:
    StationProgramTest() {
        options.line = tracker.address();
        options.rotator = rotator.address();
        options.radio = radio.address();
    }
    void start() {
        m_station.emplace(options, StationProgram::Surroundings{
                                       [] { return Instant{}; }, m_passes,
                                       [this](std::string_view text) { told.emplace_back(text); }, printed});
        ASSERT_TRUE(eventually([&] { return tracker.hasClient(); }));
    }
    void finish() {
        bool isDone = false;
        m_station->finish([&] { isDone = true; });
        EXPECT_TRUE(eventually([&] { return isDone; }));
    }
    static std::string lineOf(int azimuth, long downlink) {
        return "SNNOBODY AZ" + std::to_string(azimuth) + ",50 EL30,25 UP435000000 DN" +
               std::to_string(downlink) + " DO0\n";
    }

    /// The commands that a dry run printed for one of the daemons.
    std::string printedTo(const std::string& daemon) const {
        std::istringstream lines(printed.str());
        std::string commands;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(daemon + ": ")) commands += line.substr(daemon.size() + 2) + "\n";
        }
        return commands;
    }

    TcpDaemon tracker;
    TcpDaemon rotator{[](const std::string& line) {
        if (line == "+p") return std::string("get_pos:\nAzimuth: 10.0\nElevation: 5.0\nRPRT 0\n");
        return "answer: " + line + "\nRPRT 0\n";
    }};
    TcpDaemon radio{[](const std::string& line) {
        return line == "+\\chk_vfo" ? std::string("ChkVFO: 0\n") : "answer: " + line + "\nRPRT 0\n";
    }};
    StationOptions options;
    Texts told;
    std::ostringstream printed;

  private:
    NoPasses m_passes;
    std::optional<StationProgram> m_station;
};

TEST_F(StationProgramTest, TheLineReachesRotatorAndRadioAndTheEndStopsTheRotator) {
    start();
    ASSERT_TRUE(eventually([&] { return rotator.countOf("+p") > 0 && radio.countOf("+\\chk_vfo") > 0; }));
    tracker.tell(lineOf(200, 145800000).substr(0, 20));
    QTest::qWait(30);
    tracker.tell(lineOf(200, 145800000).substr(20));
    EXPECT_TRUE(eventually([&] { return rotator.countOf("+P 200.50 30.25") == 1; }));
    EXPECT_TRUE(eventually([&] { return radio.countOf("+I 435000000") == 1; }));
    EXPECT_EQ(radio.countOf("+F 145800000"), 1);
    EXPECT_EQ(radio.countOf("+S 1 VFOB"), 1);
    finish();
    EXPECT_EQ(rotator.countOf("+S"), 1);
}

TEST_F(StationProgramTest, DaemonsThatDieAreFoundAgainAndToldEverythingAnew) {
    start();
    tracker.tell(lineOf(200, 145800000));
    ASSERT_TRUE(eventually([&] {
        tracker.tell(lineOf(200, 145800000));
        return rotator.countOf("+P") == 1 && radio.countOf("+I") == 1;
    }));
    rotator.die();
    radio.die();
    QTest::qWait(300);
    tracker.tell(lineOf(210, 145800500));
    rotator.comeBack();
    radio.comeBack();
    EXPECT_TRUE(eventually([&] {
        tracker.tell(lineOf(211, 145800600));
        QTest::qWait(50);
        return rotator.countOf("+P 211.50") == 1 && radio.countOf("+F 145800600") == 1 &&
               radio.countOf("+S 1 VFOB") == 2;
    }));
    EXPECT_EQ(rotator.countOf("+P 210.50"), 0) << "what was wanted meanwhile is old";
    finish();
}

TEST_F(StationProgramTest, ATrackerThatEndsIsWaitedFor) {
    start();
    tracker.die();
    QTest::qWait(200);
    tracker.comeBack();
    EXPECT_TRUE(eventually([&] { return tracker.hasClient(); }));
    EXPECT_TRUE(eventually([&] {
        tracker.tell(lineOf(100, 0));
        QTest::qWait(50);
        return rotator.countOf("+P 100.50") == 1;
    }));
    finish();
}

TEST_F(StationProgramTest, ADaemonThatNeverAnswersDoesntHoldTheEndUp) {
    TcpDaemon silent;
    options.rotator = silent.address();
    start();
    ASSERT_TRUE(eventually([&] { return !silent.lines.empty(); }));
    tracker.tell(lineOf(100, 145800000));
    EXPECT_TRUE(eventually([&] { return radio.countOf("+F") == 1; })) << "the radio has a daemon of its own";
    QElapsedTimer timer;
    timer.start();
    finish();
    EXPECT_LT(timer.elapsed(), 3000);
    EXPECT_EQ(silent.lines.size(), 1U) << "one command at a time";
}

TEST_F(StationProgramTest, ADryRunPrintsAndConnectsToNoDaemon) {
    options.isDry = true;
    start();
    EXPECT_TRUE(eventually([&] {
        tracker.tell(lineOf(100, 145800000));
        QTest::qWait(50);
        return printed.str().find("radio: I 435000000\n") != std::string::npos;
    }));
    finish();
    // Each daemon gets its own in this order; between them there is none.
    EXPECT_EQ(printedTo("rotator"), "P 100.50 30.25\nS\n");
    EXPECT_EQ(printedTo("radio"), "V VFOA\nF 145800000\nS 1 VFOB\nI 435000000\nS 0 VFOA\n");
    EXPECT_FALSE(rotator.hasClient());
    EXPECT_FALSE(radio.hasClient());
}

TEST(LineSourceTest, AConnectionThatSaysNothingIsMadeAnewWithoutAWord) {
    TcpDaemon tracker;
    Texts told;
    std::string last;
    LineSource source(
        tracker.address(), [&](std::string_view line) { last = line; },
        [&](std::string_view text) { told.emplace_back(text); });
    source.tick(0);
    ASSERT_TRUE(eventually([&] { return tracker.arrivals == 1 && told.size() == 1; }));
    source.tick(20);
    tracker.tell("one\n");
    ASSERT_TRUE(eventually([&] { return last == "one"; }));
    source.tick(49);
    QTest::qWait(50);
    EXPECT_EQ(tracker.arrivals, 1) << "it has spoken since";
    source.tick(51);
    ASSERT_TRUE(eventually([&] { return tracker.arrivals == 2; }));
    EXPECT_TRUE(eventually([&] {
        tracker.tell("two\n");
        QTest::qWait(20);
        return last == "two";
    }));
    EXPECT_EQ(told.size(), 1U);
    tracker.die();
    EXPECT_TRUE(eventually([&] { return told.size() == 2; }));
}

}  // namespace
}  // namespace vantrace
