// The live table: every favourite a row, refreshed once a second.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/skin.h"
#include "core/timer_state.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// The colours of a row: satellite above the horizon, below it, and before it has been looked at. The last is
/// the list's own; being none of the others, it keeps those that are up when the table is opened from being
/// announced as risen.
inline constexpr Colour inRangeColour = 0x0030FF;
inline constexpr Colour outOfRangeColour = 0xFFFFFF;
inline constexpr Colour listColour = 0xDDDDDD;

inline constexpr std::size_t tableColumns = 8;
/// Spelled as they are shown; the last column tells the direction.
inline constexpr std::array<const char*, tableColumns> tableHeadings = {
    "Satellite",   "Azimuth (deg)",  "Elevation (deg)", "Range (km)",
    "Height (km)", "Latitude (deg)", "Logitude (deg)",  "Orbit Number"};

struct TableRow {
    std::array<std::string, tableColumns> columns;
    Colour colour = listColour;

    friend bool operator==(const TableRow&, const TableRow&) = default;
};

/// What the window `Tabular` shows and holds.
struct TabularForm {
    std::vector<TableRow> TabList;
    TimerState Timer1{1000, false};
    /// The observer: name, latitude, longitude, height; local time and UTC; how many are in range.
    std::string Slocation;
    std::string Slat;
    std::string Slong;
    std::string Sheight;
    std::string Slocaltime;
    std::string Sgmt;
    std::string Sstatus;
    Skin skin;
};

/// Whether a row bears that name.
bool SatOnMap(const TabularForm& form, std::string_view name);

/// Makes the rows anew, one for each name among the favourites.
void RefreshTable(TabularForm& form, const ProgramState& state);

/// One refresh: every row whose satellite is still a favourite, the observer, the status. A satellite that
/// has risen since the last one is announced.
void MainLoop(TabularForm& form, ProgramState& state, Services& services);

void Form_Load(TabularForm& form, const ProgramState& state, Services& services);
void BUTexit_Click(TabularForm& form, Services& services);
/// Shows `Main`, which tears the view down.
void Form_Unload(TabularForm& form, Services& services);

}  // namespace vantrace
