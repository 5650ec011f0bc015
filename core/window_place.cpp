#include "core/window_place.h"

#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "core/config.h"
#include "core/error_label.h"
#include "core/numbers.h"
#include "core/services.h"

namespace vantrace {

namespace {

/// The number in up to seven digits, as the machine writes it.
std::string singleText(float value, char decimalMark) {
    constexpr int decimalsOfSevenDigits = 6;
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                       std::chars_format::scientific, decimalsOfSevenDigits);
    const std::string_view text(digits.data(), static_cast<std::size_t>(written.ptr - digits.data()));
    return numberText(numberValue(text), decimalMark);
}

}  // namespace

void readPlace(WindowPlace& place, Services& services, ErrorLabel& label) {
    const auto read = [&](const Setting& setting, float& twips) {
        label.step([&] { twips = static_cast<float>(numberValue(GetConfig(services, setting))); });
    };
    read(settings::winPosX, place.leftTwips);
    read(settings::winPosY, place.topTwips);
    read(settings::winPosW, place.widthTwips);
    read(settings::winPosH, place.heightTwips);
}

void storePlace(const WindowPlace& place, Services& services, ErrorLabel& label) {
    if (place.isMinimised || !place.isVisible) return;
    const auto store = [&](const Setting& setting, float twips) {
        label.step([&] { SaveConfig(services, setting, singleText(twips, services.format.decimalMark)); });
    };
    store(settings::winPosX, place.leftTwips);
    store(settings::winPosY, place.topTwips);
    store(settings::winPosW, place.widthTwips);
    store(settings::winPosH, place.heightTwips);
}

}  // namespace vantrace
