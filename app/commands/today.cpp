// A page for whoever has no screen: the sky now, and the passes of the next day.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "app/command.h"
#include "app/commands/sky_table.h"
#include "app/commands/today_passes.h"
#include "app/commands/today_texts.h"
#include "app/program/arguments.h"
#include "app/program/figure_text.h"
#include "app/program/printable.h"
#include "app/program/program_name.h"
#include "orbit/elements/element_catalogue.h"
#include "orbit/elements/element_set.h"

namespace vantrace {

namespace {

constexpr std::array skyColumns{
    Column{"name", "name", ValueForm::text},
    Column{"up", "now", ValueForm::text},
    Column{"azimuth_deg", "az", ValueForm::figure, 1},
    Column{"direction", "dir", ValueForm::text},
    Column{"elevation_deg", "el", ValueForm::figure, 1},
    Column{"range_km", "range km", ValueForm::figure, 0},
    Column{"latitude_deg", "lat", ValueForm::figure, 1},
    Column{"longitude_deg", "lon", ValueForm::figure, 1},
    Column{"height_km", "height km", ValueForm::figure, 0},
    Column{"next", "next, UTC", ValueForm::text},
};

/// "sets 10:21:30", "rises 24 Nov 03:10:00"; nothing where nobody could find out.
std::string nextEvent(const SkyEntry& entry, const Instant& now) {
    const std::optional<Instant>& time = entry.isUp() ? entry.nextSet : entry.nextRise;
    if (!time && !entry.isComplete) return {};
    if (!time) return entry.isUp() ? "stays up" : "stays down";
    return (entry.isUp() ? "sets " : "rises ") + shortTimeText(*time, now);
}

Row skyRow(const SkyEntry& entry, const Instant& now) {
    Row row(skyColumns.size());
    row[0] = entry.name;
    if (!entry.place) return row;
    row[1] = entry.isUp() ? "up" : "";
    row[2] = degreesOf(entry.place->azimuthRad);
    row[3] = std::string(compassPoint(entry.place->azimuthRad));
    row[4] = degreesOf(entry.place->elevationRad);
    row[5] = entry.place->rangeKm;
    row[6] = degreesOf(entry.place->latitudeRad);
    row[7] = eastLongitude(degreesOf(entry.place->longitudeRad));
    row[8] = entry.place->heightKm;
    row[9] = nextEvent(entry, now);
    return row;
}

/// True where everything could be computed.
bool writeSky(const CommandContext& context, const std::vector<std::string>& names, const Instant& now) {
    std::vector<SkyEntry> entries;
    for (const std::string& name : names) entries.push_back(skyEntry(context, name, now));
    std::ranges::stable_sort(entries, std::greater(), [](const SkyEntry& entry) {
        return entry.place ? entry.place->elevationRad : -pi;
    });
    std::vector<Row> rows;
    rows.reserve(entries.size());
    for (const SkyEntry& entry : entries) rows.push_back(skyRow(entry, now));
    context.console().out << "\nTHE SKY NOW\n\n";
    writeTable(skyColumns, rows, context.console().out);
    return std::ranges::all_of(entries, &SkyEntry::isComplete);
}

std::string bodyText(OrbitEngine& engine, std::string_view body, const Instant& now) {
    const TrackResult place = engine.track(body, now);
    return roundedText(std::abs(degreesOf(place.elevationRad)), 0) + " degrees " +
           (place.elevationRad > 0.0 ? "up" : "below the horizon") + " in the " +
           std::string(compassPoint(place.azimuthRad));
}

std::string ageText(OrbitEngine& engine, const std::vector<std::string>& names, const Instant& now) {
    double youngest = 1.0e9;
    double oldest = -1.0e9;
    for (const std::string& name : names) {
        const double days = secondsBetween(engine.catalogue().find(name)->set->epoch, now) / secondsPerDay;
        youngest = std::min(youngest, days);
        oldest = std::max(oldest, days);
    }
    if (names.empty()) return "";
    constexpr double oldDays = 14.0;
    return ", those of the favourites " + roundedText(youngest, 1) + " to " + roundedText(oldest, 1) +
           " days old" +
           (oldest > oldDays ? "\n           (older than two weeks: fetch new ones for good times)" : "");
}

void writeHead(const CommandContext& context, const std::vector<std::string>& names, const Instant& now) {
    OrbitEngine& engine = context.engine();
    const Site& site = context.program.site();
    const int offset = minutesEast(context.program.services().clock);
    context.console().out << "Site       " << printable(site.name) << ", " << placeText(site) << "\n"
                          << "           another one: " << programName << " today --site LAT,LON,HEIGHT_M\n"
                          << "Time       " << wholeTimeText(now) << " UTC, local "
                          << shortTimeText(plusMinutes(now, offset), now) << " (" << offsetText(offset)
                          << ")\n"
                          << "Elements   " << engine.EngineSatelliteCount() << " satellites in "
                          << engine.catalogue().files().size() << " files" << ageText(engine, names, now)
                          << "\n"
                          << "Sun        " << bodyText(engine, "sun", now) << "\n"
                          << "Moon       " << bodyText(engine, "moon", now) << "\n";
}

int runToday(const CommandContext& context) {
    if (context.format != Format::table)
        throw UserError("today is a page of text; --format csv is for the other commands");
    const Instant now = context.program.now();
    const std::vector<std::string> names = knownFavourites(context);
    writeHead(context, names, now);
    const bool hasSky = writeSky(context, names, now);
    const bool hasPasses = writeTodaysPasses(context, names, now);
    return hasSky && hasPasses ? exit_status::good : exit_status::incomplete;
}

}  // namespace

Command todayCommand() {
    CommandSyntax syntax;
    syntax.name = "today";
    syntax.summary =
        "Shows a page of text: the sky now and the passes of the favourites over the next 24 hours.";
    syntax.details = "Those above the horizon come first. Times are UTC, and local where it says so.";
    syntax.options = {{"format", "FORMAT", "table alone: this is a page of text"}};
    return {syntax, true, runToday};
}

}  // namespace vantrace
