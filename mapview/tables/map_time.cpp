#include "mapview/tables/map_time.h"

#include "core/numbers.h"
#include "core/services.h"
#include "mapview/world_view_form.h"
#include "orbit/satcalc.h"

namespace vantrace {

ClockParts mapTime(const WorldViewForm& form, const Services& services) {
    if (form.TimeWarp == 0) {
        return services.clock.read().local;
    }
    return {form.WarpYear, form.WarpMonth, form.WarpDay, form.WarpHour, form.WarpMinute, form.WarpSecond};
}

void satcalcAt(ProgramState& state, Services& services, std::string_view name, const ClockParts& local,
               bool primary) {
    Satcalc(state, services, name, toInteger16(local.year), toInteger16(local.month), toInteger16(local.day),
            toInteger16(local.hour), toInteger16(local.minute), toInteger16(local.second), primary);
}

}  // namespace vantrace
