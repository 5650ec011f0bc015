// The conversation with a rotator's or radio's daemon: one command at a time, the newest one wins.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "station/steering/line_assembler.h"

namespace vantrace {

/// The wire below a session; a test has its own.
class DaemonTransport {
  public:
    virtual ~DaemonTransport() = default;
    /// Begins to connect. The outcome is told to the session later, never inside the call.
    virtual void connect() = 0;
    virtual void send(std::string_view bytes) = 0;
    /// Ends the connection without a word to the session.
    virtual void drop() = 0;
};

/// What a daemon answered: the lines of its extended form, and the code, 0 for done.
struct DaemonReply {
    int code = 0;
    std::vector<std::string> lines;

    /// What stands behind "<key>: " in the first line that has it.
    std::optional<std::string> value(std::string_view key) const;
};

/// Where something is told to the user.
using Tell = std::function<void(std::string_view)>;

/// Times are seconds of a clock that only runs forward.
class DaemonSession {
  public:
    using Handler = std::function<void(const DaemonReply&)>;

    /// `name` is what the daemon is called in what is told. The transport outlives this.
    DaemonSession(std::string name, DaemonTransport& transport, Tell tell);

    /// Puts a command in its slot, in place of one that waits there. Commands in different slots take turns.
    /// Whoever isn't connected forgets it.
    void post(int slot, std::string command, Handler handler);
    void cancel(int slot) { m_waiting.erase(slot); }
    /// Whether nothing waits to be sent or answered.
    bool isIdle() const { return m_waiting.empty() && m_state != State::asking; }
    bool isConnected() const { return m_state == State::ready || m_state == State::asking; }

    /// Called after each connection, before anything else is sent; and when it is gone.
    std::function<void()> onUp;
    std::function<void()> onDown;

    /// What the transport tells.
    void connected(double now);
    void disconnected(std::string_view reason, double now);
    void received(std::string_view bytes, double now);
    /// Several times a second: connects, again and again with pauses of 1 to 30 seconds, and gives up what
    /// isn't answered for `answerSeconds`.
    void tick(double now);

    static constexpr double answerSeconds = 5.0;
    static constexpr double longestPauseSeconds = 30.0;

  private:
    enum class State { off, connecting, ready, asking };
    struct Command {
        std::string text;
        Handler handler;
    };

    void sendNext(double now);
    void takeLine(const std::string& line, double now);
    void fail(std::string_view reason, double now);

    std::string m_name;
    DaemonTransport& m_transport;
    Tell m_tell;
    State m_state = State::off;
    double m_now = 0.0;
    /// When the state began, or ends where it is off.
    double m_since = 0.0;
    double m_pauseSeconds = 0.0;
    bool m_isOutageTold = false;
    bool m_isTold = false;
    std::map<int, Command> m_waiting;
    int m_lastSlot = -1;
    Command m_asked;
    DaemonReply m_reply;
    LineAssembler m_lines;
};

/// In words, where it is one of the common ones.
std::string daemonCodeText(int code);

}  // namespace vantrace
