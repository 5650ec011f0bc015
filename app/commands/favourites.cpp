// The live table of the user's favourites.
#include <array>
#include <memory>

#include "app/command.h"
#include "app/commands/sky_table.h"
#include "orbit/elements/element_set.h"

namespace vantrace {

namespace {

constexpr std::array favouriteColumns{
    Column{"name", "name", ValueForm::text},
    Column{"utc", "", ValueForm::moment},
    Column{"azimuth_deg", "az", ValueForm::figure, 1},
    Column{"elevation_deg", "el", ValueForm::figure, 1},
    Column{"range_km", "range km", ValueForm::figure, 0},
    Column{"latitude_deg", "lat", ValueForm::figure, 1},
    Column{"longitude_deg", "lon", ValueForm::figure, 1},
    Column{"height_km", "height", ValueForm::figure, 0},
    Column{"next_aos_utc", "next AOS UTC", ValueForm::tenths},
    Column{"next_los_utc", "next LOS UTC", ValueForm::tenths},
};

Value timeValue(const std::optional<Instant>& time) {
    return time ? Value(*time) : Value();
}

Row favouriteRow(const SkyEntry& entry, const Instant& time) {
    const auto degrees = [](double radians) { return radians / radiansPerDegree; };
    Row row(favouriteColumns.size());
    row[0] = entry.name;
    row[1] = time;
    if (entry.place) {
        row[2] = degrees(entry.place->azimuthRad);
        row[3] = degrees(entry.place->elevationRad);
        row[4] = entry.place->rangeKm;
        row[5] = degrees(entry.place->latitudeRad);
        row[6] = eastLongitude(degrees(entry.place->longitudeRad));
        row[7] = entry.place->heightKm;
    }
    row[8] = timeValue(entry.nextRise);
    row[9] = timeValue(entry.nextSet);
    return row;
}

int runFavourites(const CommandContext& context) {
    const Instant time = timeOrNow(context, "at");
    const std::vector<std::string> names = knownFavourites(context);
    const std::unique_ptr<RowWriter> rows = context.rows(favouriteColumns);
    bool isComplete = true;
    for (const std::string& name : names) {
        const SkyEntry entry = skyEntry(context, name, time);
        isComplete = isComplete && entry.isComplete;
        rows->add(favouriteRow(entry, time));
    }
    rows->finish();
    return isComplete ? exit_status::good : exit_status::incomplete;
}

}  // namespace

Command favouritesCommand() {
    CommandSyntax syntax;
    syntax.name = "favourites";
    syntax.summary = "Tells where the favourites of faves.dat are, and when they rise and set next.";
    syntax.details =
        "Of a favourite that is up, the next LOS is the end of this pass and the next AOS the rise after it. "
        "A time that isn't there is more than 30 days off, or never comes. faves.dat stays as it is.";
    syntax.options = {{"at", "TIME", "ISO 8601 (else: now)"}};
    return {syntax, true, runFavourites};
}

}  // namespace vantrace
