// The line at the top of the map.
#pragma once

#include <string>

#include "platform/clock.h"

namespace vantrace {

class ErrorLabel;
struct ProgramState;
struct Services;
struct WorldViewForm;

/// "3 out of 10 Satellites in range - Local : ... - UTC : ... (234.5000000)". During time warp the times are
/// the simulated ones; the day number is the real day of the year with the shown UTC's hour and minute.
std::string composeStatusLine(const WorldViewForm& form, const ProgramState& state, const Services& services,
                              ErrorLabel& label, int inRange);

/// The day of the year, 1 to 366. Every fourth year counts as a leap year.
int dayOfYear(const ClockParts& date);

}  // namespace vantrace
