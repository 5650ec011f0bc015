// How program logic reaches the engine.
#pragma once

#include "orbit/engine_error.h"

namespace vantrace {

class OrbitEngine;
struct ProgramState;

/// The engine of the program. Throws EngineError when it has been released, or not yet made.
OrbitEngine& engineOf(const ProgramState& state);

}  // namespace vantrace
