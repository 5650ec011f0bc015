#include "app/program/site.h"

#include <cmath>
#include <optional>
#include <vector>

#include "app/program/arguments.h"
#include "app/program/figure_text.h"
#include "core/config.h"
#include "core/numbers.h"
#include "core/services.h"
#include "core/texts.h"

namespace vantrace {

namespace {

constexpr NumberRange latitudes{-90.0, 90.0};
constexpr NumberRange longitudes{-180.0, 180.0};
/// From below the deepest mine to above every balloon.
constexpr NumberRange heightsM{-20000.0, 100000.0};

[[noreturn]] void failSite(std::string_view text, const std::string& why) {
    throw UserError("--site: " + inQuotes(text) + " " + why +
                    "; wanted is LAT,LON,HEIGHT_M, such as 47.38,8.54,450");
}

double part(std::string_view site, std::string_view text, std::string_view what, const NumberRange& range) {
    const std::optional<double> value = parseNumber(text);
    if (!value) failSite(site, "has a " + std::string(what) + " that is no number");
    if (*value < range.least || *value > range.most) {
        failSite(site, "has a " + std::string(what) + " outside " + shortestText(range.least) + " to " +
                           shortestText(range.most));
    }
    return *value;
}

double checkedSetting(const Setting& setting, const std::string& text, std::optional<double> value,
                      const NumberRange& range) {
    if (value && *value >= range.least && *value <= range.most) return *value;
    throw UserError("the stored setting " + inQuotes(setting.key) + " is " + inQuotes(text) +
                    ", which is no number of " + shortestText(range.least) + " to " +
                    shortestText(range.most) + "; name another place by --site");
}

/// Stored without marks of thousands, so that a comma in it is a decimal mark on any machine.
double numberSetting(Services& services, const Setting& setting, const NumberRange& range) {
    const std::string text = GetConfig(services, setting);
    return checkedSetting(setting, text, parseNumber(replacedAll(text, ",", ".")), range);
}

}  // namespace

double eastLongitude(double longitudeDeg) {
    const double turned = std::remainder(longitudeDeg, 360.0);
    return turned <= -180.0 ? 180.0 : turned;
}

Site parseSite(std::string_view text) {
    std::vector<std::string> parts(1);
    for (const char character : text) {
        if (character == ',') {
            parts.emplace_back();
        } else {
            parts.back() += character;
        }
    }
    if (parts.size() != 3) failSite(text, "has not three parts");
    Site site;
    site.name = "the given site";
    site.latitudeDeg = part(text, parts[0], "latitude", latitudes);
    site.longitudeDeg = part(text, parts[1], "longitude", longitudes);
    site.heightM = part(text, parts[2], "height", heightsM);
    return site;
}

Site siteOfSettings(Services& services) {
    constexpr NumberRange westLongitudes{-360.0, 360.0};
    Site site;
    site.name = GetConfig(services, settings::locationName);
    site.latitudeDeg = numberSetting(services, settings::latitude, latitudes);
    site.longitudeDeg = eastLongitude(-numberSetting(services, settings::longitude, westLongitudes));
    site.heightM = numberSetting(services, settings::hasl, heightsM);
    return site;
}

std::string placeText(const Site& site) {
    return roundedText(std::abs(site.latitudeDeg), 4) + (site.latitudeDeg < 0.0 ? " S " : " N ") +
           roundedText(std::abs(site.longitudeDeg), 4) + (site.longitudeDeg < 0.0 ? " W, " : " E, ") +
           roundedText(site.heightM, 0) + " m";
}

}  // namespace vantrace
