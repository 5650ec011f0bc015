#include "mapview/tables/info_pane.h"

#include <cmath>

#include "core/error_label.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "mapview/world_view_form.h"

namespace vantrace {

std::string etaLine(const ProgramState& state) {
    if (state.SatElevation > 0) {
        return "ETA : In Range Now";
    }
    if (trimmed(state.SatNextMaxElevation).empty()) {
        return "ETA : NOT IN RANGE TODAY";
    }
    return "ETA : " + state.SatNextAOS + " (" + state.SatNextMaxElevation + "° EL   " +
           state.SatNextDuration + ")";
}

void writeSatelliteLines(WorldViewForm& form, const ProgramState& state, const Services& services,
                         ErrorLabel& label, std::string_view name) {
    const char mark = services.format.decimalMark;
    const auto number = [&](double value, std::string_view picture) {
        return formatNumber(value, picture, mark);
    };
    const auto write = [&](std::size_t line, auto&& text) {
        label.step([&] { form.RemoteStat[line] = text(); });
    };
    write(0, [&] { return "Satellite : " + std::string(name); });
    write(1, [&] { return "Latitude : " + number(state.SatLatitude, "0.00") + " Deg"; });
    write(2, [&] { return "Longitude : " + number(state.SatLongitude, "0.00") + " Deg"; });
    write(3, [&] { return "Azimuth : " + number(state.SatAzimuth, "0.0") + " Deg"; });
    write(4, [&] { return "Elevation : " + number(state.SatElevation, "0.0") + " Deg"; });
    write(5, [&] { return "Height : " + number(state.SatHeight, "0.0") + " Km"; });
    write(6, [&] {
        const std::string light = state.SatSunlit ? "SUNLIT" : "ECLIPSED";
        return "Range : " + numberText(std::floor(state.SatRange), mark) + " Km  [" + light + "]";
    });
    write(17, [&] { return "Phase(MA) : " + numberText(state.SatPhase255, mark); });
    write(8, [&] { return "MA : " + state.SatPhase360 + " deg"; });
    write(9, [&] { return "Orbit : " + number(numberValue(state.SatOrbitNumber), "#,###") + " revs"; });
    write(7, [&] { return etaLine(state); });
}

}  // namespace vantrace
