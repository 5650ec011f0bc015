#include "passes/pass_prediction.h"

#include "catalogue/data_files.h"
#include "core/files.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/view_words.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"
#include "passes/calc_results.h"
#include "passes/group_names.h"
#include "passes/job_file.h"

namespace vantrace {

CalendarDate today(const Clock& clock) {
    const ClockParts now = clock.read().local;
    return {static_cast<std::int16_t>(now.day), static_cast<std::int16_t>(now.month),
            static_cast<std::int16_t>(now.year)};
}

void Form_Load(PassPredictionForm& form, const ProgramState& state, Services& services) {
    ApplySkin(services, form.skin);
    if (state.MainTag == mainTag::menu) return;
    form.Calendar = today(services.clock);
    fillGroups(form.Groupname, state);
    fillFavourites(form.FavouriteName, state);
    // The last one, because it can fail.
    if (!FileExists(dataFile(state, jobsFile))) return;
    for (std::string& name : jobNames(readJobs(state))) form.ListPresets.add(std::move(name));
}

void Form_Unload(PassPredictionForm& form, Services& services) {
    // A list that is being filled ends here.
    form.SatelliteName.empty({});
    services.windows.show("Main");
}

void BUTexit_Click(PassPredictionForm& /*form*/, Services& services) {
    services.windows.show("Main");
    services.windows.unload("PassPrediction");
}

void Groupname_Click(PassPredictionForm& form, ProgramState& state, Services& services) {
    const std::string group = form.Groupname.text;
    fillSatellites(form.SatelliteName, "Select Satellite", group, state, services);
}

void SatelliteName_Click(PassPredictionForm& form) {
    ++form.BUTcalcActivations;
}

void Calendar_DateClick(PassPredictionForm& form) {
    ++form.BUTcalcActivations;
}

void BUTcalc_Click(PassPredictionForm& form, ProgramState& state, Services& services) {
    const bool hasGroup = !form.Groupname.isUnselected();
    if (!hasGroup && form.FavouriteName.isUnselected()) {
        services.dialogs.message("You must select either one of the " +
                                 std::to_string(engineOf(state).EngineSatelliteCount()) +
                                 " Satellites in the database, or one of your favourites");
        return;
    }
    const std::string satellite = hasGroup ? form.SatelliteName.text : form.FavouriteName.text;
    const CalendarDate date = form.Calendar;
    CalcResults(form, state, services, satellite, date.day, date.month, date.year);
}

}  // namespace vantrace
