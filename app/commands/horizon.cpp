// The panorama of the sky as a picture.
#include <string>

#include "app/command.h"
#include "app/pictures/horizon_picture.h"
#include "app/program/arguments.h"
#include "core/texts.h"

namespace vantrace {

namespace {

bool isCentredOnNorth(const CommandContext& context) {
    const std::string text = context.line.value("centre").value_or("south");
    if (equalsIgnoringCase(text, "north")) return true;
    if (equalsIgnoringCase(text, "south")) return false;
    throw UserError("--centre: " + inQuotes(text) + " is neither north nor south");
}

int runHorizon(const CommandContext& context) {
    const std::string file = pictureFile(context);
    const bool isNorth = isCentredOnNorth(context);
    const PictureSize size = pictureSize(context);
    StillProgram program(context, timeOrNow(context, "at"), "horizon");
    const PictureSatellites satellites = pictureSatellites(context);
    program.setSatellites(satellites.names, satellites.primary);
    // Without a wish it is the first one above the horizon.
    if (!context.line.value("primary")) program.state().PrimarySatIndex = 0;
    HorizonPicture picture(program, size, isNorth);
    picture.loadLandscape();
    program.services().pictures.save(picture.paint(), file);
    return program.isComplete() ? exit_status::good : exit_status::incomplete;
}

}  // namespace

Command horizonCommand() {
    CommandSyntax syntax;
    syntax.name = "horizon";
    syntax.summary = "Writes a picture of the sky around the site, as the tracker paints it, to a PNG file.";
    syntax.details =
        "The whole circle of azimuth along the width, from the horizon at the lower edge to the zenith: sun, "
        "moon, the favourites of faves.dat, and the path of the primary one over the next minutes. A primary "
        "satellite below the horizon has none. The settings of the tracker count; neither they nor the "
        "program folder are written to. A time is cut to its whole second.";
    syntax.options = pictureOptions("the first favourite above the horizon");
    syntax.options.push_back({"centre", "north|south", "what is in the middle (else: south)"});
    // It reads the site itself, so that no default of it is stored.
    return {syntax, false, runHorizon};
}

}  // namespace vantrace
