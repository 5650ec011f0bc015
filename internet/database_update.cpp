#include "internet/database_update.h"

#include <string>

#include "catalogue/data_files.h"
#include "core/core_services.h"
#include "core/error_label.h"
#include "core/hosts.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "internet/updates_form.h"

namespace vantrace {

void BUTupdateDB_Click(UpdatesForm& form, ProgramState& state, Services& services) {
    if (form.isWorking) return;
    const UpdateJob job(form);
    ErrorLabel label(services, labels::updateCONUpdateDB);
    const std::string end(lineEnd);
    form.txtStatus += end + "Updating Satellite Database File...." + end;
    label.step([&] { services.events.yield(); });
    if (form.isUnloaded) return;
    const std::string file = dataFile(state, satelliteFile).string();
    const std::string url = "http://" + readHosts(state).updateHost + "/" + std::string(satelliteFile);
    label.step([&] { fetchTo(form, services, url, file); });
    label.step([&] {
        form.txtStatus +=
            "Done. Satellite Database File Size : " + kilobytesText(file, services) + " Kb)" + end;
    });
    Speak(services, "Database file updated.");
}

}  // namespace vantrace
