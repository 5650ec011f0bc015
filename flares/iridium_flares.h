// The window `IridiumFlares`: the flares of Iridium satellites that can be seen from the observer's place
// within seven days, as a service of the Internet predicts them.
#pragma once

#include <cstdint>
#include <string_view>

#include "flares/iridium_flares_form.h"

namespace vantrace {

struct ProgramState;
struct Services;

inline constexpr std::string_view flaresFile = "flares.dat";
inline constexpr std::string_view flaresScratchFile = "flares.tmp";

/// Lists what flares.dat holds. What fails is logged.
void Form_Load(IridiumFlaresForm& form, const ProgramState& state, Services& services);
void Form_Unload(IridiumFlaresForm& form);

/// Fetches the service's page into flares.tmp, fills the list from it and writes flares.dat. When that fails
/// the user is told, flares.dat stays as it was, and flares.tmp is left lying. Yields once, before it
/// fetches.
void BUTgetFlares_Click(IridiumFlaresForm& form, const ProgramState& state, Services& services);
/// Tells the user that `Sweb1` failed.
void Sweb1_FetchError(Services& services, std::string_view message, std::int16_t code);

/// Asks for a file and writes the report there, then tells so. What fails is logged.
void BUTsave_Click(IridiumFlaresForm& form, const ProgramState& state, Services& services);
/// Prints the report on the default printer. Throws std::runtime_error where that doesn't take it.
void BUTprint_Click(IridiumFlaresForm& form, const ProgramState& state, Services& services);
/// Opens the service's home page. Throws DesktopError.
void Picture1_Click(const ProgramState& state, Services& services);

}  // namespace vantrace
