#include "station/steering/radio_control.h"

#include <cmath>
#include <utility>

#include "core/numbers.h"

namespace vantrace {

namespace {

/// Slots of the session, in the order in which they take turns.
constexpr int receiverSlot = 0;
constexpr int splitSlot = 1;
constexpr int downlinkSlot = 2;
constexpr int uplinkSlot = 3;
constexpr int vfoSlot = 4;

/// The codes of a radio, or a driver, that knows no such command.
bool isUnknown(int code) {
    return code == -4 || code == -11;
}

/// The codes of a wire to the radio that has just failed; the same command may do at the next line.
bool isPassing(int code) {
    return code == -5 || code == -6;
}

}  // namespace

RadioControl::RadioControl(DaemonSession& session, Use use, double deadBandHz, Tell tell, RadioVfos vfos)
    : m_session(session),
      m_use(use),
      m_deadBandHz(deadBandHz),
      m_tell(std::move(tell)),
      m_vfos(std::move(vfos)) {
    m_session.onUp = [this] { askForVfos(); };
    m_session.onDown = [this] {
        m_isAsked = false;
        forget();
    };
}

/// A daemon may have been started so that every command names the side of the radio that it is for.
void RadioControl::askForVfos() {
    m_isAsked = false;
    m_refusals.clear();
    forget();
    m_session.post(vfoSlot, "+\\chk_vfo", [this](const DaemonReply& reply) {
        const std::string answer = reply.value("ChkVFO").value_or("");
        const bool isOld = !reply.lines.empty() && reply.lines.back() == "CHKVFO 1";
        m_namesVfos = answer == "1" || isOld;
        m_isAsked = true;
    });
}

void RadioControl::forget() {
    m_receiver = Receiver::unknown;
    m_split = Split::no;
    m_wantedDownlinkHz = 0.0;
    m_wantedUplinkHz = 0.0;
    m_downlinkHz.reset();
    m_uplinkHz.reset();
}

void RadioControl::release() {
    for (const int slot : {receiverSlot, downlinkSlot, uplinkSlot}) m_session.cancel(slot);
    if (m_split == Split::asked || m_split == Split::on) {
        const std::string command = splitCommand('0', m_vfos.receive);
        m_session.post(splitSlot, command, [this, command](const DaemonReply& reply) {
            tellRefusal(splitSlot, command, reply.code);
        });
    }
    forget();
}

std::string RadioControl::frequencyCommand(char letter, const std::string& vfo, double hertz) const {
    return std::string("+") + letter + " " + (m_namesVfos ? vfo + " " : "") + formatNumber(hertz, "0");
}

std::string RadioControl::splitCommand(char on, const std::string& vfo) const {
    return "+S " + (m_namesVfos ? m_vfos.receive + " " : "") + on + " " + vfo;
}

void RadioControl::tune(double downlinkHz, double uplinkHz) {
    if (!m_isAsked) return;
    m_wantedDownlinkHz = m_use == Use::transmitter ? 0.0 : downlinkHz;
    m_wantedUplinkHz = m_use == Use::receiver ? 0.0 : uplinkHz;
    if (isAnythingToTune()) goOn();
}

bool RadioControl::isAnythingToTune() const {
    return m_wantedDownlinkHz > 0.0 || m_wantedUplinkHz > 0.0;
}

/// Each step waits for the answer to the one before, else a frequency would reach the wrong side.
void RadioControl::goOn() {
    if (m_receiver == Receiver::unknown) selectReceiver();
    if (m_receiver != Receiver::selected) return;
    if (m_wantedDownlinkHz > 0.0) {
        tuneSide(downlinkSlot, m_downlinkHz, m_wantedDownlinkHz,
                 frequencyCommand('F', m_vfos.receive, m_wantedDownlinkHz));
    }
    if (m_wantedUplinkHz <= 0.0) return;
    if (m_use == Use::transmitter) {
        tuneSide(uplinkSlot, m_uplinkHz, m_wantedUplinkHz,
                 frequencyCommand('F', m_vfos.receive, m_wantedUplinkHz));
        return;
    }
    if (m_split == Split::no) split();
    if (m_split == Split::asked) return;
    tuneSide(uplinkSlot, m_uplinkHz, m_wantedUplinkHz,
             frequencyCommand('I', m_vfos.transmit, m_wantedUplinkHz));
}

/// The user may have left the radio on its other side. One that can't select a side has but one.
void RadioControl::selectReceiver() {
    m_receiver = Receiver::asked;
    const std::string command = "+V " + m_vfos.receive;
    m_session.post(receiverSlot, command, [this, command](const DaemonReply& reply) {
        tellRefusal(receiverSlot, command, reply.code);
        if (m_receiver != Receiver::asked) return;
        m_receiver = isPassing(reply.code) ? Receiver::unknown : Receiver::selected;
        if (m_receiver == Receiver::selected && isAnythingToTune()) goOn();
    });
}

/// A radio that knows no such command may know the one for the uplink all the same. Another refusal is tried
/// again with the next line, and the uplink waits: unsplit it could reach the receiver.
void RadioControl::split() {
    m_split = Split::asked;
    const std::string command = splitCommand('1', m_vfos.transmit);
    m_session.post(splitSlot, command, [this, command](const DaemonReply& reply) {
        tellRefusal(splitSlot, command, reply.code);
        if (m_split != Split::asked) return;
        if (reply.code == 0) {
            m_split = Split::on;
        } else {
            m_split = isUnknown(reply.code) ? Split::impossible : Split::no;
        }
        if (m_split != Split::no && m_wantedUplinkHz > 0.0) goOn();
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
