#include "passes/jobs.h"

#include <string>

#include "catalogue/data_files.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "passes/job_file.h"
#include "passes/job_run.h"
#include "passes/pass_prediction_form.h"
#include "passes/pass_windows.h"
#include "passes/results.h"

namespace vantrace {

namespace {

/// A fresh wizard. False where it holds a job that the user doesn't give up; he sees that one, then.
bool openWizard(Services& services) {
    services.windows.unload("PassWizard");
    const bool isFresh = !services.windows.isLoaded("PassWizard");
    services.windows.show("PassWizard");
    return isFresh;
}

void edit(PassPredictionForm& form, ProgramState& state, Services& services) {
    const std::string name = form.ListPresets.selectedText();
    if (!openWizard(services)) return;
    if (!FileExists(dataFile(state, jobsFile))) {
        services.dialogs.message("Can't file PASS.DAT in your Vantrace folder");
        return;
    }
    const std::optional<JobToEdit> job = jobToEdit(readJobs(state), name);
    if (!job) {
        services.dialogs.message("There is a possible problem with your PASS.DAT file");
        return;
    }
    auto* const wizard = dynamic_cast<PassWizardWindow*>(services.windows.refer("PassWizard"));
    // Where nobody holds it, it stays in the file.
    if (wizard == nullptr) return;
    wizard->showJob(*job);
    if (!job->isWhole) return;
    removeJob(state, name);
    form.ListPresets.removeSelected();
}

}  // namespace

void PresetAdd_Click(Services& services) {
    services.windows.show("PassWizard");
}

void BUTeditjob_Click(PassPredictionForm& form, ProgramState& state, Services& services) {
    if (!form.ListPresets.isSelected()) {
        services.dialogs.message("you must select a preset to edit");
        return;
    }
    ErrorLabel label(services, {});
    label.quietStep([&] { edit(form, state, services); });
}

void PresetDelete_Click(PassPredictionForm& form, ProgramState& state, Services& services) {
    if (!form.ListPresets.isSelected()) {
        services.dialogs.message("you must select a preset to delete");
        return;
    }
    removeJob(state, form.ListPresets.selectedText());
    form.ListPresets.removeSelected();
}

void PresetGo_Click(PassPredictionForm& form, ProgramState& state, Services& services) {
    if (!form.ListPresets.isSelected()) {
        services.dialogs.message("You must select a preset first");
        return;
    }
    ErrorLabel label(services, labels::passPrePresetGo);
    const Guard guard = [&](const std::function<void()>& work) { return label.step(work); };
    const std::string name = form.ListPresets.selectedText();
    JobToRun job;
    label.step([&] { job = jobToRun(readJobs(state), name, services.format.decimalMark, guard); });
    if (!job.isFound) {
        services.dialogs.message("There was a problem finding that Job");
        return;
    }
    if (!calculateJob(job, form, state, services, guard)) return;
    if (job.isSaved) label.step([&] { BUTsaveresults_Click(form, state, services); });
    if (job.isPrinted) label.step([&] { BUTprint_Click(form, state, services); });
}

}  // namespace vantrace
