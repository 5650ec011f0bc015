#pragma once

#include <string>

#include "orbit/passes/pass_search.h"

namespace vantrace {

/// The engine's text form of the passes of a span: records separated by commas, each of rise (UTC,
/// YYYYMMDDhhmmss, to the nearest second), rise and set azimuth (whole degrees), greatest elevation (whole
/// degrees, rounded down) and length (whole seconds, rounded down). A satellite that never sets is cut into
/// records of 23:59:59, one for each local day of the span; local time is UTC plus `localOffsetMinutes`.
std::string passListText(const PassSearchResult& result, const Instant& from, double days,
                         double localOffsetMinutes);

}  // namespace vantrace
