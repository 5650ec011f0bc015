#include "horizon/sky_position.h"

#include "core/numbers.h"
#include "core/services.h"
#include "orbit/satcalc.h"

namespace vantrace {

void placeNow(ProgramState& state, Services& services, std::string_view name) {
    placeAt(state, services, name, services.clock.read().local);
}

void placeAt(ProgramState& state, Services& services, std::string_view name, const ClockParts& local) {
    Satcalc(state, services, name, toInteger16(local.year), toInteger16(local.month), toInteger16(local.day),
            toInteger16(local.hour), toInteger16(local.minute), toInteger16(local.second), false);
}

}  // namespace vantrace
