// The window `PassWizard`: the editor of a prediction job.
#pragma once

#include <optional>
#include <string>

#include "core/lists.h"
#include "core/skin.h"
#include "passes/pass_windows.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// What the window shows and holds.
struct PassWizardForm {
    /// The job: its name, the number of days as typed, whether the results are saved and printed, the
    /// satellites.
    std::string Tname;
    std::string Tnumofdays;
    bool CHsave = false;
    bool CHprint = false;
    NameList SatList;
    /// From which a satellite is chosen.
    DropDown COMgroup{"Select a Group", {}};
    DropDown COMsatname{"Select a Satellite", {}};
    /// Where it opens; without one it is the window system's choice.
    std::optional<WindowCorner> corner;
    /// Whether the user has saved the job or given it up; the window goes without a question then.
    bool isSettled = false;
    Skin skin;
};

/// A little to the right of `PassPrediction` and below its corner.
void Form_Load(PassWizardForm& form, ProgramState& state, Services& services);

/// Puts a job into the form.
void showJob(PassWizardForm& form, const JobToEdit& job);

/// A group was chosen: its satellites come into `COMsatname`.
void COMgroup_Click(PassWizardForm& form, ProgramState& state, Services& services);
void BUTadd_Click(PassWizardForm& form, Services& services);
void BUTremove_Click(PassWizardForm& form, Services& services);
/// Puts the job behind those of pass.dat and into the list of `PassPrediction`, where that is open, and
/// unloads the window. Neither the days nor the name are looked at. A file that can't be written ends it
/// quietly: the window stays, with the job in it.
void BUTSaveJob_Click(PassWizardForm& form, ProgramState& state, Services& services);
/// However the window goes, a job that is in it alone is lost only where the user agrees.
bool Form_QueryUnload(const PassWizardForm& form, Services& services);
/// A list of satellites that is being filled ends here.
void Form_Unload(PassWizardForm& form);
/// Asks, then unloads the window; the job in it is lost.
void BUTcancel_Click(PassWizardForm& form, Services& services);

}  // namespace vantrace
