#include "passes/pass_wizard.h"

#include "core/error_label.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "passes/group_names.h"
#include "passes/job_file.h"

namespace vantrace {

namespace {

constexpr std::string_view satellitePrompt = "Select a Satellite";
constexpr int offsetFromParent = 100;

/// None where the window isn't there; it isn't made for the question.
PassPredictionWindow* passPrediction(Services& services) {
    if (!services.windows.isLoaded("PassPrediction")) return nullptr;
    return dynamic_cast<PassPredictionWindow*>(services.windows.refer("PassPrediction"));
}

bool mayBeLost(Services& services) {
    return services.dialogs.question("You will loose the information for this job, Are you sure ?",
                                     "Cancel Job");
}

/// What is missing from a job; empty where nothing is.
std::string_view missingFrom(const PassWizardForm& form) {
    if (trimmed(form.Tname).empty()) return "you must choose a job name";
    if (trimmed(form.Tnumofdays).empty()) return "You must fill in the days box";
    if (form.SatList.list.empty()) return "You havn't chosen any satellites";
    return {};
}

}  // namespace

void Form_Load(PassWizardForm& form, ProgramState& state, Services& services) {
    if (const PassPredictionWindow* const parent = passPrediction(services)) {
        const WindowCorner corner = parent->corner();
        form.corner = WindowCorner{corner.left + offsetFromParent, corner.top + offsetFromParent};
    }
    ApplySkin(services, form.skin);
    fillGroups(form.COMgroup, state);
}

void showJob(PassWizardForm& form, const JobToEdit& job) {
    form.Tname = job.name;
    for (const std::string& satellite : job.satellites) form.SatList.add(satellite);
    if (job.days) form.Tnumofdays = *job.days;
    form.CHsave = job.isSaved;
    form.CHprint = job.isPrinted;
}

void COMgroup_Click(PassWizardForm& form, ProgramState& state, Services& services) {
    const std::string group = form.COMgroup.text;
    fillSatellites(form.COMsatname, satellitePrompt, group, state, services);
}

void BUTadd_Click(PassWizardForm& form, Services& services) {
    if (form.COMgroup.text.find("Select") != std::string::npos) {
        services.dialogs.message("First select a Group, then a satellite, then click the add button");
        return;
    }
    // This looks for the word of the answer, not for its number, and so never finds it: the prompt can become
    // a satellite of the job. Jobs that were made so are about; the program goes on reading and writing them.
    const std::string_view isUnchosen = form.COMsatname.text == satellitePrompt ? "True" : "False";
    if (std::string_view("1").find(isUnchosen) != std::string_view::npos) {
        services.dialogs.message("Select a satellite first");
        return;
    }
    form.SatList.add(form.COMsatname.text);
}

void BUTremove_Click(PassWizardForm& form, Services& services) {
    if (!form.SatList.isSelected()) {
        services.dialogs.message("Select a satellite on the list first");
        return;
    }
    form.SatList.removeSelected();
}

void BUTSaveJob_Click(PassWizardForm& form, ProgramState& state, Services& services) {
    if (const std::string_view missing = missingFrom(form); !missing.empty()) {
        services.dialogs.message(missing);
        return;
    }
    ErrorLabel label(services, {});
    label.quietStep([&] {
        appendJob(state, {form.Tname, form.SatList.list, form.Tnumofdays, form.CHsave, form.CHprint, true});
        if (PassPredictionWindow* const parent = passPrediction(services)) parent->addPreset(form.Tname);
        form.isSettled = true;
        services.windows.unload("PassWizard");
    });
}

bool Form_QueryUnload(const PassWizardForm& form, Services& services) {
    const bool isEmpty = form.Tname.empty() && form.Tnumofdays.empty() && form.SatList.list.empty();
    return form.isSettled || isEmpty || mayBeLost(services);
}

void Form_Unload(PassWizardForm& form) {
    form.COMsatname.empty({});
}

void BUTcancel_Click(PassWizardForm& form, Services& services) {
    if (!mayBeLost(services)) return;
    form.isSettled = true;
    services.windows.unload("PassWizard");
}

}  // namespace vantrace
