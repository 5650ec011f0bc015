#include "mapview/tables/sun_moon.h"

#include <array>
#include <cmath>
#include <string>

#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "mapview/map_state.h"
#include "mapview/tables/map_time.h"
#include "mapview/tables/small_circle.h"
#include "mapview/world_view_form.h"
#include "orbit/angles.h"

namespace vantrace {

namespace {

/// From a sun at this distance the horizon is the line of day and night; from the nearer one it is a circle
/// well inside the day.
constexpr double terminatorDistanceKm = 106000000.0;
constexpr double seedDistanceKm = 50000.0;
constexpr int lastSeed = 15;

void writeDirection(ErrorLabel& label, std::string& azimuth, std::string& elevation,
                    const ProgramState& state, char decimalMark) {
    const auto wholeDegrees = [&](double angle) {
        return numberText(std::floor(angle), decimalMark) + " deg";
    };
    label.step([&] { azimuth = "Azimuth : " + wholeDegrees(state.SatAzimuth); });
    label.step([&] { elevation = "Elevation : " + wholeDegrees(state.SatElevation); });
}

void calculateTerminator(ErrorLabel& label, MapState& map) {
    const MapPoint sun{map.SunLatitude, map.SunLongitude};
    SmallCircle terminator(label, sun, terminatorDistanceKm);
    for (int around = 0; around <= 360; ++around) {
        map.TerminatorPoints[around] = terminator.at(around);
    }
    SmallCircle seeds(label, sun, seedDistanceKm);
    for (int i = 0; i <= lastSeed; ++i) {
        map.SunSeedPoints[i] = seeds.at(360.0 * i / lastSeed);
    }
}

}  // namespace

std::string_view moonPhaseWord(double phaseAngleRad) {
    struct Phase {
        double aboveRad;
        std::string_view word;
    };
    // The second angle is meant to have these digits.
    constexpr std::array phases{Phase{-2.356194489, "1st Quarter"},        Phase{-1.570707963, "Half waxing"},
                                Phase{-0.785398163, "3rd Quarter waxing"}, Phase{0.0, "Full"},
                                Phase{0.785398163, "3rd Quarter waning"},  Phase{1.570796326, "Half waning"},
                                Phase{2.356194489, "Last Quarter"}};
    std::string_view word = "New Moon";
    for (const Phase& phase : phases) {
        if (phaseAngleRad > phase.aboveRad) {
            word = phase.word;
        }
    }
    return word;
}

double moonPhasePercent(double phaseAngleRad) {
    const double percent = (phaseAngleRad + programPi) / programPi * 100.0;
    return percent > 100.0 ? 200.0 - percent : percent;
}

void CalcSunMoon(WorldViewForm& form, MapState& map, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mapviewCalcSunMoon);
    const char mark = services.format.decimalMark;
    auto& lines = form.RemoteStat;

    label.step([&] { satcalcAt(state, services, "sun", mapTime(form, services), false); });
    writeDirection(label, lines[11], lines[12], state, mark);
    map.SunLongitude = state.SatLongitude;
    map.SunLatitude = state.SatLatitude;
    calculateTerminator(label, map);

    label.step([&] { satcalcAt(state, services, "moon", mapTime(form, services), false); });
    const std::string_view word = moonPhaseWord(state.SatPhaseAngle);
    state.SatPhaseAngle = moonPhasePercent(state.SatPhaseAngle);
    writeDirection(label, lines[13], lines[14], state, mark);
    label.step([&] { lines[15] = "Distance : " + formatNumber(state.SatHeight, "000,000.0", mark) + " km"; });
    label.step([&] {
        lines[16] =
            "Phase : " + formatNumber(state.SatPhaseAngle, "0.0", mark) + "% (" + std::string(word) + ")";
    });
    map.MoonLongitude = state.SatLongitude;
    map.MoonLatitude = state.SatLatitude;
}

}  // namespace vantrace
