// The time that the map shows.
#pragma once

#include <string_view>

#include "platform/clock.h"

namespace vantrace {

struct ProgramState;
struct Services;
struct WorldViewForm;

/// The simulated local time during time warp, else that of the clock. In time warp the day may lie beyond the
/// end of its month.
ClockParts mapTime(const WorldViewForm& form, const Services& services);

/// `Satcalc` at a local time, whose parts are as they are. Throws std::range_error for a part beyond 16 bits.
void satcalcAt(ProgramState& state, Services& services, std::string_view name, const ClockParts& local,
               bool primary);

}  // namespace vantrace
