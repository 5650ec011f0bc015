// A rotator behind its daemon: where it is to stand, where it stands, and what it can do.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "station/steering/daemon_session.h"
#include "station/steering/direction.h"

namespace vantrace {

class RotatorControl {
  public:
    /// `deadBandDeg`: a position that is nearer to the last one told, in both angles, isn't told. The session
    /// outlives this and belongs to it.
    RotatorControl(DaemonSession& session, double deadBandDeg, Tell tell);

    /// Has the rotator go to a position, now or as soon as it is ready and asked for again.
    void point(const RotatorPosition& position);
    /// The same for one that is to be reached exactly.
    void pointExactly(const RotatorPosition& position);
    /// Lets it stop where it is.
    void stop();
    /// Sends it to rest: at a place, turned and held into the limits, or without one where the daemon knows
    /// that it rests. Again and again, until that has been done or it is pointed somewhere or stopped.
    void park(const std::optional<RotatorPosition>& place);
    /// Asks now and then where it stands.
    void tick(double now);

    /// Whether it takes positions: its daemon is connected, and has been asked what it can do and where it
    /// stands, whatever it had to say.
    bool isReady() const;

    /// Where it said that it stands, on the turn where it must be; nothing before it has said so.
    const std::optional<RotatorPosition>& present() const { return m_present; }
    /// The limits that the daemon tells, but from 0 on where azimuths below it turned out to be none; nothing
    /// before it has.
    const std::optional<RotatorLimits>& limits() const { return m_limits; }
    /// Whether it has been where its daemon's limits, as told now, lie below 0, so that these are no mere
    /// words.
    bool goesBelowZero() const { return m_goesBelowZero; }
    /// Called when the limits have been told, and whenever they are others.
    std::function<void()> onLimits;
    /// What the place of rest is held to, and what says whether azimuths are doubtful; else the limits that
    /// the daemon tells.
    std::function<RotatorLimits()> limitsInForce;

  private:
    enum class Park { none, wanted, asked };

    void go(const RotatorPosition& position, double leastDeg);
    void sendPark();
    void ask();
    void askForPosition();
    void takeLimits(const DaemonReply& reply);
    void takePosition(const DaemonReply& reply);
    double unwrapped(double shownDeg);
    void watchAzimuthsBelowZero();
    void tellRefusal(const std::string& command, int code);

    DaemonSession& m_session;
    double m_deadBandDeg;
    Tell m_tell;
    std::optional<RotatorPosition> m_told;
    std::optional<RotatorPosition> m_present;
    std::optional<RotatorLimits> m_limits;
    /// The same as the daemon has told them.
    std::optional<RotatorLimits> m_limitsOfDaemon;
    bool m_goesBelowZero = false;
    /// How many times in a row it stood a whole turn above where it had been told to go.
    int m_timesTurnAbove = 0;
    bool m_areLimitsAsked = false;
    bool m_isPositionAsked = false;
    Park m_park = Park::none;
    std::optional<RotatorPosition> m_restingPlace;
    int m_refusal = 0;
    double m_now = 0.0;
    /// Where it stood last, also if its daemon has gone since, and when that was told.
    std::optional<double> m_lastAzimuthDeg;
    double m_shownSince = 0.0;
    bool m_showsOneCircle = false;
    double m_nextQuestion = 0.0;
};

/// "+P 123.40 45.00": as the daemon wants it, whatever the machine's decimal mark.
std::string positionCommand(const RotatorPosition& position);

/// "123.4, 45.0": for the user.
std::string shownPosition(const RotatorPosition& position);

}  // namespace vantrace
