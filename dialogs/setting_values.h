// Settings as the controls of the dialogs show them.
#pragma once

#include <string>

#include "core/settings_table.h"

namespace vantrace {

struct Services;

/// A slider: a whole number with its least and its largest value.
struct SliderRange {
    int least;
    int largest;
};

/// A setting as the position of a slider; one beyond its ends is the end.
int sliderSetting(Services& services, const Setting& setting, const SliderRange& range);

/// Whether a setting is the number 1, as a tick stores it.
bool isTicked(Services& services, const Setting& setting);
/// Stores a tick: "1" or "0".
void saveTick(Services& services, const Setting& setting, bool isTicked);

/// The number that a typed text starts with, 0 where it starts with none. On a machine with a decimal comma
/// both marks will do.
double typedValue(const std::string& text, const Services& services);
/// A number as the machine writes it.
std::string valueText(double value, const Services& services);

}  // namespace vantrace
