#include "art/draw_pictures/stars.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "art/draw_pictures/landscape.h"
#include "art/draw_pictures/random_waves.h"

namespace vantrace {

namespace {

constexpr std::array<unsigned, 6> starColours{0xA8C4FF, 0xC9DAFF, 0xF2F5FF, 0xFFFFFF, 0xFFF0DA, 0xFFD4A8};

struct Star {
    double x;
    double y;
    /// At its middle, 0 to 1.
    float light;
    /// Pixels to where a Gaussian has fallen to 0.6.
    double size;
    Tone colour;
};

/// 0 to 1, the n-th kind of luck of a star.
double luck(int star, int kind) {
    constexpr unsigned seed = 900;
    return (static_cast<double>(randomAt(star, kind, 0, seed)) + 1) / 2;
}

/// A round spot of that size and light at the star's place. None is smaller than a pixel: in a small window,
/// where each pixel is the mean of more than three by three of these, it would be lost.
void addStar(Picture& colours, const Star& star, double size, float light) {
    const int reach = static_cast<int>(std::ceil(3.2 * size));
    const int middleX = static_cast<int>(std::floor(star.x));
    const int middleY = static_cast<int>(std::floor(star.y));
    for (int y = std::max(0, middleY - reach); y <= std::min(landscapeHeight - 1, middleY + reach); ++y) {
        for (int place = middleX - reach; place <= middleX + reach; ++place) {
            const int x = (place + landscapeWidth) % landscapeWidth;
            const double square = std::pow(place + 0.5 - star.x, 2) + std::pow(y + 0.5 - star.y, 2);
            const float share = light * static_cast<float>(std::exp(-square / (2 * size * size)));
            const Tone sky = colours.tone(x, y);
            colours.setTone(x, y,
                            {sky.red + share * star.colour.red, sky.green + share * star.colour.green,
                             sky.blue + share * star.colour.blue});
        }
    }
}

}  // namespace

void paintStars(TwilightSky& sky) {
    constexpr int candidates = 9000;
    for (int index = 0; index < candidates; ++index) {
        const double x = luck(index, 0) * landscapeWidth;
        const double y = luck(index, 1) * landscapeHeight;
        const int column = std::min(static_cast<int>(x), landscapeWidth - 1);
        const int row = std::min(static_cast<int>(y), landscapeHeight - 1);
        // Many faint ones, few bright ones; a real sky has about three times as many per magnitude.
        const double rank = luck(index, 2);
        const auto light = static_cast<float>(std::min(1.0, 0.085 * std::pow(rank + 0.0008, -0.48)));
        constexpr float ofAnyPlace = 0.34F;
        const float density = ofAnyPlace + 0.66F * std::min(1.0F, 1.3F * sky.milkyWay.row(row)[column]);
        constexpr float bright = 0.3F;
        if (light < bright && luck(index, 3) > static_cast<double>(density)) continue;
        const auto elevation = static_cast<float>(elevationOf(row));
        const float seen = smoothStep(7, 42, elevation) * (1 - 0.8F * sky.clouds.row(row)[column]);
        const auto colour = static_cast<std::size_t>(luck(index, 4) * starColours.size());
        const Star star{x, y, light * seen, 1.05 + 0.85 * static_cast<double>(light),
                        toneOf(starColours.at(std::min(colour, starColours.size() - 1)))};
        if (star.light < 0.03F) continue;
        addStar(sky.colours, star, star.size, star.light);
        if (light > 0.55F) addStar(sky.colours, star, star.size * 4, 0.10F * star.light);
    }
}

}  // namespace vantrace
