// The one position routine of the program.
#pragma once

#include <cstdint>
#include <string_view>

namespace vantrace {

struct ProgramState;
struct Services;

/// Works out where a satellite, "sun" or "moon" is at a local date and time, into the satellite result block
/// of the state. For a `primary` call with the name of the selected satellite also whether it is sunlit and
/// visible to the eye, and, unless `PassPrediction` is on screen, its next pass. Does nothing while
/// `Main.Tag` is "menu". A failure is logged; the fields that it kept from being worked out stay as they
/// were. The engine's observer is moved onto the satellite and put back in any case; nothing yields in
/// between.
void Satcalc(ProgramState& state, Services& services, std::string_view name, std::int16_t year,
             std::int16_t month, std::int16_t day, std::int16_t hour, std::int16_t minute,
             std::int16_t second, bool primary);

}  // namespace vantrace
