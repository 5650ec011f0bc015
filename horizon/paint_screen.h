// One frame of the panorama of the sky.
#pragma once

#include <cstddef>
#include <string_view>

namespace vantrace {

struct HorizonForm;
struct HorizonSurfaces;
struct ProgramState;
struct Services;

/// Places sun, moon and every favourite in the sky as it is now and paints all of `Final`: landscape, compass
/// words, a sentence on the sun and one on the moon, the satellites, the path of the selected one, the line
/// at the bottom. Selects, and says so, the first satellite above the horizon where none is selected. What
/// fails is logged and costs just itself. Yields nowhere.
void PaintScreen(HorizonSurfaces& surfaces, const HorizonForm& form, ProgramState& state, Services& services);

/// Where the satellite will be in the next 1600 seconds, from 10 seconds on, as green dots up to where it
/// sets. One that is below the horizon by then is let go: nothing is selected after that.
void DrawSkyTrack(HorizonSurfaces& surfaces, const HorizonForm& form, ProgramState& state, Services& services,
                  std::string_view name);

/// The picture of a satellite in the sky, and how far left of its place its name starts, in pixels.
struct SkySatelliteLook {
    std::size_t picture = 0;
    int nameOffset = 14;

    friend bool operator==(const SkySatelliteLook&, const SkySatelliteLook&) = default;
};
/// By the name as it is written; of those that fit the last one counts.
SkySatelliteLook skySatelliteLook(std::string_view name);

}  // namespace vantrace
