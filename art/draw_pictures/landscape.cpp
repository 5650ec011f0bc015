#include "art/draw_pictures/landscape.h"

#include "art/draw_pictures/land.h"
#include "art/draw_pictures/random_waves.h"
#include "art/draw_pictures/stars.h"
#include "art/draw_pictures/twilight_sky.h"

namespace vantrace {

namespace {

/// So little that it isn't seen, and enough that a slow slope doesn't become stripes of equal colour.
void addGrain(Picture& picture) {
    constexpr float strength = 1.1F / 255;
    constexpr unsigned seed = 1300;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const float grain = strength * (randomAt(x, y, 0, seed) + randomAt(x, y, 1, seed));
            const Tone tone = picture.tone(x, y);
            picture.setTone(x, y, {tone.red + grain, tone.green + grain, tone.blue + grain});
        }
    }
}

}  // namespace

QImage paintLandscape() {
    TwilightSky sky = paintTwilightSky();
    paintStars(sky);
    paintLand(sky.colours);
    addGrain(sky.colours);
    QImage landscape = imageOf(sky.colours);
    paintLamps(landscape);
    return landscape;
}

}  // namespace vantrace
