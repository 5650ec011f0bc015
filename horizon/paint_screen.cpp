#include "horizon/paint_screen.h"

#include <array>
#include <cmath>
#include <string>

#include "core/core_services.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/spoken_name.h"
#include "core/sprites.h"
#include "horizon/horizon_form.h"
#include "horizon/horizon_surfaces.h"
#include "horizon/sky_position.h"
#include "horizon/sky_projection.h"

namespace vantrace {

namespace {

struct SkyFrame {
    HorizonSurfaces& surfaces;
    const HorizonForm& form;
    ProgramState& state;
    Services& services;
    ErrorLabel& label;

    Surface& Final() const { return surfaces.Final; }
    Place place(double azimuthDeg, double elevationDeg) const {
        return {AzimuthToX(form.CenteredNorth, Final().width(), azimuthDeg),
                ElevationToY(Final().height(), elevationDeg)};
    }
    void print(const std::string& text) const { Final().print(services.textPainter, text); }
    /// A text in yellow, with a black dot at its start.
    void printFromDot(double x, double y, const std::string& text) const {
        Final().setPenColour(colours::black);
        Final().plot(x, y);
        Final().setPenColour(colours::yellow);
        print(text);
    }
    std::string angle(double degrees) const {
        return formatNumber(degrees, "#.0", services.format.decimalMark);
    }
};

void paintLandscape(const SkyFrame& frame) {
    Surface& Final = frame.Final();
    Final.clear();
    frame.label.step([&] { frame.surfaces.keptLandscape.paint(Final, frame.surfaces.BackDrop); });
}

void paintCompassWords(const SkyFrame& frame) {
    static constexpr std::array southern = {"NORTH", "EAST", "SOUTH", "WEST", "NORTH"};
    static constexpr std::array northern = {"SOUTH", "WEST", "NORTH", "EAST", "SOUTH"};
    constexpr double top = 40;
    const auto& words = frame.form.CenteredNorth ? northern : southern;
    const double width = frame.Final().width();
    // The fourth is not at three quarters.
    const std::array<double, 5> places{0, width / 4, width / 2, width / 1.35, width - 40};
    for (std::size_t i = 0; i < places.size(); ++i) {
        frame.label.step([&] { frame.printFromDot(places[i], top, words[i]); });
    }
}

/// How high a body stands and where.
std::string bodySentence(const SkyFrame& frame, const std::string& body) {
    return "The " + body + " is " + frame.angle(frame.state.SatElevation) +
           " degrees above the horizon, at " + frame.angle(frame.state.SatAzimuth) + " degrees heading";
}

/// Its corner, not its middle, is at the place in the sky.
void paintBody(const SkyFrame& frame, const Surface& mask, const Surface& picture) {
    constexpr int size = 30;
    const Place corner = frame.place(frame.state.SatAzimuth, frame.state.SatElevation);
    paintSprite(frame.Final(), corner, size, mask, picture);
}

void paintSun(const SkyFrame& frame) {
    constexpr double darkest = -18;
    constexpr double brightest = -6;
    frame.label.step([&] { placeNow(frame.state, frame.services, "sun"); });
    const double elevation = frame.state.SatElevation;
    std::string text = "The Sun is too far below the horizon for visual observations";
    if (elevation >= darkest && elevation <= brightest) {
        text =
            "The Sun is slightly below the horizon, Astronomical Twilight Time, Ideal for visual satellite "
            "observations";
    }
    if (elevation > brightest) frame.label.step([&] { text = bodySentence(frame, "Sun"); });
    frame.label.step([&] { frame.printFromDot(0, 0, text); });
    if (elevation > brightest) {
        frame.label.step([&] { paintBody(frame, frame.surfaces.SunMask, frame.surfaces.SunPic); });
    }
}

void paintMoon(const SkyFrame& frame) {
    constexpr double secondLine = 15;
    constexpr double lowest = 1;
    frame.label.step([&] { placeNow(frame.state, frame.services, "moon"); });
    const bool isUp = frame.state.SatElevation >= lowest;
    frame.label.step([&] {
        frame.printFromDot(0, secondLine,
                           isUp ? bodySentence(frame, "Moon") : "The Moon is below the horizon.");
    });
    if (isUp) {
        frame.label.step([&] { paintBody(frame, frame.surfaces.MoonMask, frame.surfaces.MoonPic); });
    }
}

void selectIfNoneIs(const SkyFrame& frame, int index, const FavouriteRecord& favourite) {
    if (favourite.Elevation < 0 || frame.state.PrimarySatIndex != 0) return;
    frame.state.PrimarySatIndex = static_cast<std::int16_t>(index);
    Speak(frame.services, "Selected Satellite " + SpokenName(favourite.Name));
}

void paintSatellite(const SkyFrame& frame, int index) {
    constexpr int size = 32;
    constexpr int left = 16;
    constexpr int above = 20;
    FavouriteRecord& favourite = frame.state.Favourites[index];
    frame.label.step([&] { placeNow(frame.state, frame.services, favourite.Name); });
    favourite.Azimuth = frame.state.SatAzimuth;
    favourite.Elevation = frame.state.SatElevation;
    frame.label.step([&] { selectIfNoneIs(frame, index, favourite); });

    const SkySatelliteLook look = skySatelliteLook(favourite.Name);
    const Place place = frame.place(favourite.Azimuth, favourite.Elevation);
    frame.label.step([&] {
        paintSprite(frame.Final(), {place.x - left, place.y - above}, size,
                    frame.surfaces.SatMask[look.picture], frame.surfaces.SatPic[look.picture]);
    });
    frame.Final().movePen(place.x - look.nameOffset, place.y - above);
    frame.Final().setPenColour(colours::white);
    frame.label.step([&] { frame.print(favourite.Name); });
}

/// In whatever colour the last drawing left.
void paintStatusLine(const SkyFrame& frame) {
    constexpr int height = 15;
    frame.Final().movePen(-1, frame.Final().height() - height);
    frame.label.step([&] {
        if (frame.state.PrimarySatIndex == 0) return frame.print(" No Satellite Selected");
        const FavouriteRecord& favourite = frame.state.Favourites[frame.state.PrimarySatIndex];
        const auto wholePart = [](double degrees) { return numberText(std::floor(degrees)); };
        frame.print(" " + favourite.Name + "     AZ: " + wholePart(favourite.Azimuth) +
                    "      EL: " + wholePart(favourite.Elevation));
    });
}

}  // namespace

SkySatelliteLook skySatelliteLook(std::string_view name) {
    SkySatelliteLook look;
    if (name.starts_with("ISS")) look = {1, 24};
    if (name == "MIR") look = {2, 24};
    if (name.starts_with("STS")) look = {3, 24};
    if (name.find("P3D") != std::string_view::npos) look = {4, 16};
    if (name.find("AO-40") != std::string_view::npos) look = {4, 16};
    if (name.starts_with("NOAA")) look = {5, 21};
    return look;
}

void PaintScreen(HorizonSurfaces& surfaces, const HorizonForm& form, ProgramState& state,
                 Services& services) {
    ErrorLabel label(services, labels::horizonPaintScreen);
    const SkyFrame frame{surfaces, form, state, services, label};
    surfaces.Final.setFont({"Arial", 8, true});
    paintLandscape(frame);
    paintCompassWords(frame);
    paintSun(frame);
    paintMoon(frame);
    for (int i = 1; i <= state.FavouriteCount; ++i) {
        label.step([&] { paintSatellite(frame, i); });
    }
    if (state.PrimarySatIndex > 0) {
        label.step([&] {
            const std::string name = state.Favourites[state.PrimarySatIndex].Name;
            DrawSkyTrack(surfaces, form, state, services, name);
        });
    }
    paintStatusLine(frame);
}

}  // namespace vantrace
