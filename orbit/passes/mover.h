#pragma once

#include <string_view>

#include "orbit/instant.h"
#include "orbit/satellite.h"
#include "orbit/sky/sky_body.h"
#include "orbit/state_vector.h"

namespace vantrace {

/// How far a search may step from a state on.
struct Stride {
    double seconds;   ///< within which the height above the horizon has at most one turning point
    bool smooth;      ///< a cubic follows the height closely over them
    double apogeeKm;  ///< greatest distance from the earth's centre, of a flat path; 0 where none is known
};

/// What can rise and set: its path in an equatorial frame, by seconds from a starting moment.
class Mover {
  public:
    virtual ~Mover() = default;

    /// The state, km and km/s; false where there is none, with the reason in failureReason(), which then
    /// stays.
    virtual bool stateAt(double seconds, StateVector& state) = 0;
    virtual Stride strideFrom(const StateVector& state) const = 0;
    /// Greenwich sidereal time of the frame at the start, rad.
    virtual double siderealTimeAtStart() const = 0;
    virtual std::string_view failureReason() const = 0;
};

class SatelliteMover final : public Mover {
  public:
    SatelliteMover(Satellite& satellite, const Instant& start);
    bool stateAt(double seconds, StateVector& state) override;
    Stride strideFrom(const StateVector& state) const override;
    double siderealTimeAtStart() const override { return m_siderealTime; }
    std::string_view failureReason() const override { return reasonText(m_failure); }

  private:
    Propagator& m_propagator;
    double m_startMinutes;
    double m_siderealTime;
    PropagationStatus m_failure = PropagationStatus::ok;
};

class SkyBodyMover final : public Mover {
  public:
    SkyBodyMover(SkyBody body, const Instant& start);
    bool stateAt(double seconds, StateVector& state) override;
    Stride strideFrom(const StateVector& state) const override;
    double siderealTimeAtStart() const override { return m_siderealTime; }
    std::string_view failureReason() const override { return {}; }

  private:
    SkyBody m_body;
    Instant m_start;
    double m_siderealTime;
};

}  // namespace vantrace
