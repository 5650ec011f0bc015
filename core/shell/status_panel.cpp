#include "core/shell/status_panel.h"

#include "catalogue/element_files.h"
#include "core/date_time.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "core/view_words.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"
#include "orbit/sunrise.h"

namespace vantrace {

namespace {

constexpr std::int32_t daysOfWeek = 7;

/// Without a file that tells an age the text stays as it was.
void showElementAge(MainForm& form, ProgramState& state, Services& services, ErrorLabel& label) {
    const std::string file = elementFileName(state.Groups[1].Url);
    std::int16_t start = 0;
    label.step([&] { start = FindFirstKepLine(state, services, file); });
    // The search yields, and the user may have left.
    if (state.MainTag == mainTag::exit) return;
    std::string line1;
    label.step([&] { line1 = lineFoundAfter(state, file, start); });
    std::int32_t epochYear = 0;
    std::int32_t epochDay = 0;
    const bool isYearKnown = label.step([&] { epochYear = elementEpochYear(line1); });
    const bool isDayKnown = label.step([&] { epochDay = elementEpochDay(line1); });
    if (!isYearKnown || !isDayKnown) return;
    label.step([&] {
        const double now = NowLocal(services.clock);
        const std::string age = elementAgeText(DayOfYear(monthDayYearText(now)) - epochDay);
        if (!age.empty()) form.Status2 = age;
        if (dateParts(now).year > epochYear) form.Status2 = "The Keplerian Elements are from Last year.";
    });
}

void showObserver(MainForm& form, const ProgramState& state, const Services& services) {
    const auto text = [&](double value) { return numberText(value, services.format.decimalMark); };
    form.Status3 = "Current Location settings are: " + state.ObserverName;
    form.Status4 = text(state.ObserverLatitude) + " deg Latitude and " + text(state.ObserverLongitude) +
                   " deg Longitude";
    form.Status5 = text(state.ObserverHeight) + " Metres above sea level";
}

void showSunTimes(MainForm& form, ProgramState& state, Services& services, ErrorLabel& label) {
    clsSunrise sun(NowLocal(services.clock));
    sun.Latitude(state.ObserverLatitude);
    label.step([&] { sun.Longitude(360 - engineOf(state).EngineGetLongitude()); });
    sun.TimeZone(0);
    label.step([&] { sun.CalculateSun(); });
    label.step([&] {
        const auto hourAndMinute = [&](std::optional<double> utc) {
            const DateParts local = dateParts(ToLocal(services.clock, utc.value()));
            return TimeText(local.hour, local.minute, local.second).substr(0, 5);
        };
        form.lblSunRiseSet = "Sun Rise: " + hourAndMinute(sun.Sunrise()) +
                             " - Solar Noon: " + hourAndMinute(sun.SolarNoon()) +
                             " - Sun Set: " + hourAndMinute(sun.Sunset());
    });
}

}  // namespace

std::string elementAgeText(std::int32_t ageDays) {
    if (ageDays < 0) return {};
    if (ageDays == 0) return "The Keplerian Elements are Brand-new!";
    if (ageDays == 1) return "The Keplerian Elements are 1 day old";
    const std::string days = std::to_string(ageDays);
    if (ageDays < 2 * daysOfWeek) return "The Keplerian Elements are " + days + " Days old";
    if (ageDays <= 4 * daysOfWeek) {
        return "The Keplerian Elements are " + std::to_string(ageDays / daysOfWeek) + " weeks old";
    }
    return "The Keplerian Elements are more than a Month old (" + days + " days)";
}

void refreshStatusPanel(MainForm& form, ProgramState& state, Services& services, ErrorLabel& label) {
    label.step([&] { engineOf(state).EngineSetKepPath(state.AppPath); });
    showElementAge(form, state, services, label);
    if (state.MainTag == mainTag::exit) return;
    showObserver(form, state, services);
    showSunTimes(form, state, services, label);
}

}  // namespace vantrace
