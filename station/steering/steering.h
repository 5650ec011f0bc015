// The station: from the tracker's line to rotator and radio.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "station/steering/coming_pass.h"
#include "station/steering/lone_follower.h"
#include "station/steering/radio_control.h"
#include "station/steering/rotator_control.h"
#include "station/steering/tracking_line.h"

namespace vantrace {

struct SteeringOptions {
    /// Stands for what the daemon tells, where the user named one.
    std::optional<std::pair<double, double>> azimuthLimitsDeg;
    std::optional<std::pair<double, double>> elevationLimitsDeg;
    /// So long before rise the rotator goes where the pass begins, and the radio is tuned.
    double leadSeconds = 180.0;
    /// What the rotator does at loss of signal.
    enum class AtLoss { stay, goToPark, parkByDaemon } atLoss = AtLoss::stay;
    RotatorPosition park;
    bool tunesBelowHorizon = false;
    /// An older line isn't acted upon.
    double staleSeconds = 5.0;
};

class Steering {
  public:
    /// What is steered; null where there is none. All outlive this.
    struct Devices {
        RotatorControl* rotator = nullptr;
        std::vector<RadioControl*> radios;
    };

    Steering(SteeringOptions options, Devices devices, PassSource& passes, Tell tell);

    /// A line has come, at a moment of UTC and of a clock that only runs forward. An empty one means that the
    /// tracker's link was switched off.
    void lineCame(std::string_view text, const Instant& utc, double now);
    /// Several times a second: notices that no line comes.
    void tick(double now);
    /// The end: the rotator stops where it is.
    void stop();

    /// What the rotator can do, as far as it is known.
    RotatorLimits limits() const;

  private:
    enum class Link { off, on, stale };
    static constexpr double secondsEver = 1e9;

    void takeLine(const TrackingLine& line, const Instant& utc, double now);
    void lookForPass(const TrackingLine& line, const Instant& utc, double now);
    void takeName(const std::string& name, double now);
    void plan(const Instant& utc);
    void keepPlanCurrent(const Instant& utc);
    bool agrees(const TrackingLine& line, const Instant& utc) const;
    bool isOffThePath(const TrackingLine& line, const Instant& utc);
    void leavePath(double now);
    void goOnAlone();
    void followPass(const TrackingLine& line, const Instant& utc);
    void followLine(const TrackingLine& line);
    void endPass();
    void point(const RotatorPosition& position, bool isExact);
    void signalIsLost(std::string_view reason);
    void tune(const TrackingLine& line, bool isWanted);
    void halt();
    void tellFault(std::string_view text, const std::string& fault, double now);
    void tellPlan() const;
    void tellAlone(std::string_view reason);

    SteeringOptions m_options;
    Devices m_devices;
    PassSource& m_passes;
    Tell m_tell;

    Link m_link = Link::off;
    double m_lastLineAt = 0.0;
    double m_nextFaultAt = 0.0;
    std::string m_name;
    std::optional<ComingPass> m_pass;
    PassPlan m_plan;
    RotatorLimits m_plannedLimits;
    /// Whether the rotator has said where it stands, when that was last asked for.
    bool m_isPlaceKnown = false;
    /// How many lines in a row don't fit the path.
    int m_disagreements = 0;
    double m_nextLookAt = 0.0;
    double m_lastNameAt = -secondsEver;
    bool m_isWaitingTold = false;
    bool m_isAloneTold = false;
    /// Whether the antenna has followed since the last loss of signal.
    bool m_wasUp = false;
    LoneFollower m_lone;
    bool m_isReachTold = false;
    /// Whether the antenna is under way or follows: it has been sent somewhere, and neither been stopped nor
    /// let go since.
    bool m_isMoving = false;
    /// Where it has been sent, for as long as that lasts.
    std::optional<RotatorPosition> m_pointed;
};

}  // namespace vantrace
