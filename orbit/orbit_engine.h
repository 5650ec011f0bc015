// The door of the orbit mathematics: everything the program asks about positions and passes it asks here, by
// satellite name and time. Behind the door the engine works in radians, kilometres and seconds.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "orbit/earth/look_angles.h"
#include "orbit/instant.h"
#include "orbit/passes/pass_search.h"
#include "orbit/satellite.h"
#include "orbit/sky/sky_body.h"
#include "orbit/state_vector.h"
#include "orbit/track_result.h"
#include "platform/clock.h"

namespace vantrace {

class ElementCatalogue;

/// Answers by satellite name, or "sun" and "moon". A name is looked up trimmed and exact, then as a name that
/// was cut to 15 characters. Every failure is an EngineError that names the object, the time and the reason.
class OrbitEngine {
  public:
    /// The clock, where there is one, tells the offset of local time that EnginePassList cuts days by.
    explicit OrbitEngine(const Clock* clock = nullptr);
    ~OrbitEngine();
    OrbitEngine(const OrbitEngine&) = delete;
    OrbitEngine& operator=(const OrbitEngine&) = delete;

    /// Reads every element file of the folder; files that have not changed since the last call are not read
    /// again. Throws EngineError when the folder can't be listed. A bad set never fails the call.
    void EngineSetKepPath(const std::string& folder);
    /// Number of different catalogue numbers over all element files of the folder.
    std::int32_t EngineSatelliteCount() const;
    /// Every satellite name, each ended by a line feed.
    const std::string& EngineSatelliteList() const;

    /// Observer: degrees, north positive; degrees, east positive, held as given; metres.
    void EngineSetLatitude(double latitudeDeg);
    double EngineGetLongitude() const;
    void EngineSetLongitude(double longitudeDeg);
    void EngineSetHeight(double heightM);

    /// The passes of `spanDays` days from `startUtc` (UTC day number), comma-separated; each record is rise
    /// (UTC, YYYYMMDDhhmmss), rise and set azimuth (whole degrees), greatest elevation (whole degrees,
    /// rounded down) and length (whole seconds), separated by single blanks. `mode` has the one meaning 1;
    /// the last two arguments are reserved. Empty when there is no pass.
    std::string EnginePassList(std::string_view name, double startUtc, int mode, int spanDays, int reserved1,
                               int reserved2);

    /// Position at an engine time (Julian date, UTC).
    TrackResult EngineTrack(std::string_view name, double engineTime, int reserved1, int reserved2);
    /// The same at a time that keeps its microseconds.
    TrackResult track(std::string_view name, const Instant& time);

    /// Engine time (Julian date, UTC) of a UTC day number.
    double EngineJulianDate(double dateTimeUtc) const;

    /// Of the last EngineTrack: orbit number; orbit count with its fraction, counted from ascending node to
    /// ascending node; TEME state in km and km/s. 0 and 0 for the sun and the moon.
    std::int32_t EngineOrbitNumber() const;
    double EngineOrbitPhase() const;
    StateVector EngineStateVector() const;

    /// UTC day number of the next rise or set after a time; 9999-01-01 23:59:59 when none comes in 30 days,
    /// and after that very time.
    static double noEventDayNumber();
    double EngineNextAOS(std::string_view name, double timeUtc);
    double EngineNextLOS(std::string_view name, double timeUtc);

    /// The same searches without the loss of the text and day-number forms. A failure within the span is told
    /// in the result; one at its start throws.
    PassSearchResult passes(std::string_view name, const Instant& from, double days);
    EventSearchResult nextRise(std::string_view name, const Instant& from);
    EventSearchResult nextSet(std::string_view name, const Instant& from);
    /// TEME state of a satellite at minutes from its epoch.
    StateVector stateAt(std::string_view name, double minutesFromEpoch);

    const ElementCatalogue& catalogue() const { return *m_catalogue; }
    const GeodeticPoint& observer() const { return m_observer.place(); }

  private:
    struct LastTrack {
        Satellite* satellite = nullptr;  ///< null for the sun and the moon
        Propagated propagated;
        double orbitCount = 0.0;  ///< once worked out
        bool counted = true;
    };
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>{}(name); }
    };

    /// `time` is told in the failure, where there is one.
    Satellite& satelliteOf(std::string_view name, const Instant* time);
    Satellite& remember(const std::pair<const std::string, Satellite*>& asked);
    std::unique_ptr<Mover> moverOf(std::string_view name, const Instant& from);
    TrackResult trackSatellite(std::string_view name, const Instant& time);
    TrackResult trackBody(SkyBody body, const Instant& time);
    const BodyState& bodyStateAt(SkyBody body, const Instant& time);
    void setObserver(double latitudeDeg, double longitudeDeg, double heightM);
    double localOffsetMinutes() const;

    const Clock* m_clock;
    std::unique_ptr<ElementCatalogue> m_catalogue;
    /// Satellites that have been asked for, by their own names and by the names they were asked by.
    std::unordered_map<std::string_view, std::unique_ptr<Satellite>> m_satellites;
    std::unordered_map<std::string, Satellite*, NameHash, std::equal_to<>> m_asked;
    /// The same satellite is mostly asked for again.
    const std::string* m_lastAsked = nullptr;
    Satellite* m_lastSatellite = nullptr;
    Observer m_observer;
    double m_latitudeDeg = 0.0;
    double m_longitudeDeg = 0.0;
    double m_heightM = 0.0;
    mutable LastTrack m_last;
    struct BodyMemory {
        Instant time{-1.0, 0.0};
        BodyState state;
    };
    BodyMemory m_bodies[2];
};

/// Which sky body a name stands for, if any.
std::optional<SkyBody> skyBodyOf(std::string_view name);

}  // namespace vantrace
