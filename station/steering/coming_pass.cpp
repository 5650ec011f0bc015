#include "station/steering/coming_pass.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/texts.h"
#include "orbit/elements/element_catalogue.h"
#include "orbit/engine_error.h"
#include "orbit/orbit_engine.h"

namespace vantrace {

namespace {

constexpr double degreesPerRadian = 180.0 / std::numbers::pi;
/// A minute of the path has to have many points, a night not too many.
constexpr double mostPoints = 7200.0;

std::string underscored(std::string_view name) {
    return replacedAll(name, " ", "_");
}

/// Whether the line names a satellite by its cut name, with or without the blank that the cut left at its
/// end.
bool isCutName(std::string_view lineName, std::string_view name) {
    if (name.size() <= cutNameLength) return false;
    const std::string_view cut = name.substr(0, cutNameLength);
    return lineName == underscored(cut) || lineName == underscored(trimmed(cut));
}

/// The name by which the engine knows what a line names; nothing where it knows none.
std::optional<std::string> engineName(const OrbitEngine& engine, std::string_view lineName) {
    if (lineName == "moon") return "moon";
    std::optional<std::string> cut;
    std::string_view names = engine.EngineSatelliteList();
    while (!names.empty()) {
        const std::size_t end = std::min(names.find('\n'), names.size());
        const std::string_view name = trimmed(names.substr(0, end));
        if (underscored(name) == lineName) return std::string(name);
        if (!cut && isCutName(lineName, name)) cut = name;
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return cut;
}

Direction directionOf(OrbitEngine& engine, const std::string& name, const Instant& time) {
    const TrackResult track = engine.track(name, time);
    return {track.azimuthRad * degreesPerRadian, track.elevationRad * degreesPerRadian};
}

/// The pass that isn't over yet, with those under way first.
std::optional<Pass> nextPassOf(OrbitEngine& engine, const std::string& name, const Instant& from) {
    constexpr double spanDays = 0.5;
    const auto isAhead = [&](const Pass& pass) { return secondsBetween(from, pass.set.time) > 0.0; };
    const std::vector<Pass> soon = engine.passes(name, from, spanDays).passes;
    if (const auto first = std::ranges::find_if(soon, isAhead); first != soon.end()) return *first;
    const std::optional<Instant> rise = engine.nextRise(name, from).time;
    if (!rise) return std::nullopt;
    const std::vector<Pass> later = engine.passes(name, plusSeconds(*rise, 1.0), spanDays).passes;
    if (later.empty()) return std::nullopt;
    return later.front();
}

ComingPass withPath(OrbitEngine& engine, const std::string& name, const Pass& pass, const Instant& from) {
    ComingPass coming;
    coming.name = name;
    coming.start = secondsBetween(from, pass.rise.time) > 0.0 ? pass.rise.time : from;
    const double whole = secondsBetween(coming.start, pass.set.time);
    const double length = std::min(whole, longestPathSeconds);
    coming.setsAtEnd = pass.setKnown && length == whole;
    coming.end = plusSeconds(coming.start, length);
    const double stride = std::max(1.0, length / mostPoints);
    for (double seconds = 0.0; seconds < length; seconds += stride) {
        coming.path.push_back({seconds, directionOf(engine, name, plusSeconds(coming.start, seconds))});
    }
    coming.path.push_back({length, directionOf(engine, name, coming.end)});
    return coming;
}

}  // namespace

Direction ComingPass::directionAt(double seconds) const {
    const auto behind = std::ranges::upper_bound(path, seconds, {}, &PathPoint::seconds);
    if (behind == path.begin()) return path.front().direction;
    if (behind == path.end()) return path.back().direction;
    const PathPoint& before = *(behind - 1);
    const double share = (seconds - before.seconds) / (behind->seconds - before.seconds);
    const double turned = std::remainder(behind->direction.azimuthDeg - before.direction.azimuthDeg, 360.0);
    return {before.direction.azimuthDeg + share * turned,
            before.direction.elevationDeg +
                share * (behind->direction.elevationDeg - before.direction.elevationDeg)};
}

std::optional<ComingPass> comingPass(OrbitEngine& engine, std::string_view lineName, const Instant& from,
                                     std::string& reason) {
    const std::optional<std::string> name = engineName(engine, lineName);
    if (!name) {
        reason = "no element set has that name";
        return std::nullopt;
    }
    try {
        const std::optional<Pass> pass = nextPassOf(engine, *name, from);
        if (pass) return withPath(engine, *name, *pass, from);
        reason = "it doesn't rise within 30 days";
    } catch (const EngineError& failure) {
        reason = failure.what();
    }
    return std::nullopt;
}

}  // namespace vantrace
