// Where the primary satellite is about to fly.
#pragma once

namespace vantrace {

struct MapState;
struct ProgramState;
struct Services;
struct WorldViewForm;

/// The ground track of the primary satellite from the map's time on, a point every 30 seconds for the minutes
/// of the setting "GroundTrackLen", into `GroundTrackPoints`. What a longer track left behind the end stays.
/// Every point past the table's end is logged; a setting beyond 16 bits of points is logged, and the track is
/// one point. Takes one `Satcalc` a point and yields nowhere.
void CalcGroundTrack(const WorldViewForm& form, MapState& map, ProgramState& state, Services& services);

}  // namespace vantrace
