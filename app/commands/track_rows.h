// The rows of the position commands.
#pragma once

#include <span>
#include <string>

#include "app/output/column.h"
#include "orbit/orbit_engine.h"

namespace vantrace {

std::span<const Column> trackColumns();

/// Throws EngineError.
Row trackRow(OrbitEngine& engine, const std::string& name, const Instant& time);

/// Name and time with empty figures.
Row failedTrackRow(const std::string& name, const Value& time);

}  // namespace vantrace
