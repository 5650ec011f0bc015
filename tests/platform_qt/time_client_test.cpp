#include <QTest>
#include <atomic>
#include <cerrno>

#include "platform/qt/qt_time_client.h"
#include "tests/support/fake_clock.h"
#include "tests/support/loopback_server.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

using namespace std::chrono_literals;
using Connection = LoopbackServer::Connection;

constexpr const char* goodAnswer = "\n60271 23-11-23 06:18:38 00 0 0  50.0 UTC(NIST) * \n";

class TimeClientTest : public ::testing::Test {
  protected:
    TimeClientTest() { clock.setUtc({2023, 11, 23, 6, 10, 0}, 60); }

    int query(LoopbackServer::Handler handler, int timeoutSeconds = 15) {
        const LoopbackServer server(std::move(handler));
        client.setHost(server.address());
        client.setTimeoutSeconds(timeoutSeconds);
        return client.QueryTime();
    }
    int queryFor(const std::string& answer) {
        return query([answer](Connection& connection) { connection.write(answer); });
    }

    FakeClock clock;
    /// What the machine's clock was set to; the real one stays as it is.
    std::optional<UtcTime> set;
    int setResult = 0;
    QtTimeClient client{clock, [this](UtcTime time) {
                            set = time;
                            return setResult;
                        }};
};

TEST_F(TimeClientTest, AnAnswerIsToldInLocalTimeAndCarriedOn) {
    EXPECT_EQ(client.date() + client.timeOfDay(), "");
    EXPECT_EQ(client.SetClock(), EINVAL);
    ASSERT_EQ(queryFor(goodAnswer), 0);
    EXPECT_EQ(client.date(), "11/23/2023");
    const std::string first = client.timeOfDay();
    EXPECT_TRUE(first == "07:18:37" || first == "07:18:38") << first;
    QTest::qSleep(1500);
    const std::string later = client.timeOfDay();
    EXPECT_TRUE(later == "07:18:39" || later == "07:18:40") << later;
    EXPECT_EQ(client.SetClock(), 0);
    const UtcTime told = std::chrono::sys_days{std::chrono::year{2023} / 11 / 23} + 6h + 18min + 39s;
    EXPECT_LT(std::chrono::abs(*set - told), 1500ms);
}

TEST_F(TimeClientTest, ADateChangesWithTheZone) {
    clock.setUtc({2023, 12, 31, 23, 0, 0}, 120);
    ASSERT_EQ(queryFor("31 DEC 2023 23:30:00 UTC\n"), 0);
    EXPECT_EQ(client.date(), "01/01/2024");
    EXPECT_EQ(client.timeOfDay().substr(0, 5), "01:30");
}

TEST_F(TimeClientTest, AHostIsAskedOnceInFourSeconds) {
    std::atomic<int> asked = 0;
    const auto handler = [&asked](Connection& connection) {
        ++asked;
        connection.write(goodAnswer);
    };
    const LoopbackServer first(handler);
    const LoopbackServer second(handler);
    client.setHost(first.address());
    ASSERT_EQ(client.QueryTime(), 0);
    EXPECT_EQ(client.QueryTime(), 0);
    EXPECT_EQ(client.SetClock(), 0);
    EXPECT_EQ(asked, 1);
    client.setHost(second.address());
    EXPECT_EQ(client.QueryTime(), 0);
    EXPECT_EQ(asked, 2) << "another host";
    QTest::qSleep(4100);
    EXPECT_EQ(client.QueryTime(), 0);
    EXPECT_EQ(asked, 3);
}

TEST_F(TimeClientTest, AClockThatMayNotBeSetIsToldAndAFailedQuerySetsNone) {
    ASSERT_EQ(queryFor(goodAnswer), 0);
    setResult = EPERM;
    EXPECT_EQ(client.SetClock(), EPERM);
    set.reset();
    EXPECT_EQ(queryFor("rubbish\n"), QtTimeClient::badAnswer);
    EXPECT_EQ(client.date(), "11/23/2023") << "what was told stays";
    EXPECT_EQ(client.SetClock(), EINVAL);
    EXPECT_FALSE(set);
}

TEST_F(TimeClientTest, AnAnswerInPiecesOrWithoutAnEndIsGood) {
    EXPECT_EQ(query([](Connection& connection) {
                  for (const char sign : std::string(goodAnswer)) {
                      connection.write(std::string(1, sign));
                      connection.pause(5ms);
                  }
                  connection.hang();
              }),
              0);
    EXPECT_EQ(queryFor("23 NOV 2023 06:18:38 UTC"), 0);
}

TEST_F(TimeClientTest, WhoAnswersRubbishIsNotBelieved) {
    EXPECT_EQ(queryFor(""), QtTimeClient::noAnswer);
    EXPECT_EQ(queryFor("60271 23-11-23 06:18:38 00 0 4 50.0 UTC(NIST) *\n"), QtTimeClient::badAnswer);
    EXPECT_EQ(queryFor(std::string(100, '\n')), QtTimeClient::badAnswer);
    EXPECT_EQ(query([](Connection& connection) {
                  while (connection.write(std::string(65536, '7'))) continue;
              }),
              QtTimeClient::badAnswer);
}

TEST_F(TimeClientTest, ASlowServerIsLeftAtTheLimit) {
    for (const bool drips : {false, true}) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(query(
                      [drips](Connection& connection) {
                          while (drips && connection.write(" ")) connection.pause(100ms);
                          connection.hang();
                      },
                      1),
                  QtTimeClient::noAnswer);
        const auto span = std::chrono::steady_clock::now() - start;
        EXPECT_GT(span, 900ms);
        EXPECT_LT(span, 3s);
    }
}

TEST_F(TimeClientTest, HostsThatMakeNoSenseOrAreNotThereFail) {
    for (const std::string host :
         {"", ":13", "127.0.0.1:", "127.0.0.1:0", "127.0.0.1:x", "127.0.0.1:70000"}) {
        client.setHost(host);
        EXPECT_EQ(client.QueryTime(), QtTimeClient::noHost) << host;
    }
    for (const std::string host : {"nobody.invalid", "127.0.0.1:1"}) {
        client.setHost(host);
        EXPECT_EQ(client.QueryTime(), QtTimeClient::noConnection) << host;
    }
}

}  // namespace
}  // namespace vantrace
