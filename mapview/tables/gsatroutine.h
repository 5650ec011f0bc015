// What the map works out on each tick.
#pragma once

namespace vantrace {

struct MapState;
struct ProgramState;
struct Services;
struct WorldViewForm;

/// Moves simulated time on, places every favourite, starts and stops recordings, makes the footprint and the
/// pane's lines for the primary satellite, and composes `StatusLine`. Yields once after each favourite, and
/// leaves at once, without a status line, when `Main.Tag` is "menu". What fails is logged; a satellite that
/// the engine can't place has the place of the one before.
void Gsatroutine(WorldViewForm& form, MapState& map, ProgramState& state, Services& services);

}  // namespace vantrace
