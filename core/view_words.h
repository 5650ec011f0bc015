// What `Main.Tag` and `NextView` say, and the views' switch by them.
#pragma once

#include <array>
#include <string_view>

namespace vantrace {

struct ProgramState;
struct Services;

namespace mainTag {

/// The user is back in the menu, or has ended the program: what runs at a yield leaves at once.
inline constexpr std::string_view menu = "menu";
inline constexpr std::string_view exit = "exit";
inline constexpr std::string_view horizon = "horizon";
inline constexpr std::string_view tabular = "tabular";
inline constexpr std::string_view passPrediction = "passprediction";
inline constexpr std::string_view eta = "ETA";
inline constexpr std::string_view threeD = "3D";
/// The whole world on the map, with Greenwich or the date line in the middle.
inline constexpr std::string_view world = "worldnormal";
inline constexpr std::string_view worldAlt = "worldalt";
/// The parts of the world on the map: north and south; west, centre and east.
inline constexpr std::array<std::string_view, 6> regions = {"NWQ", "NCQ", "NEQ", "SWQ", "SCQ", "SEQ"};

}  // namespace mainTag

namespace nextView {

inline constexpr std::string_view horizon = "Horizon";
inline constexpr std::string_view pass = "pass";
inline constexpr std::string_view world = "world";
inline constexpr std::string_view threeD = "3D";

}  // namespace nextView

/// Whether `Main.Tag` says that the views have been left.
bool hasLeftViews(const ProgramState& state);

/// The `Main.Tag` of a map of the whole world, as the user has it.
std::string_view worldTag(Services& services);

/// Unloads a view, so that `Main` comes back and opens the next one. Where that needs a window that isn't
/// there, the view stays.
void switchView(ProgramState& state, Services& services, std::string_view from, std::string_view next,
                std::string_view neededWindow);

}  // namespace vantrace
