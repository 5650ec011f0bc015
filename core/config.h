// Reading and saving settings.
#pragma once

#include <string>
#include <string_view>

#include "core/settings_table.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// The value of a setting as it is stored. One that is missing, empty or all blanks is the default, which is
/// stored at once: so the first read of a key makes it.
std::string GetConfig(Services& services, std::string_view key, std::string_view defaultValue);

/// The same by the settings table; of use for every setting but the one whose default is the program folder.
std::string GetConfig(Services& services, const Setting& setting);

/// The same for every setting.
std::string GetConfig(const ProgramState& state, Services& services, const Setting& setting);

/// Whether a setting is a number other than 0, or "true".
bool isTrue(Services& services, const Setting& setting);

/// Saves a setting; who reads next finds it.
void SaveConfig(Services& services, std::string_view key, std::string_view value);
void SaveConfig(Services& services, const Setting& setting, std::string_view value);

}  // namespace vantrace
