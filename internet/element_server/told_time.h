// Times, as the user is told them.
#pragma once

#include <string>

#include "platform/clock.h"

namespace vantrace {

/// "08:18:38" in local time, with "24 NOV " in front on another day than today. `utc` is a day number.
std::string toldTime(const Clock& clock, double utc);

}  // namespace vantrace
