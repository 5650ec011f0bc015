#include "orbit/engine_access.h"

#include "core/program_state.h"

namespace vantrace {

OrbitEngine& engineOf(const ProgramState& state) {
    if (!state.OrbitEngine) {
        throw EngineError("there is no orbit engine");
    }
    return *state.OrbitEngine;
}

}  // namespace vantrace
