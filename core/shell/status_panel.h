// The state of the elements, of the place and of the sun, in words.
#pragma once

#include <cstdint>
#include <string>

#include "core/error_label.h"
#include "core/shell/main_form.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// How old the elements are, in words; nothing for a negative age.
std::string elementAgeText(std::int32_t ageDays);

/// Fills the status panel: the age of the first set of the first group, the observer, the sun's times of
/// today. Each failed step is logged under `label` and leaves its field as it was.
void refreshStatusPanel(MainForm& form, ProgramState& state, Services& services, ErrorLabel& label);

}  // namespace vantrace
