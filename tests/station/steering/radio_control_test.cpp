#include "station/steering/radio_control.h"

#include "tests/station/steering/fake_daemons.h"

namespace vantrace {
namespace {

using Use = RadioControl::Use;

class RadioControlTest : public ::testing::Test {
  protected:
    RadioControl radioFor(Use use, const RadioVfos& vfos = {}) {
        return {daemon.session, use, 10.0, [this](std::string_view text) { told.emplace_back(text); }, vfos};
    }
    Texts tuned(RadioControl& radio, double downlinkHz, double uplinkHz) {
        daemon.commands.clear();
        radio.tune(downlinkHz, uplinkHz);
        daemon.serve(0);
        return daemon.commands;
    }

    Texts told;
    FakeRadioDaemon daemon{"radio", told};
};

TEST_F(RadioControlTest, ATransceiverIsSplitOnceAndTunedOnBothSides) {
    RadioControl radio = radioFor(Use::transceiver);
    daemon.arrive(0);
    EXPECT_EQ(tuned(radio, 145801200, 435001234.4),
              (Texts{"+V VFOA", "+F 145801200", "+S 1 VFOB", "+I 435001234"}));
    EXPECT_EQ(tuned(radio, 145801209, 435001244.5), (Texts{"+I 435001245"})) << "9 Hz are left out";
    EXPECT_EQ(tuned(radio, 145801210, 0), (Texts{"+F 145801210"})) << "without an uplink that side is left";
    daemon.commands.clear();
    radio.release();
    radio.release();
    daemon.serve(0);
    EXPECT_EQ(daemon.commands, (Texts{"+S 0 VFOA"})) << "once, and the user has both sides again";
    EXPECT_EQ(tuned(radio, 145801210, 435001245),
              (Texts{"+V VFOA", "+F 145801210", "+S 1 VFOB", "+I 435001245"}));
}

TEST_F(RadioControlTest, TwoRadiosGetOneFrequencyEach) {
    RadioControl receiver = radioFor(Use::receiver);
    daemon.arrive(0);
    EXPECT_EQ(tuned(receiver, 145800000, 435000000), (Texts{"+V VFOA", "+F 145800000"}));
    RadioControl transmitter = radioFor(Use::transmitter);
    daemon.session.disconnected("closed", 0);
    daemon.arrive(50);
    EXPECT_EQ(tuned(transmitter, 145800000, 435000000), (Texts{"+V VFOA", "+F 435000000"}));
    EXPECT_EQ(tuned(transmitter, 145900000, 0), Texts{});
}

TEST_F(RadioControlTest, ADaemonThatWantsItGetsTheSideByTheNameThatTheUserGave) {
    daemon.answers["+\\chk_vfo"] = "ChkVFO: 1\n";
    RadioControl radio = radioFor(Use::transceiver, {"Main", "Sub"});
    daemon.arrive(0);
    EXPECT_EQ(tuned(radio, 145800000, 435000000),
              (Texts{"+V Main", "+F Main 145800000", "+S Main 1 Sub", "+I Sub 435000000"}));
    daemon.commands.clear();
    radio.release();
    daemon.serve(0);
    EXPECT_EQ(daemon.commands, (Texts{"+S Main 0 Main"}));
}

TEST_F(RadioControlTest, NothingReachesAWrongSideWhileItIsSelectedOrSplitInVain) {
    RadioControl radio = radioFor(Use::transceiver);
    daemon.arrive(0);
    daemon.answers["+V"] = "set_vfo:\nRPRT -5\n";
    EXPECT_EQ(tuned(radio, 145800000, 435000000), (Texts{"+V VFOA"}));
    daemon.answers.clear();
    daemon.answers["+S"] = "set_split_vfo:\nRPRT -5\n";
    EXPECT_EQ(tuned(radio, 145800000, 435000000), (Texts{"+V VFOA", "+F 145800000", "+S 1 VFOB"}));
    daemon.answers.clear();
    EXPECT_EQ(tuned(radio, 145800000, 435000000), (Texts{"+S 1 VFOB", "+I 435000000"}));
    // A satellite without an uplink comes while the radio still thinks about the split.
    radio.release();
    daemon.serve(0);
    radio.tune(145800000, 435000000);
    while (daemon.transport.sent.back() != "+S 1 VFOB\n") daemon.session.received("RPRT 0\n", 0);
    radio.tune(145900000, 0);
    const std::size_t sent = daemon.transport.sent.size();
    daemon.session.received("RPRT 0\n", 0);
    daemon.session.received("RPRT 0\n", 0);
    for (std::size_t i = sent; i < daemon.transport.sent.size(); ++i) {
        EXPECT_FALSE(daemon.transport.sent[i].starts_with("+I")) << daemon.transport.sent[i];
    }
}

TEST_F(RadioControlTest, ARadioThatComesBackIsSplitAndTunedAnew) {
    RadioControl radio = radioFor(Use::transceiver);
    EXPECT_EQ(tuned(radio, 145800000, 435000000), Texts{});
    daemon.arrive(0);
    EXPECT_EQ(tuned(radio, 145800000, 435000000).size(), 4U);
    daemon.session.disconnected("closed", 1);
    EXPECT_EQ(tuned(radio, 145800000, 435000000), Texts{});
    daemon.arrive(3);
    EXPECT_EQ(tuned(radio, 145800000, 435000000).size(), 4U);
}

TEST_F(RadioControlTest, ARefusalIsToldOnceAndTheFrequencyTriedAgain) {
    RadioControl radio = radioFor(Use::transceiver);
    daemon.arrive(0);
    daemon.answers["+S"] = "set_split_vfo:\nRPRT -11\n";
    daemon.answers["+I"] = "set_split_freq:\nRPRT -9\n";
    for (int i = 0; i < 3; ++i) {
        const Texts sent = tuned(radio, 145800000 + 100.0 * i, 435000000);
        EXPECT_EQ(std::ranges::count(sent, "+I 435000000"), 1) << "a radio may take it without the split";
    }
    EXPECT_EQ(told.size(), 3U);
    EXPECT_EQ(std::ranges::count(told, "the radio refuses S 1 VFOB: RPRT -11 (not available)"), 1);
    EXPECT_EQ(std::ranges::count(told, "the radio refuses I 435000000: RPRT -9 (command rejected)"), 1);
}

}  // namespace
}  // namespace vantrace
