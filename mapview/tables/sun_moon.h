// Sun and moon on the map: where they stand, day and night, the phase of the moon.
#pragma once

#include <string_view>

namespace vantrace {

struct MapState;
struct ProgramState;
struct Services;
struct WorldViewForm;

/// Places sun and moon at the map's time: `SunLatitude` and its like, the tables `TerminatorPoints` and
/// `SunSeedPoints`, and the pane's lines 11 to 16. The satellite result block holds the moon afterwards, with
/// the percentage of its phase for the angle. Yields nowhere.
void CalcSunMoon(WorldViewForm& form, MapState& map, ProgramState& state, Services& services);

/// The pane's word for a phase angle of the moon, radians: -pi new, 0 full.
std::string_view moonPhaseWord(double phaseAngleRad);

/// 0 at new moon and 100 at full moon, evenly with the angle.
double moonPhasePercent(double phaseAngleRad);

}  // namespace vantrace
