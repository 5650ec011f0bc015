// Which favourite a click upon a view means.
#pragma once

#include <cstdint>
#include <functional>

#include "core/error_label.h"

namespace vantrace {

struct FavouriteRecord;
struct ProgramState;

/// The index of the favourite whose distance from the click is the least, the first of equal ones; 0 where
/// none is nearer than 32700 pixels. Distances are compared in whole pixels with the best so far. What fails
/// for a favourite is logged under the label, and the others are looked at.
std::int16_t nearestFavourite(const ProgramState& state, ErrorLabel& label,
                              const std::function<double(const FavouriteRecord&)>& distance);

}  // namespace vantrace
