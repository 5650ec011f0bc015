#include "app/pictures/picture_options.h"

#include <algorithm>
#include <optional>

#include "app/commands/sky_table.h"
#include "app/program/arguments.h"
#include "core/texts.h"
#include "orbit/elements/element_catalogue.h"

namespace vantrace {

namespace {

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

}  // namespace

std::vector<OptionSyntax> pictureOptions(const std::string& primaryFallback) {
    return {
        {"out", "FILE.png", "the file to write; an old one is replaced"},
        {"size", "WxH", "pixels, up to 8192 each way (else: 1400x704)"},
        {"at", "TIME", "ISO 8601, such as 2026-08-22T10:00:00Z (else: now)"},
        {"format", "FORMAT", "for the other commands: this one writes a picture"},
        {"primary", "NAME",
         "the satellite with the track; one that is no favourite is added (else: " + primaryFallback + ")"}};
}

std::string pictureFile(const CommandContext& context) {
    if (context.format != Format::table) {
        throw UserError("this command writes a picture; --format is for the other commands");
    }
    const std::optional<std::string> out = context.line.value("out");
    if (!out || out->empty()) throw UserError("a picture needs --out FILE.png");
    return *out;
}

PictureSize pictureSize(const CommandContext& context) {
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
    return {side(std::string_view(text).substr(0, cross)),
            side(cross == std::string::npos ? "" : std::string_view(text).substr(cross + 1))};
}

PictureSatellites pictureSatellites(const CommandContext& context) {
    PictureSatellites satellites;
    satellites.names = knownFavourites(context);
    satellites.primary = primaryOf(context, satellites.names);
    return satellites;
}

}  // namespace vantrace
