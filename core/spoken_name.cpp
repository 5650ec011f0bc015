#include "core/spoken_name.h"

#include <algorithm>
#include <array>

namespace vantrace {

namespace {

struct SpokenForm {
    std::string_view contained;
    std::string_view spoken;
};

/// In this order. The two names with hyphens are never found, because the hyphens are gone by then; they are
/// spoken with a blank in their place.
constexpr std::array spokenForms{
    SpokenForm{"HST", "The Hubble space telescope"},
    SpokenForm{"ISS", "The International Space station"},
    SpokenForm{"STS", "The Space shuttle"},
    SpokenForm{"PCSAT", "P C SAT"},
    // The voice makes a short vowel of a single i.
    SpokenForm{"STARSHINE 2", "Starshiine 2"},
    SpokenForm{"STARSHINE 3", "Starshiine 3"},
    SpokenForm{"AO-40", "A O four zero"},
    SpokenForm{"AO-13", "A O one three"},
};

}  // namespace

std::string SpokenName(std::string_view name) {
    std::string blanked(name);
    std::ranges::replace(blanked, '-', ' ');
    std::string spoken = blanked;
    for (const SpokenForm& form : spokenForms) {
        if (blanked.find(form.contained) != std::string::npos) spoken = form.spoken;
    }
    return spoken;
}

}  // namespace vantrace
