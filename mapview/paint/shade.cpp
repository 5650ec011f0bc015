#include "mapview/paint/shade.h"

#include "core/numbers.h"
#include "mapview/map_projection.h"

namespace vantrace {

namespace {

/// A point farther than this from the one before, in pixels of `Alpha`, is on the other side of the map.
constexpr double sideJump = 500.0;
/// How far beyond the edges the line ends and starts again; to the right it ends far out.
constexpr double beyondEdge = 10.0;
constexpr double farRight = 10000.0;

PixelArea quarter(int width, int height, bool isRight, bool isLower) {
    const int halfWidth = toInteger32(width / 2.0);
    const int halfHeight = toInteger32(height / 2.0);
    return {isRight ? halfWidth : 0, isLower ? halfHeight : 0, halfWidth, halfHeight};
}

ShadeBlend quarterBlend(int finalWidth, int finalHeight, bool isRight, bool isLower) {
    return {quarter(finalWidth, finalHeight, isRight, isLower),
            quarter(alphaSize.width, alphaSize.height, isRight, isLower)};
}

}  // namespace

std::vector<PenStep> shadeOutline(const MapState& map, std::string_view mainTag) {
    using Kind = PenStep::Kind;
    std::vector<PenStep> steps;
    steps.reserve(map.TerminatorPoints.bound + 16);
    double xBefore = 0.0;
    for (std::size_t i = 0; i <= map.TerminatorPoints.bound; ++i) {
        const MapPoint& point = map.TerminatorPoints[i];
        const double x = LongitudeToAlphaX(mainTag, point.Longitude);
        const double y = LatitudeToAlphaY(mainTag, point.Latitude);
        if (i == 0) {
            steps.push_back({Kind::plot, x, y});
        } else {
            if (x - xBefore > sideJump) {
                steps.push_back({Kind::lineTo, -beyondEdge, y});
                steps.push_back({Kind::plot, alphaSize.width + beyondEdge, y});
            }
            if (xBefore - x > sideJump) {
                steps.push_back({Kind::lineTo, farRight, y});
                steps.push_back({Kind::plot, -beyondEdge, y});
            }
            steps.push_back({Kind::lineTo, x, y});
        }
        xBefore = x;
    }
    return steps;
}

std::array<SeedPixel, 16> shadeSeeds(const MapState& map, std::string_view mainTag) {
    std::array<SeedPixel, 16> seeds;
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        const MapPoint& point = map.SunSeedPoints[i];
        seeds[i] = {toInteger32(LongitudeToAlphaX(mainTag, point.Longitude)),
                    toInteger32(LatitudeToAlphaY(mainTag, point.Latitude))};
    }
    return seeds;
}

std::array<ShadeBlend, 4> shadeBlends(int finalWidth, int finalHeight) {
    return {quarterBlend(finalWidth, finalHeight, false, false),
            quarterBlend(finalWidth, finalHeight, true, false),
            quarterBlend(finalWidth, finalHeight, false, true),
            quarterBlend(finalWidth, finalHeight, true, true)};
}

}  // namespace vantrace
