// Feeds the element reader whatever comes, and every set that it accepts to the orbit model. What is accepted
// must be within its bounds, and a position that is given must be a number and lie outside the earth.
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

#include "orbit/elements/element_fields.h"
#include "orbit/elements/element_reader.h"
#include "orbit/satellite.h"
#include "orbit/sgp4/gravity.h"

namespace vantrace {
namespace {

void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

void checkSet(const ElementSet& set) {
    require(!set.name.empty(), "a set has a name");
    require(set.catalogNumber >= 0 && set.catalogNumber <= 339999, "catalogue number");
    require(isCalendarTime(set.epoch) && set.epoch.fraction >= 0.0 && set.epoch.fraction < 1.0, "epoch");
    require(std::isfinite(set.bStar), "drag term");
    require(set.inclinationRad >= 0.0 && set.inclinationRad <= pi, "inclination");
    require(set.eccentricity >= 0.0 && set.eccentricity < 1.0, "eccentricity");
    for (const double angle : {set.rightAscensionRad, set.argumentOfPerigeeRad, set.meanAnomalyRad}) {
        require(angle >= 0.0 && angle <= twoPi, "angle");
    }
    require(set.meanMotionRadPerMin > 0.0 && std::isfinite(set.meanMotionRadPerMin), "mean motion");
    require(set.revolutionNumber >= 0 && set.revolutionNumber <= 99999, "revolution number");
}

bool isFinite(const Vector3& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

void checkPath(const ElementSet& set) {
    // Around the epoch, years away, and out to the ends of the calendar (resonant orbits are integrated there
    // step by step, so these are few).
    constexpr std::array<double, 9> minutes = {0.0,      1.0,      -1.0,      719.5, 1441.0,
                                               -20000.0, 525600.0, -525600.0, 5.2e6};
    Satellite satellite(set);
    for (const double t : minutes) {
        Propagated result;
        if (satellite.propagator().propagate(t, result) != PropagationStatus::ok) continue;
        require(isFinite(result.state.positionKm), "a position is a number");
        require(isFinite(result.state.velocityKmS), "a velocity is a number");
        require(norm(result.state.positionKm) > 0.99 * wgs72::earthRadiusKm,
                "a position lies outside the earth");
        require(std::isfinite(satellite.orbitCount(result)), "an orbit count is a number");
        Propagated again;
        require(satellite.propagator().propagate(t, again) == PropagationStatus::ok &&
                    again.state.positionKm.x == result.state.positionKm.x,
                "the same question has the same answer");
    }
}

}  // namespace
}  // namespace vantrace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrace;
    const std::vector<char> bytes(data, data + size);
    const std::string_view text(bytes.data(), bytes.size());
    std::vector<ElementSet> sets;
    std::size_t lastLine = 0;
    readElementSets(text, {[&sets](ElementSet&& set) { sets.push_back(std::move(set)); },
                           [&lastLine](ElementRemark&& remark) {
                               require(!remark.reason.empty() && remark.line > 0,
                                       "a remark tells line and reason");
                               lastLine = remark.line;
                           }});
    require(lastLine <= size + 1, "a remark's line is in the text");
    require(sets.empty() || size > 64 * 1024 || text.find('\0') != std::string_view::npos ||
                looksLikeElementSets(text),
            "a text with sets looks like one");
    for (const ElementSet& set : sets) {
        checkSet(set);
        checkPath(set);
    }
    return 0;
}

/// Mends the check digits of damaged lines now and then, so that the fields behind them are reached.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed) {
    const std::size_t newSize = LLVMFuzzerMutate(data, size, maxSize);
    if (seed % 4 == 0) return newSize;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i <= newSize; ++i) {
        if (i < newSize && data[i] != '\n') continue;
        constexpr std::size_t checkedColumns = 68;
        if (i - lineStart > checkedColumns && (data[lineStart] == '1' || data[lineStart] == '2')) {
            const std::vector<char> line(data + lineStart, data + lineStart + checkedColumns);
            const int digit = vantrace::checkDigit({line.data(), line.size()});
            data[lineStart + checkedColumns] = static_cast<std::uint8_t>('0' + digit);
        }
        lineStart = i + 1;
    }
    return newSize;
}
