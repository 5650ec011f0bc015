// What the program says of its own accord, or when asked, about the favourites.
#pragma once

#include <string>

namespace vantrace {

struct ProgramState;
struct Services;

/// An angle as it is spoken: without its fraction, towards minus infinity.
std::string wholeDegrees(double degrees);

/// Speaks where the favourites stand as seen by the observer, from the angles that the table `Favourites`
/// holds; with `onlyInRange` those at an elevation of 0 or more, else all.
void AnnouncePositions(const ProgramState& state, Services& services, bool onlyInRange);

/// Speaks which favourites rise within the next minutes, yielding after each. `muting` is the map's field of
/// that name: anything but 0 and nothing is said. A failure is logged under the map's label.
void Makeannouncment(ProgramState& state, Services& services, int muting);

}  // namespace vantrace
