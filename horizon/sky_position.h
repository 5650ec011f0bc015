// Where things stand in the sky.
#pragma once

#include <string_view>

#include "platform/clock.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// `Satcalc` for now, or for a local time whose parts are as they are. Throws std::range_error for a part
/// beyond 16 bits.
void placeNow(ProgramState& state, Services& services, std::string_view name);
void placeAt(ProgramState& state, Services& services, std::string_view name, const ClockParts& local);

}  // namespace vantrace
