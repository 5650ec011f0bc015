// The world map as a picture.
#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "app/arguments.h"
#include "app/command.h"
#include "app/commands/sky_table.h"
#include "app/map_picture.h"
#include "core/texts.h"
#include "orbit/elements/element_catalogue.h"

namespace vantrace {

namespace {

constexpr std::array<std::string_view, 8> views{"worldnormal", "worldalt", "NWQ", "NCQ",
                                                "NEQ",         "SWQ",      "SCQ", "SEQ"};

std::string viewOption(const CommandContext& context) {
    const std::string text = context.line.value("view").value_or(std::string(views.front()));
    const auto* const view =
        std::ranges::find_if(views, [&](std::string_view each) { return equalsIgnoringCase(each, text); });
    if (view != views.end()) return std::string(*view);
    std::string all;
    for (const std::string_view each : views) all += (all.empty() ? "" : ", ") + std::string(each);
    throw UserError("--view: " + inQuotes(text) + " is none of " + all);
}

void readSize(const CommandContext& context, MapWish& wish) {
    constexpr double most = 8192;
    const std::string text = context.line.value("size").value_or("1400x704");
    const std::size_t cross = lowerCased(text).find('x');
    const auto side = [&](std::string_view part) {
        const std::optional<double> number = parseNumber(part);
        if (!number || *number < 1 || *number > most || *number != static_cast<int>(*number)) {
            throw UserError("--size: " + inQuotes(text) +
                            " is no size such as 1400x704, with 1 to 8192 pixels each way");
        }
        return static_cast<int>(*number);
    };
    wish.width = side(std::string_view(text).substr(0, cross));
    wish.height = side(cross == std::string::npos ? "" : std::string_view(text).substr(cross + 1));
}

/// Which of the satellites is the primary one. One that is no favourite is put behind them.
std::size_t primaryOf(const CommandContext& context, std::vector<std::string>& names) {
    const std::optional<std::string> option = context.line.value("primary");
    if (!option) return 0;
    const std::string name = nameOf(context, *option, false);
    const ElementCatalogue& catalogue = context.engine().catalogue();
    // A favourite's name may be cut.
    const auto favourite = std::ranges::find_if(
        names, [&](const std::string& each) { return catalogue.find(each) == catalogue.find(name); });
    const auto place = static_cast<std::size_t>(favourite - names.begin());
    if (favourite == names.end()) names.push_back(name);
    return place;
}

int runMap(const CommandContext& context) {
    if (context.format != Format::table)
        throw UserError("map writes a picture; --format csv is for the other commands");
    const std::optional<std::string> out = context.line.value("out");
    if (!out || out->empty()) throw UserError("map needs --out FILE.png");
    MapWish wish;
    wish.view = viewOption(context);
    readSize(context, wish);
    wish.time = timeOrNow(context, "at");
    std::vector<std::string> names = knownFavourites(context);
    const std::size_t primary = primaryOf(context, names);

    MapPicture picture(context, wish);
    picture.setSatellites(names, primary);
    picture.loadWorld();
    context.program.services().pictures.save(picture.paint(), *out);
    return picture.isComplete() ? exit_status::good : exit_status::incomplete;
}

}  // namespace

Command mapCommand() {
    CommandSyntax syntax;
    syntax.name = "map";
    syntax.summary = "Writes a picture of the world map, as the tracker paints it, to a PNG file.";
    syntax.details =
        "The map has the favourites of faves.dat with the ground track and the footprint of the primary one, "
        "the places of locations.dat, day and night, sun and moon, and follows the settings of the tracker; "
        "neither they nor the program folder are written to. The views are worldnormal (Greenwich in the "
        "middle), worldalt (the date line in the middle) and the regions NWQ, NCQ, NEQ, SWQ, SCQ and SEQ: "
        "the "
        "north and the south, west, centre and east. A time is cut to its whole second.";
    syntax.options = {{"out", "FILE.png", "the file to write; an old one is replaced"},
                      {"size", "WxH", "pixels, up to 8192 each way (else: 1400x704)"},
                      {"at", "TIME", "ISO 8601, such as 2026-08-22T10:00:00Z (else: now)"},
                      {"view", "WORD", "which part of the world (else: worldnormal)"},
                      {"primary", "NAME",
                       "the satellite with the track; one that is no favourite is added "
                       "(else: the first favourite)"}};
    // It reads the site itself, so that no default of it is stored.
    return {syntax, false, runMap};
}

}  // namespace vantrace
