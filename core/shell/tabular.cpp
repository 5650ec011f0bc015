#include "core/shell/tabular.h"

#include <algorithm>
#include <cmath>

#include "catalogue/favourites.h"
#include "core/core_services.h"
#include "core/date_time.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/spoken_name.h"
#include "core/texts.h"
#include "core/view_words.h"
#include "orbit/satcalc.h"

namespace vantrace {

namespace {

void trackNow(ProgramState& state, Services& services, std::string_view name) {
    const ClockParts now = services.clock.read().local;
    const auto small = [](int part) { return static_cast<std::int16_t>(part); };
    Satcalc(state, services, name, small(now.year), small(now.month), small(now.day), small(now.hour),
            small(now.minute), small(now.second), false);
}

void writeColumns(TableRow& row, const ProgramState& state, const Services& services) {
    const auto text = [&](double value, std::string_view picture) {
        return formatNumber(value, picture, services.format.decimalMark);
    };
    row.columns[1] = text(state.SatAzimuth, "###0.00");
    row.columns[2] = text(state.SatElevation, "###0.00");
    row.columns[3] = text(state.SatRange, "######0.00");
    row.columns[4] = text(state.SatHeight, "######0.00");
    row.columns[5] = text(state.SatLatitude, "###,0.00");
    row.columns[6] = text(state.SatLongitude, "###,0.00");
    row.columns[7] = state.SatDescending ? "Decending" : "Accending";
}

void announceRise(std::string_view name, const ProgramState& state, Services& services) {
    Speak(services, SpokenName(name) + " is now in range at heading " +
                        numberText(std::floor(state.SatAzimuth), services.format.decimalMark) + "degrees.");
}

void showObserver(TabularForm& form, const ProgramState& state, const Services& services) {
    const auto text = [&](double value) { return numberText(value, services.format.decimalMark); };
    form.Slocation = state.ObserverName;
    form.Slat = text(state.ObserverLatitude);
    form.Slong = text(state.ObserverLongitude);
    form.Sheight = text(state.ObserverHeight) + " mtrs ";
}

}  // namespace

bool SatOnMap(const TabularForm& form, std::string_view name) {
    return std::ranges::any_of(form.TabList, [&](const TableRow& row) { return row.columns[0] == name; });
}

void RefreshTable(TabularForm& form, const ProgramState& state) {
    if (state.MainTag == mainTag::menu) return;
    form.TabList.clear();
    for (std::int16_t i = 1; i <= state.FavouriteCount; ++i) {
        const std::string& name = state.Favourites[i].Name;
        if (SatOnMap(form, name)) continue;
        form.TabList.emplace_back().columns[0] = std::string(trimmed(name));
    }
}

void MainLoop(TabularForm& form, ProgramState& state, Services& services) {
    int inRange = 0;
    for (TableRow& row : form.TabList) {
        const std::string_view name = trimmed(row.columns[0]);
        if (!FavouriteExists(state, name)) continue;
        if (state.MainTag == mainTag::menu) return;
        trackNow(state, services, name);
        if (state.MainTag == mainTag::menu) return;
        writeColumns(row, state, services);
        if (state.SatElevation >= 0) {
            if (row.colour == outOfRangeColour) announceRise(name, state, services);
            row.colour = inRangeColour;
            ++inRange;
        }
        // At exactly 0 both hold: in range, white, and announced again the next time.
        if (state.SatElevation <= 0) row.colour = outOfRangeColour;
    }
    showObserver(form, state, services);
    const ClockReading now = services.clock.read();
    form.Slocaltime = services.format.timeText(now.local);
    form.Sgmt = TimeText(now.utc.hour, now.utc.minute, now.local.second);
    form.Sstatus =
        std::to_string(inRange) + " out of " + std::to_string(form.TabList.size()) + " Satellites in range";
}

void Form_Load(TabularForm& form, const ProgramState& state, Services& services) {
    if (state.MainTag == mainTag::menu) return;
    ApplySkin(services, form.skin);
    RefreshTable(form, state);
    form.Timer1.isEnabled = true;
}

void BUTexit_Click(TabularForm& form, Services& services) {
    form.Timer1.isEnabled = false;
    services.windows.show("Main");
    services.windows.unload("Tabular");
}

void Form_Unload(TabularForm& /*form*/, Services& services) {
    services.windows.show("Main");
}

}  // namespace vantrace
