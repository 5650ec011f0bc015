// What the tests of the panorama share: a sky of one pixel to a degree, twice as wide as a circle is round.
#pragma once

#include "core/labels.h"
#include "horizon/horizon_view.h"
#include "horizon/paint_screen.h"
#include "tests/orbit/program/program_test.h"
#include "tests/support/surface_pictures.h"

namespace vantrace {

inline Surface ofOneColour(int width, int height, Colour colour) {
    Surface surface(width, height);
    surface.setBackgroundColour(colour);
    surface.clear();
    return surface;
}

class HorizonTest : public ProgramTest {
  protected:
    static constexpr Colour sky = 0x302010;

    HorizonTest() {
        state.MainTag = "horizon";
        fakes.settings.set("Speechpack", "1");
        surfaces.Final.resize(720, 180);
        surfaces.BackDrop = ofOneColour(4, 4, sky);
        form.innerWidth = 720;
        form.innerHeight = 180;
    }

    void paint() { PaintScreen(surfaces, form, state, services); }
    /// Sets the clock a moment after the rise of a satellite's next pass, and gives its set.
    double goIntoPass(std::string_view name, double secondsAfterRise) {
        const double now = packDateTime({2026, 8, 21, 20, 0, 0});
        const double rise = state.OrbitEngine->EngineNextAOS(name, now);
        const double set = state.OrbitEngine->EngineNextLOS(name, rise);
        fakes.clock.setUtc(dateParts(rise + secondsAfterRise / 86400.0), 120);
        return set;
    }
    bool isPrinted(std::string_view text) const {
        return std::ranges::any_of(fakes.textPainter.questions,
                                   [&](const auto& question) { return question.text == text; });
    }
    int count(Colour colour) const {
        int found = 0;
        for (int y = 0; y < surfaces.Final.height(); ++y) {
            for (int x = 0; x < surfaces.Final.width(); ++x) found += surfaces.Final.pixel(x, y) == colour;
        }
        return found;
    }

    HorizonForm form;
    HorizonSurfaces surfaces;
    HorizonView view{form, surfaces, state, services};
};

}  // namespace vantrace
