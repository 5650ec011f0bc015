#include "passes/calc_results.h"

#include <cmath>
#include <string_view>
#include <vector>

#include "core/config.h"
#include "core/date_time.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"
#include "orbit/pass_record.h"
#include "orbit/satcalc.h"
#include "passes/pass_prediction_form.h"

namespace vantrace {

namespace {

/// The records of the engine's answer, up to the first empty one.
std::vector<std::string> recordsOf(const std::string& answer) {
    const std::string list = replacedAll(answer, "\"", "");
    std::vector<std::string> records;
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t end = std::min(list.find(',', start), list.size());
        if (end == start) break;
        records.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    return records;
}

/// A pass in local time.
struct PassOfDay {
    double peakDeg = 0;
    std::int32_t lengthSeconds = 0;
    double startLocal = 0;
    double duration = 0;
    DateParts start;
    DateParts middle;
    DateParts end;
};

DateParts later(DateParts parts, std::int32_t seconds) {
    parts.second += seconds;
    return dateParts(packDateTime(parts));
}

PassOfDay passOf(const std::string& record, const Clock& clock) {
    constexpr double secondsPerDay = 86400;
    PassOfDay pass;
    pass.startLocal = ToLocal(clock, passRiseUtc(record));
    pass.start = dateParts(pass.startLocal);
    pass.peakDeg = std::floor(passNumber(record, passElevationWord));
    pass.lengthSeconds = toInteger32(passNumber(record, passLengthWord));
    pass.duration = pass.lengthSeconds / secondsPerDay;
    // In whole seconds: half a second up, whatever noise a day number has.
    pass.middle = later(pass.start, (pass.lengthSeconds + 1) / 2);
    pass.end = later(pass.start, pass.lengthSeconds);
    return pass;
}

/// What `Satcalc` tells of a pass.
struct Sight {
    std::int16_t startAzimuth = 0;
    std::int16_t middleAzimuth = 0;
    std::int16_t endAzimuth = 0;
    bool isSunlit = false;
    bool isInTwilight = false;
};

class Looker {
  public:
    Looker(ProgramState& state, Services& services, std::string_view satellite)
        : m_state(state), m_services(services), m_satellite(satellite) {}

    Sight sightOf(const PassOfDay& pass) {
        Sight sight;
        sight.startAzimuth = azimuthAt(pass.start, true);
        sight.isSunlit = m_state.SatSunlit;
        sight.endAzimuth = azimuthAt(pass.end, true);
        sight.isSunlit = sight.isSunlit || m_state.SatSunlit;
        sight.middleAzimuth = azimuthAt(pass.middle, false);
        if (sight.isSunlit) sight.isInTwilight = isTwilightAt(pass.start);
        return sight;
    }

  private:
    void calculate(std::string_view name, const DateParts& parts, bool isPrimary) {
        const auto small = [](int part) { return static_cast<std::int16_t>(part); };
        Satcalc(m_state, m_services, name, small(parts.year), small(parts.month), small(parts.day),
                small(parts.hour), small(parts.minute), small(parts.second), isPrimary);
    }
    std::int16_t azimuthAt(const DateParts& parts, bool isPrimary) {
        // Only the selected satellite is tested for sunlight.
        m_state.PrimarySatName = m_satellite;
        calculate(m_satellite, parts, isPrimary);
        return toInteger16(m_state.SatAzimuth);
    }
    bool isTwilightAt(const DateParts& parts) {
        constexpr double darkestDeg = -18.0;
        constexpr double brightestDeg = -6.0;
        calculate("sun", parts, false);
        return !(m_state.SatElevation < darkestDeg) && !(m_state.SatElevation > brightestDeg);
    }

    ProgramState& m_state;
    Services& m_services;
    std::string_view m_satellite;
};

std::string azimuthText(std::int16_t azimuth) {
    return formatNumber(azimuth, "000");
}

ResultRow rowOf(std::string_view satellite, const PassOfDay& pass, const Sight& sight) {
    constexpr int longestHours = 10;
    ResultRow row;
    row.startLocal = pass.startLocal;
    row.lengthSeconds = pass.lengthSeconds;
    row[ResultColumn::Satellite] = satellite;
    row[ResultColumn::Date] = MonthDayText(pass.start.day, pass.start.month);
    row[ResultColumn::Time] = TimeText(pass.start.hour, pass.start.minute, pass.start.second);
    row[ResultColumn::StartAZ] = azimuthText(sight.startAzimuth);
    row[ResultColumn::MaxElevation] =
        formatNumber(pass.peakDeg, "00") + " (AZ " + azimuthText(sight.middleAzimuth) + ")";
    row[ResultColumn::Duration] = TimeText(0, 0, pass.lengthSeconds);
    row[ResultColumn::EndAz] = azimuthText(sight.endAzimuth);
    // What stays up. Whole days of a length count for nothing here.
    if (dateParts(pass.duration).hour > longestHours) {
        row[ResultColumn::Duration] = "24 Hours";
        row[ResultColumn::Time] = "00:00:00";
    }
    row[ResultColumn::Sunlit] = sight.isSunlit ? yesText : noText;
    row[ResultColumn::Visible] = sight.isInTwilight ? yesText : noText;
    return row;
}

void askForSelection(PassPredictionForm& form) {
    form.Groupname.show("Select Satellite Group");
    form.SatelliteName.show("Select a Satellite");
    form.FavouriteName.show("Select a Favourite");
}

}  // namespace

void CalcResults(PassPredictionForm& form, ProgramState& state, Services& services,
                 const std::string& Satname, std::int16_t Day, std::int16_t Month, std::int16_t Year) {
    constexpr int mode = 1;
    constexpr int spanDays = 3;
    const double dayBefore = packDateTime({Year, Month, Day, 0, 0, 0}) - 1;
    Looker looker(state, services, Satname);
    for (const std::string& record :
         recordsOf(engineOf(state).EnginePassList(Satname, dayBefore, mode, spanDays, 0, 0))) {
        const PassOfDay pass = passOf(record, services.clock);
        if (numberValue(GetConfig(services, settings::wxEl)) > pass.peakDeg) continue;
        if (pass.end.day != Day) continue;
        const ResultRow row = rowOf(Satname, pass, looker.sightOf(pass));
        form.LISTpasses.add(row);
        if (form.CHvisOnly && row[ResultColumn::Visible] == noText) form.LISTpasses.removeLast();
    }
    services.events.yield();
    // Satname may be one of these texts; it has served.
    askForSelection(form);
}

}  // namespace vantrace
