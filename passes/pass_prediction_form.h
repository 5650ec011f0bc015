// What the window `PassPrediction` shows and holds.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/lists.h"
#include "core/rich_text.h"
#include "core/skin.h"
#include "passes/result_list.h"

namespace vantrace {

struct CalendarDate {
    std::int16_t day = 1;
    std::int16_t month = 1;
    std::int16_t year = 2000;

    friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

struct SortProgress {
    std::size_t value = 0;
    std::size_t maximum = 0;
};

struct PassPredictionForm {
    /// From which the satellite is chosen: a group and one of its satellites, or a favourite.
    DropDown Groupname{"Select Satellite Group", {}};
    DropDown SatelliteName{"Select Satellite", {}};
    DropDown FavouriteName{"Select Favourite", {}};
    /// The day that is asked for.
    CalendarDate Calendar;
    /// Only passes that can be seen by eye are kept.
    bool CHvisOnly = false;
    /// How often `BUTcalc` was made the active control.
    unsigned BUTcalcActivations = 0;

    /// The results; the bar of their sort; where the report is put together before it is saved or printed.
    ResultList LISTpasses;
    SortProgress PROsorting;
    RichText Printed;

    /// The names of the jobs.
    NameList ListPresets;
    Skin skin;
};

}  // namespace vantrace
