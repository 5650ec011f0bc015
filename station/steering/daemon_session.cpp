#include "station/steering/daemon_session.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace vantrace {

namespace {

constexpr std::size_t longestReplyLine = 1000;
/// The longest answer that is asked for has a dozen.
constexpr std::size_t mostReplyLines = 200;

std::optional<int> codeOf(std::string_view line) {
    constexpr std::string_view mark = "RPRT ";
    if (!line.starts_with(mark)) return std::nullopt;
    line.remove_prefix(mark.size());
    int code = 0;
    const std::from_chars_result read = std::from_chars(line.data(), line.data() + line.size(), code);
    if (read.ec != std::errc() || read.ptr != line.data() + line.size()) return std::nullopt;
    return code;
}

/// One answer has no code behind it.
bool endsWithoutCode(std::string_view line) {
    return line.starts_with("ChkVFO:") || line.starts_with("CHKVFO ");
}

}  // namespace

std::optional<std::string> DaemonReply::value(std::string_view key) const {
    const std::string start = std::string(key) + ": ";
    for (const std::string& line : lines) {
        if (line.starts_with(start)) return line.substr(start.size());
    }
    return std::nullopt;
}

DaemonSession::DaemonSession(std::string name, DaemonTransport& transport, Tell tell)
    : m_name(std::move(name)), m_transport(transport), m_tell(std::move(tell)), m_lines(longestReplyLine) {}

void DaemonSession::post(int slot, std::string command, Handler handler) {
    if (!isConnected()) return;
    m_waiting.insert_or_assign(slot, Command{std::move(command), std::move(handler)});
    if (m_state == State::ready) sendNext(m_now);
}

void DaemonSession::connected(double now) {
    if (m_state != State::connecting) return;
    m_now = now;
    m_state = State::ready;
    m_lines.clear();
    if (onUp) onUp();
}

void DaemonSession::disconnected(std::string_view reason, double now) {
    if (m_state != State::off) fail(reason, now);
}

void DaemonSession::received(std::string_view bytes, double now) {
    m_now = now;
    for (const std::string& line : m_lines.take(bytes)) {
        takeLine(line, now);
        if (!isConnected()) return;
    }
}

void DaemonSession::tick(double now) {
    m_now = now;
    if (m_state == State::off && now >= m_since) {
        m_state = State::connecting;
        m_since = now;
        m_transport.connect();
    } else if ((m_state == State::connecting || m_state == State::asking) && now - m_since > answerSeconds) {
        m_transport.drop();
        fail("it doesn't answer", now);
    }
}

/// The slot behind the last one, so that none waits for ever.
void DaemonSession::sendNext(double now) {
    if (m_state != State::ready || m_waiting.empty()) return;
    auto next = m_waiting.upper_bound(m_lastSlot);
    if (next == m_waiting.end()) next = m_waiting.begin();
    m_lastSlot = next->first;
    m_asked = std::move(next->second);
    m_waiting.erase(next);
    m_reply = {};
    m_state = State::asking;
    m_since = now;
    m_transport.send(m_asked.text + "\n");
}

void DaemonSession::takeLine(const std::string& line, double now) {
    if (m_state != State::asking) {
        // What nobody asked for would be taken for the next answer's.
        m_transport.drop();
        fail("it speaks without being asked", now);
        return;
    }
    const std::optional<int> code = codeOf(line);
    if (!code) m_reply.lines.push_back(line);
    if (line.size() > longestReplyLine || m_reply.lines.size() > mostReplyLines) {
        m_transport.drop();
        fail("its answer is none", now);
        return;
    }
    if (!code && !endsWithoutCode(line)) return;
    m_reply.code = code.value_or(0);
    m_state = State::ready;
    m_pauseSeconds = 0.0;
    if (!std::exchange(m_isTold, true) || m_isOutageTold) m_tell(m_name + ": connected");
    m_isOutageTold = false;
    const Command asked = std::exchange(m_asked, {});
    const DaemonReply reply = std::exchange(m_reply, {});
    if (asked.handler) asked.handler(reply);
    sendNext(now);
}

void DaemonSession::fail(std::string_view reason, double now) {
    const bool wasConnected = isConnected();
    m_now = now;
    m_state = State::off;
    m_pauseSeconds = std::clamp(m_pauseSeconds * 2.0, 1.0, longestPauseSeconds);
    m_since = now + m_pauseSeconds;
    m_waiting.clear();
    m_lines.clear();
    if (!std::exchange(m_isOutageTold, true)) {
        m_tell(m_name + ": " + std::string(reason) + "; it is tried again");
    }
    if (wasConnected && onDown) onDown();
}

std::string daemonCodeText(int code) {
    // The codes of the network protocol, 0 to -11.
    constexpr std::array<std::string_view, 12> words{"done",
                                                     "invalid parameter",
                                                     "invalid configuration",
                                                     "out of memory",
                                                     "not implemented",
                                                     "communication timed out",
                                                     "input or output failed",
                                                     "internal error",
                                                     "protocol error",
                                                     "command rejected",
                                                     "text was cut",
                                                     "not available"};
    const int number = -code;
    std::string text = "RPRT " + std::to_string(code);
    if (number < 0 || number >= static_cast<int>(words.size())) return text;
    return text + " (" + std::string(words.at(static_cast<std::size_t>(number))) + ")";
}

}  // namespace vantrace
