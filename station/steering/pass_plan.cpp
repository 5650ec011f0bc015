#include "station/steering/pass_plan.h"

#include <cstdint>
#include <limits>

namespace vantrace {

namespace {

/// The costs of a way, each kind beyond all that the next ones can add up to.
constexpr double unreachableCost = 1e9;
constexpr double turnCost = 1e4;
constexpr double doubtCost = 100.0;
constexpr double flipCost = 2.0;
constexpr double costOfStartPerDeg = 1e-3;

/// One way to take directions: so many whole turns off, over the top or not.
struct Pose {
    int turns = 0;
    bool isFlipped = false;
};

/// The azimuth runs on through north.
RotatorPosition positionIn(const Pose& pose, double unwrappedDeg, double elevationDeg) {
    const double azimuth = unwrappedDeg + wholeTurnDeg * pose.turns;
    if (pose.isFlipped) return {azimuth + halfTurnDeg, halfTurnDeg - elevationDeg};
    return {azimuth, elevationDeg};
}

bool isReachable(const RotatorPosition& position, bool isFlipped, const RotatorLimits& limits) {
    // An antenna that looks too low or too high by itself doesn't get better by another way.
    const bool isHighEnough = !isFlipped || position.elevationDeg <= limits.elevationMostDeg + limitSlackDeg;
    return isHighEnough && position.azimuthDeg >= limits.azimuthLeastDeg - limitSlackDeg &&
           position.azimuthDeg <= limits.azimuthMostDeg + limitSlackDeg;
}

std::vector<double> unwrapped(std::span<const PathPoint> path) {
    std::vector<double> azimuths;
    azimuths.reserve(path.size());
    double last = path.front().direction.azimuthDeg;
    for (const PathPoint& point : path) {
        last = nearestTurn(point.direction.azimuthDeg, last);
        azimuths.push_back(last);
    }
    return azimuths;
}

std::vector<Pose> posesFor(const std::vector<double>& azimuths, const RotatorLimits& limits) {
    const auto [least, most] = std::ranges::minmax(azimuths);
    const int fewest = static_cast<int>(std::floor((limits.azimuthLeastDeg - most) / wholeTurnDeg)) - 1;
    const int mostTurns = static_cast<int>(std::ceil((limits.azimuthMostDeg - least) / wholeTurnDeg)) + 1;
    std::vector<Pose> poses;
    for (int turns = fewest; turns <= mostTurns; ++turns) {
        poses.push_back({turns, false});
        if (limits.elevationMostDeg > halfTurnDeg / 2.0) poses.push_back({turns, true});
    }
    return poses;
}

/// The cheapest way through the path, point by point: for each pose what the best way to it costs, and the
/// pose that it comes from.
class WaySearch {
  public:
    WaySearch(std::span<const PathPoint> path, const RotatorLimits& limits,
              const std::optional<RotatorPosition>& present, bool isUnderWay)
        : m_path(path),
          m_limits(limits),
          m_azimuths(unwrapped(path)),
          m_poses(posesFor(m_azimuths, limits)),
          m_costs(m_poses.size()),
          m_from(path.size() * m_poses.size()) {
        const bool isFlipped = isUnderWay && present && present->elevationDeg > halfTurnDeg / 2.0;
        for (std::size_t pose = 0; pose < m_poses.size(); ++pose) {
            m_costs[pose] =
                costOfStart(pose, present) + (m_poses[pose].isFlipped != isFlipped ? flipCost : 0.0);
        }
        for (std::size_t point = 1; point < path.size(); ++point) step(point);
    }

    PassPlan plan() const {
        PassPlan plan;
        plan.points.resize(m_path.size());
        std::size_t pose = cheapest();
        for (std::size_t point = m_path.size(); point-- > 0;) {
            const RotatorPosition position = positionOf(point, pose);
            plan.points[point] = {m_path[point].seconds, within(m_limits, position), m_poses[pose].isFlipped};
            if (!isReachable(position, m_poses[pose].isFlipped, m_limits) && point > 0) {
                plan.unreachableSeconds += m_path[point].seconds - m_path[point - 1].seconds;
            }
            const std::size_t before = point > 0 ? m_from[point * m_poses.size() + pose] : pose;
            if (before != pose) {
                plan.turns.push_back({m_path[point].seconds, within(m_limits, positionOf(point, before)),
                                      plan.points[point].position});
            }
            pose = before;
        }
        std::ranges::reverse(plan.turns);
        return plan;
    }

  private:
    RotatorPosition positionOf(std::size_t point, std::size_t pose) const {
        return positionIn(m_poses[pose], m_azimuths[point], m_path[point].direction.elevationDeg);
    }

    double costOfPoint(std::size_t point, std::size_t pose) const {
        const RotatorPosition position = positionOf(point, pose);
        if (isReachable(position, m_poses[pose].isFlipped, m_limits)) return 0.0;
        const RotatorPosition nearest = within(m_limits, position);
        return unreachableCost + std::abs(position.azimuthDeg - nearest.azimuthDeg);
    }

    bool isDoubtful(std::size_t point, std::size_t pose) const {
        return m_limits.isBelowZeroDoubtful && positionOf(point, pose).azimuthDeg < -limitSlackDeg;
    }

    /// Once for each time that a way comes among the doubtful azimuths.
    double costOfDoubt(std::size_t point, std::size_t pose, std::size_t from) const {
        const bool wasIn = point > 0 && isDoubtful(point - 1, from);
        return isDoubtful(point, pose) && !wasIn ? doubtCost : 0.0;
    }

    double costOfStart(std::size_t pose, const std::optional<RotatorPosition>& present) const {
        const double middle = (m_limits.azimuthLeastDeg + m_limits.azimuthMostDeg) / 2.0;
        const double from = present ? present->azimuthDeg : middle;
        return costOfPoint(0, pose) + costOfDoubt(0, pose, pose) +
               costOfStartPerDeg * std::abs(positionOf(0, pose).azimuthDeg - from);
    }

    /// A turn takes half a minute or more, in which nothing is heard: best where there is least to hear.
    void step(std::size_t point) {
        const std::size_t best = cheapest();
        const double elevation = std::max(0.0, m_path[point].direction.elevationDeg);
        const double changed = m_costs[best] + turnCost + elevation;
        for (std::size_t pose = 0; pose < m_poses.size(); ++pose) {
            std::size_t from = pose;
            const double flipped = m_poses[pose].isFlipped && !m_poses[best].isFlipped ? flipCost : 0.0;
            if (changed + flipped < m_costs[pose]) {
                from = best;
                m_costs[pose] = changed + flipped;
            }
            m_costs[pose] += costOfPoint(point, pose) + costOfDoubt(point, pose, from);
            m_from[point * m_poses.size() + pose] = static_cast<std::uint8_t>(from);
        }
    }

    std::size_t cheapest() const {
        return static_cast<std::size_t>(std::ranges::min_element(m_costs) - m_costs.begin());
    }

    std::span<const PathPoint> m_path;
    const RotatorLimits& m_limits;
    std::vector<double> m_azimuths;
    std::vector<Pose> m_poses;
    std::vector<double> m_costs;
    std::vector<std::uint8_t> m_from;
};

/// Whether the rotator goes on from one point to the other, without a turn between.
bool isSameWay(const PlannedPoint& before, const PlannedPoint& after) {
    return before.isFlipped == after.isFlipped &&
           std::abs(after.position.azimuthDeg - before.position.azimuthDeg) <= halfTurnDeg;
}

}  // namespace

RotatorPosition PassPlan::positionAt(double seconds, const Direction& direction,
                                     const RotatorLimits& limits) const {
    const auto behind = std::ranges::upper_bound(points, seconds, {}, &PlannedPoint::seconds);
    const PlannedPoint& planned = behind == points.begin() ? points.front() : *(behind - 1);
    const double turned = planned.isFlipped ? direction.azimuthDeg + halfTurnDeg : direction.azimuthDeg;
    const double elevation =
        planned.isFlipped ? halfTurnDeg - direction.elevationDeg : direction.elevationDeg;
    double turn = planned.position.azimuthDeg;
    // Near the zenith a second is almost half a turn: a point is right only for what lies close to it.
    if (behind != points.begin() && behind != points.end() && isSameWay(planned, *behind)) {
        const double next = behind->position.azimuthDeg;
        const auto distance = [&](double from) {
            return std::abs(std::remainder(turned - from, wholeTurnDeg));
        };
        if (distance(next) < distance(turn)) turn = next;
    }
    return within(limits, {nearestTurn(turned, turn), elevation});
}

PassPlan planPass(std::span<const PathPoint> path, const RotatorLimits& limits,
                  const std::optional<RotatorPosition>& present, bool isUnderWay) {
    if (path.empty()) return {};
    return WaySearch(path, limits, present, isUnderWay).plan();
}

}  // namespace vantrace
