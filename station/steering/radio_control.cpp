#include "station/steering/radio_control.h"

#include <cmath>
#include <utility>

#include "core/numbers.h"

namespace vantrace {

namespace {

/// Slots of the session, in the order in which they take turns.
constexpr int splitSlot = 0;
constexpr int downlinkSlot = 1;
constexpr int uplinkSlot = 2;
constexpr int vfoSlot = 3;

constexpr const char* receiveVfo = "VFOA";
constexpr const char* transmitVfo = "VFOB";

}  // namespace

RadioControl::RadioControl(DaemonSession& session, Use use, double deadBandHz, Tell tell)
    : m_session(session), m_use(use), m_deadBandHz(deadBandHz), m_tell(std::move(tell)) {
    m_session.onUp = [this] { askForVfos(); };
    m_session.onDown = [this] { m_isAsked = false; };
}

/// A daemon may have been started so that every command names the side of the radio that it is for.
void RadioControl::askForVfos() {
    m_isAsked = false;
    m_refusals.clear();
    release();
    m_session.post(vfoSlot, "+\\chk_vfo", [this](const DaemonReply& reply) {
        const std::string answer = reply.value("ChkVFO").value_or("");
        const bool isOld = !reply.lines.empty() && reply.lines.back() == "CHKVFO 1";
        m_namesVfos = answer == "1" || isOld;
        m_isAsked = true;
    });
}

void RadioControl::release() {
    m_split = Split::no;
    m_downlinkHz.reset();
    m_uplinkHz.reset();
}

std::string RadioControl::frequencyCommand(char letter, const char* vfo, double hertz) const {
    return std::string("+") + letter + " " + (m_namesVfos ? std::string(vfo) + " " : "") +
           formatNumber(hertz, "0");
}

void RadioControl::tune(double downlinkHz, double uplinkHz) {
    if (!m_isAsked) return;
    if (m_use != Use::transmitter && downlinkHz > 0.0) {
        tuneSide(downlinkSlot, m_downlinkHz, downlinkHz, frequencyCommand('F', receiveVfo, downlinkHz));
    }
    if (m_use == Use::transmitter && uplinkHz > 0.0) {
        tuneSide(uplinkSlot, m_uplinkHz, uplinkHz, frequencyCommand('F', receiveVfo, uplinkHz));
    }
    m_wantedUplinkHz = uplinkHz;
    if (m_use != Use::transceiver || uplinkHz <= 0.0) return;
    if (m_split == Split::no) split();
    if (m_split == Split::answered) tuneUplink();
}

void RadioControl::tuneUplink() {
    tuneSide(uplinkSlot, m_uplinkHz, m_wantedUplinkHz, frequencyCommand('I', transmitVfo, m_wantedUplinkHz));
}

/// The uplink comes after it, else it would reach the receiver. A radio that knows no such command may know
/// the other one all the same.
void RadioControl::split() {
    m_split = Split::asked;
    const std::string command =
        std::string("+S ") + (m_namesVfos ? std::string(receiveVfo) + " " : "") + "1 " + transmitVfo;
    m_session.post(splitSlot, command, [this, command](const DaemonReply& reply) {
        tellRefusal(splitSlot, command, reply.code);
        if (m_split != Split::asked) return;
        m_split = Split::answered;
        tuneUplink();
    });
}

void RadioControl::tuneSide(int slot, std::optional<double>& told, double hertz, const std::string& command) {
    if (told && std::abs(hertz - *told) < m_deadBandHz) return;
    told = hertz;
    send(slot, command);
}

void RadioControl::send(int slot, const std::string& command) {
    m_session.post(slot, command, [this, slot, command](const DaemonReply& reply) {
        tellRefusal(slot, command, reply.code);
        if (reply.code == 0) return;
        // The next line tries it again.
        if (slot == downlinkSlot) m_downlinkHz.reset();
        if (slot == uplinkSlot) m_uplinkHz.reset();
    });
}

/// Once for as long as it goes on.
void RadioControl::tellRefusal(int slot, const std::string& command, int code) {
    if (std::exchange(m_refusals[slot], code) == code || code == 0) return;
    m_tell("the radio refuses " + command.substr(1) + ": " + daemonCodeText(code));
}

}  // namespace vantrace
