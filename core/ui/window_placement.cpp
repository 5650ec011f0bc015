#include "core/ui/window_placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "core/window_place.h"

namespace vantrace {

namespace {

constexpr float twipsPerPixel = 15;

int pixels(float twips) {
    constexpr float farthest = 100000;
    if (!std::isfinite(twips)) return 0;
    return static_cast<int>(std::clamp(twips / twipsPerPixel, -farthest, farthest));
}

}  // namespace

void placeWindow(QWidget& window, const WindowPlace& place) {
    const QRect wanted(pixels(place.leftTwips), pixels(place.topTwips), std::max(1, pixels(place.widthTwips)),
                       std::max(1, pixels(place.heightTwips)));
    window.resize(wanted.size());
    for (const QScreen* const screen : QGuiApplication::screens()) {
        if (screen->availableGeometry().intersects(wanted)) window.move(wanted.topLeft());
    }
}

double surfaceDensity(const QWidget& window) {
    constexpr double densest = 8;
    return std::clamp(window.devicePixelRatioF(), 1.0, densest);
}

WindowPlace placeOf(const QWidget& window) {
    const auto twips = [](int pixelCount) { return static_cast<float>(pixelCount) * twipsPerPixel; };
    return {twips(window.x()),      twips(window.y()),    twips(window.width()),
            twips(window.height()), window.isMinimized(), window.isVisible()};
}

}  // namespace vantrace
