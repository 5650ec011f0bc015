#include "core/config.h"

#include <cassert>
#include <optional>

#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"

namespace vantrace {

std::string GetConfig(Services& services, std::string_view key, std::string_view defaultValue) {
    std::optional<std::string> value = services.settings.get(key);
    if (value && !trimmed(*value).empty()) return *std::move(value);
    services.settings.setDefault(key, defaultValue);
    return std::string(defaultValue);
}

std::string GetConfig(Services& services, const Setting& setting) {
    assert(!setting.defaultIsAppPath);
    return GetConfig(services, setting.key, setting.defaultValue);
}

std::string GetConfig(const ProgramState& state, Services& services, const Setting& setting) {
    return GetConfig(services, setting.key,
                     setting.defaultIsAppPath ? std::string_view(state.AppPath) : setting.defaultValue);
}

bool isTrue(Services& services, const Setting& setting) {
    const std::string value = GetConfig(services, setting);
    return numberValue(value) != 0.0 || equalsIgnoringCase(trimmed(value), "true");
}

void SaveConfig(Services& services, std::string_view key, std::string_view value) {
    services.settings.set(key, value);
}

void SaveConfig(Services& services, const Setting& setting, std::string_view value) {
    SaveConfig(services, setting.key, value);
}

}  // namespace vantrace
