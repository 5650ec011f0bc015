#include "core/nearest_favourite.h"

#include "core/numbers.h"
#include "core/program_state.h"

namespace vantrace {

std::int16_t nearestFavourite(const ProgramState& state, ErrorLabel& label,
                              const std::function<double(const FavouriteRecord&)>& distance) {
    std::int16_t best = 32700;
    std::int16_t choice = 0;
    for (std::int16_t i = 1; i <= state.FavouriteCount; ++i) {
        label.step([&] {
            const double here = distance(state.Favourites[i]);
            if (!(here < best)) return;
            choice = i;
            best = toInteger16(here);
        });
    }
    return choice;
}

}  // namespace vantrace
