// What the tests of the map's painter share: surfaces with sprites of one colour each.
#pragma once

#include "core/config.h"
#include "core/error_label.h"
#include "mapview/paint/map_layers.h"
#include "mapview/paint/map_surfaces.h"
#include "mapview/paint/repaint_map_screen.h"
#include "tests/mapview/map_test.h"
#include "tests/support/surface_pictures.h"

namespace vantrace {

inline Surface ofOneColour(int width, int height, Colour colour) {
    Surface surface(width, height);
    surface.setBackgroundColour(colour);
    surface.clear();
    return surface;
}

/// The services with other pictures and another print.
inline Services servicesWith(const Services& all, Pictures& pictures, TextPainter& textPainter) {
    return {all.clock,       all.events,     all.settings,      all.speech,   all.dialogs, all.desktop,
            all.displayMode, all.process,    all.capture,       pictures,     textPainter, all.printer,
            all.fetcher,     all.timeClient, all.linePublisher, all.errorLog, all.windows, all.format};
}

/// A map of 360 by 180 pixels, one to a degree, with the whole world on it; the ground is of one colour. The
/// masks are black all over, so that a sprite is a square of its own colour. It is night everywhere.
class PainterTest : public MapTest {
  protected:
    static constexpr Colour ground = 0x405060;
    static constexpr Colour sunColour = 0x000064;
    static constexpr Colour moonColour = 0x006400;

    PainterTest() {
        surfaces.WorldNormal = ofOneColour(40, 20, ground);
        surfaces.Final.resize(360, 180);
        surfaces.SunPic = ofOneColour(30, 30, sunColour);
        surfaces.SunMask = Surface(30, 30);
        surfaces.MoonPic = ofOneColour(20, 20, moonColour);
        surfaces.MoonMask = Surface(20, 20);
        for (std::size_t i = 0; i < satellitePictureCount; ++i) {
            surfaces.SatPic[i] = ofOneColour(32, 32, satelliteColour(i));
            surfaces.SatMask[i] = Surface(32, 32);
        }
        SaveConfig(services, settings::showGroundtrack, "0");
        SaveConfig(services, settings::showFootprints, "0");
        state.CompatibilityMode = true;
    }

    static Colour satelliteColour(std::size_t picture) { return 0x100000 * static_cast<Colour>(picture + 1); }

    MapFrame frame() { return {surfaces, form, map, state, services, label}; }
    void repaint() { RepaintMapScreen(surfaces, form, map, state, services); }
    Colour pixel(int x, int y) const { return surfaces.Final.pixel(x, y); }

    /// Over that pixel of the map, which has one to a degree.
    void putFavourite(std::string_view name, double x, double y) {
        addFavourite(name);
        state.Favourites[state.FavouriteCount].Longitude = longitudeAt(x);
        state.Favourites[state.FavouriteCount].Latitude = 90 - y;
    }
    static double longitudeAt(double x) { return x <= 180 ? 180 - x : 540 - x; }

    /// The texts that were printed, in their order.
    Texts printed() const {
        Texts texts;
        for (const auto& question : fakes.textPainter.questions) texts.push_back(question.text);
        return texts;
    }
    bool isPrinted(std::string_view text) const { return std::ranges::count(printed(), text) == 1; }
    int logged() const { return fakes.logged(labels::mapviewRepaintMapScreen); }

    MapSurfaces surfaces;
    ErrorLabel label{services, labels::mapviewRepaintMapScreen};
};

}  // namespace vantrace
