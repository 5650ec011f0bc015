#include "mapview/paint/shade_painter.h"

#include "core/core_services.h"
#include "mapview/paint/shade.h"
#include "platform/surface.h"

namespace vantrace {

namespace {

Area areaOf(const PixelArea& area) {
    return {static_cast<double>(area.x), static_cast<double>(area.y), static_cast<double>(area.width),
            static_cast<double>(area.height)};
}

/// As long as it lives, whatever happens meanwhile.
struct LowPriority {
    LowPriority() { mPriority::SetPriorityClass(PriorityClass::Idle); }
    ~LowPriority() { mPriority::SetPriorityClass(PriorityClass::Normal); }
    LowPriority(const LowPriority&) = delete;
    LowPriority& operator=(const LowPriority&) = delete;
};

}  // namespace

void drawShade(Surface& Alpha, const MapState& map, std::string_view mainTag) {
    Alpha.setBackgroundColour(0);
    Alpha.clear();
    Alpha.setPenWidth(shadePenWidth);
    Alpha.setPenColour(shadeColour);
    Alpha.setFillColour(shadeColour);
    for (const PenStep& step : shadeOutline(map, mainTag)) {
        if (step.kind == PenStep::Kind::plot) {
            Alpha.plot(step.x, step.y);
        } else {
            Alpha.lineTo(step.x, step.y);
        }
    }
    for (const SeedPixel& seed : shadeSeeds(map, mainTag)) {
        Alpha.floodFill(seed.x, seed.y, shadeColour);
    }
}

void blendShade(Surface& Final, const Surface& Alpha) {
    const LowPriority low;
    for (const ShadeBlend& blend : shadeBlends(Final.width(), Final.height())) {
        Final.blend(areaOf(blend.destination), Alpha, areaOf(blend.source), shadeAlpha);
    }
}

}  // namespace vantrace
