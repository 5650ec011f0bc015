#include "dialogs/setting_values.h"

#include <algorithm>

#include "core/config.h"
#include "core/numbers.h"
#include "core/services.h"
#include "core/texts.h"

namespace vantrace {

int sliderSetting(Services& services, const Setting& setting, const SliderRange& range) {
    const double value = numberValue(GetConfig(services, setting));
    return toInteger32(
        std::clamp(value, static_cast<double>(range.least), static_cast<double>(range.largest)));
}

bool isTicked(Services& services, const Setting& setting) {
    return numberValue(GetConfig(services, setting)) == 1.0;
}

void saveTick(Services& services, const Setting& setting, bool isTicked) {
    SaveConfig(services, setting, isTicked ? "1" : "0");
}

double typedValue(const std::string& text, const Services& services) {
    return numberValue(readsCommaAsDecimalMark(services.format) ? replacedAll(text, ",", ".") : text);
}

std::string valueText(double value, const Services& services) {
    return numberText(value, services.format.decimalMark);
}

}  // namespace vantrace
