// Daemons of the test's own process: they answer as the real ones do, when the test lets them.
#pragma once

#include "station/steering/daemon_session.h"
#include "tests/support/testing.h"

namespace vantrace {

/// A wire that notes what is sent over it.
class FakeTransport final : public DaemonTransport {
  public:
    void connect() override { ++connects; }
    void send(std::string_view bytes) override { sent.emplace_back(bytes); }
    void drop() override { ++drops; }

    int connects = 0;
    int drops = 0;
    Texts sent;
};

/// A session with a daemon at its other end.
class FakeDaemon {
  public:
    explicit FakeDaemon(std::string name, Texts& told)
        : session(std::move(name), transport, [&told](std::string_view text) { told.emplace_back(text); }) {}
    virtual ~FakeDaemon() = default;

    void come(double now) {
        session.tick(now);
        session.connected(now);
    }
    /// Answers everything that has been asked, and what is asked upon that.
    void serve(double now) {
        for (; m_served < transport.sent.size(); ++m_served) {
            std::string command = transport.sent[m_served];
            command.pop_back();
            commands.push_back(command);
            session.received(answer(command), now);
        }
    }
    /// Comes, and answers what it is asked at the beginning.
    void arrive(double now) {
        come(now);
        serve(now);
    }
    /// The commands of one kind: "+P".
    Texts of(std::string_view kind) const {
        Texts found;
        for (const std::string& command : commands) {
            if (command.starts_with(std::string(kind) + " ") || command == kind) found.push_back(command);
        }
        return found;
    }

    FakeTransport transport;
    DaemonSession session;
    Texts commands;
    /// What is answered to a command, or to all of a kind, in place of the usual.
    std::map<std::string, std::string, std::less<>> answers;

  protected:
    virtual std::string usual(const std::string&) { return "done:\nRPRT 0\n"; }

  private:
    std::string answer(const std::string& command) {
        if (const auto own = answers.find(command); own != answers.end()) return own->second;
        const auto kind = answers.find(command.substr(0, command.find(' ')));
        return kind != answers.end() ? kind->second : usual(command);
    }

    std::size_t m_served = 0;
};

/// A rotator that is at once where it is sent, if it isn't told to take its time.
class FakeRotatorDaemon final : public FakeDaemon {
  public:
    using FakeDaemon::FakeDaemon;
    std::string limits = "0 360 0 90";
    /// An azimuth below 0 is gone to a whole turn higher.
    bool foldsBelowZero = false;
    /// An azimuth below 0 is gone to, but told as a whole turn higher.
    bool showsWholeCircleOnly = false;
    /// How far it turns from one question to the next.
    double turnsDeg = 1e9;

  protected:
    std::string usual(const std::string& command) override {
        if (command.starts_with("+P ")) {
            m_sentTo = std::stod(command.substr(3));
            if (foldsBelowZero && m_sentTo < 0.0) m_sentTo += 360.0;
            m_elevation = command.substr(command.rfind(' ') + 1);
        }
        if (command == "+p") {
            m_azimuth += std::clamp(m_sentTo - m_azimuth, -turnsDeg, turnsDeg);
            const double shown = showsWholeCircleOnly && m_azimuth < 0.0 ? m_azimuth + 360.0 : m_azimuth;
            return "get_pos:\nAzimuth: " + std::to_string(shown) + "\nElevation: " + m_elevation +
                   "\nRPRT 0\n";
        }
        if (command == "+\\dump_state") {
            std::istringstream words(limits);
            std::string text = "dump_state:\nrotctld Protocol Ver: 1\nRotor Model: 1\n";
            for (const char* const limit :
                 {"Minimum Azimuth", "Maximum Azimuth", "Minimum Elevation", "Maximum Elevation"}) {
                std::string value;
                words >> value;
                text += std::string(limit) + ": " + value + "\n";
            }
            return text + "South Zero: 0\nrot_type=AzEl\ndone\nRPRT 0\n";
        }
        return FakeDaemon::usual(command);
    }

  private:
    double m_sentTo = 0.0;
    double m_azimuth = 0.0;
    std::string m_elevation = "0.00";
};

class FakeRadioDaemon final : public FakeDaemon {
  public:
    using FakeDaemon::FakeDaemon;

  protected:
    std::string usual(const std::string& command) override {
        return command == "+\\chk_vfo" ? "ChkVFO: 0\n" : FakeDaemon::usual(command);
    }
};

}  // namespace vantrace
