// The world map as a picture.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "app/command.h"
#include "app/pictures/map_picture.h"
#include "app/program/arguments.h"
#include "core/texts.h"
#include "core/view_words.h"

namespace vantrace {

namespace {

std::vector<std::string_view> viewNames() {
    std::vector<std::string_view> names{mainTag::world, mainTag::worldAlt};
    names.insert(names.end(), mainTag::regions.begin(), mainTag::regions.end());
    return names;
}

std::string viewOption(const CommandContext& context) {
    const std::vector<std::string_view> views = viewNames();
    const std::string text = context.line.value("view").value_or(std::string(views.front()));
    const auto view =
        std::ranges::find_if(views, [&](std::string_view each) { return equalsIgnoringCase(each, text); });
    if (view != views.end()) return std::string(*view);
    std::string all;
    for (const std::string_view each : views) all += (all.empty() ? "" : ", ") + std::string(each);
    throw UserError("--view: " + inQuotes(text) + " is none of " + all);
}

int runMap(const CommandContext& context) {
    const std::string file = pictureFile(context);
    const std::string view = viewOption(context);
    const PictureSize size = pictureSize(context);
    StillProgram program(context, timeOrNow(context, "at"), view);
    const PictureSatellites satellites = pictureSatellites(context);
    program.setSatellites(satellites.names, satellites.primary);
    MapPicture picture(program, size);
    picture.loadWorld();
    program.services().pictures.save(picture.paint(), file);
    return program.isComplete() ? exit_status::good : exit_status::incomplete;
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
    syntax.options = pictureOptions("the first favourite");
    syntax.options.push_back({"view", "WORD", "which part of the world (else: worldnormal)"});
    // It reads the site itself, so that no default of it is stored.
    return {syntax, false, runMap};
}

}  // namespace vantrace
