
#include "tests/station/steering/fake_daemons.h"

namespace vantrace {
namespace {

class DaemonSessionTest : public ::testing::Test {
  protected:
    void post(int slot, const std::string& command) {
        daemon.session.post(slot, command, [this](const DaemonReply& reply) { replies.push_back(reply); });
    }
    void receive(std::string_view bytes, double now = 0.0) { daemon.session.received(bytes, now); }
    const Texts& sent() const { return daemon.transport.sent; }

    Texts told;
    FakeDaemon daemon{"daemon", told};
    std::vector<DaemonReply> replies;
};

TEST_F(DaemonSessionTest, OneCommandIsUnderWayAndTheNewestOfASlotWins) {
    daemon.come(0);
    for (int i = 0; i < 100; ++i) post(1, "P " + std::to_string(i));
    EXPECT_EQ(sent(), (Texts{"P 0\n"}));
    receive("set_pos: 0\nRPRT 0\n");
    EXPECT_EQ(sent(), (Texts{"P 0\n", "P 99\n"}));
    EXPECT_FALSE(daemon.session.isIdle());
    receive("RPRT 0\n");
    EXPECT_EQ(sent().size(), 2U);
    EXPECT_TRUE(daemon.session.isIdle());
}

TEST_F(DaemonSessionTest, SlotsTakeTurnsHoweverOftenOneIsFilled) {
    daemon.come(0);
    post(1, "first");
    post(2, "question");
    for (int i = 0; i < 3; ++i) {
        post(1, "again");
        receive("RPRT 0\n");
    }
    EXPECT_EQ(sent(), (Texts{"first\n", "question\n", "again\n", "again\n"}));
}

TEST_F(DaemonSessionTest, AnswersAreReadInPiecesWithTheirCode) {
    daemon.come(0);
    post(1, "+p");
    receive("get_pos:\nAzimuth: 12");
    receive("3.5\r\nElevation: 4\nRP");
    EXPECT_TRUE(replies.empty());
    receive("RT -6\n");
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_EQ(replies[0].code, -6);
    EXPECT_EQ(replies[0].value("Azimuth"), "123.5");
    EXPECT_EQ(replies[0].value("Range"), std::nullopt);
    post(1, "+\\chk_vfo");
    receive("ChkVFO: 1\n");
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_EQ(replies[1].value("ChkVFO"), "1");
    EXPECT_EQ(daemonCodeText(-1), "RPRT -1 (invalid parameter)");
    EXPECT_EQ(daemonCodeText(-77), "RPRT -77");
}

TEST_F(DaemonSessionTest, ADeadDaemonIsTriedAgainWithLongerPausesUntilItAnswers) {
    std::vector<double> attempts;
    for (double now = 0.0; now < 130.0; now += 0.5) {
        const int before = daemon.transport.connects;
        daemon.session.tick(now);
        if (daemon.transport.connects == before) continue;
        attempts.push_back(now);
        daemon.session.disconnected("connection refused", now);
    }
    EXPECT_EQ(attempts, (std::vector<double>{0, 1, 3, 7, 15, 31, 61, 91, 121}));
    EXPECT_EQ(told, (Texts{"daemon: connection refused; it is tried again"})) << "once";
    daemon.session.tick(151);
    daemon.session.connected(151);
    post(1, "+p");
    receive("RPRT 0\n", 151);
    EXPECT_EQ(told.back(), "daemon: connected");
    daemon.session.disconnected("closed", 152);
    const int before = daemon.transport.connects;
    daemon.session.tick(153);
    EXPECT_EQ(daemon.transport.connects, before + 1) << "after an answer the pauses begin anew";
    EXPECT_EQ(told.back(), "daemon: closed; it is tried again");
}

TEST_F(DaemonSessionTest, WhatIsNotAnsweredInTimeEndsTheConnection) {
    bool isDown = false;
    daemon.session.onDown = [&] { isDown = true; };
    daemon.come(0);
    post(1, "+P 1 1");
    post(2, "+p");
    daemon.session.tick(4.9);
    EXPECT_EQ(daemon.transport.drops, 0);
    daemon.session.tick(5.1);
    EXPECT_EQ(daemon.transport.drops, 1);
    EXPECT_TRUE(isDown);
    EXPECT_EQ(told.back(), "daemon: it doesn't answer; it is tried again");
    post(1, "+P 2 2");
    EXPECT_EQ(sent().size(), 1U);
    EXPECT_TRUE(daemon.session.isIdle()) << "old commands are not kept for the next connection";
    // A connection that never comes about.
    daemon.session.tick(7);
    daemon.session.tick(12.1);
    EXPECT_EQ(daemon.transport.drops, 2);
}

TEST_F(DaemonSessionTest, WhoeverDoesntKeepTheProtocolIsLeft) {
    daemon.come(0);
    receive("Hello\n");
    EXPECT_EQ(daemon.transport.drops, 1);
    EXPECT_EQ(told.back(), "daemon: it speaks without being asked; it is tried again");
    daemon.come(2);
    post(1, "+p");
    receive(std::string(1 << 20, 'x'), 2);
    receive("\n", 2);
    EXPECT_EQ(daemon.transport.drops, 2);
    daemon.come(5);
    post(1, "+p");
    std::string endless;
    for (int i = 0; i < 1000; ++i) endless += "Azimuth: 1\n";
    receive(endless, 5);
    EXPECT_EQ(daemon.transport.drops, 3);
    EXPECT_TRUE(replies.empty());
}

}  // namespace
}  // namespace vantrace
