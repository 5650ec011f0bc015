#pragma once

#include <string>
#include <vector>

#include "app/command.h"

namespace vantrace {

/// Writes the passes of the next 24 hours in the order of their rises. False where not all could be computed,
/// which the error stream tells.
bool writeTodaysPasses(const CommandContext& context, const std::vector<std::string>& names,
                       const Instant& now);

}  // namespace vantrace
