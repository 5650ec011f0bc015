// The panel of upcoming passes: which favourites are in range, and when the others rise.
#pragma once

#include <cstdint>
#include <string>

namespace vantrace {

struct ProgramState;
struct RichText;
struct Services;

/// "1 minute", "Less than a minute", "7 minutes".
std::string MinutesText(std::int16_t minutes);

/// Writes the panel anew: a row for each favourite by its next rise and set, in local time, at the moment of
/// the call, whatever time the map shows. With `speak`, a favourite that comes or goes soon is announced.
/// Yields after each favourite and all through the sort and the writing, so that windows live meanwhile; when
/// `Main.Tag` becomes "menu" or "exit" it leaves at once, for good: `QuickETABusy` stays set, and no later
/// call does anything. Of those that wait the last to rise is not shown, for the unused row takes its place.
/// A favourite that doesn't rise counts as the last of all and is never shown; one that doesn't set has no
/// time of set and isn't announced.
void UpdateQuickETA(RichText& target, bool speak, ProgramState& state, Services& services);

}  // namespace vantrace
