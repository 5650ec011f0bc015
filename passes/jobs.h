// The buttons on the list of jobs.
#pragma once

namespace vantrace {

struct PassPredictionForm;
struct ProgramState;
struct Services;

/// Shows `PassWizard` as it is.
void PresetAdd_Click(Services& services);
/// Puts the selected job into `PassWizard` and takes it out of pass.dat and the list: from then on it is only
/// there. A file that can't be read or rewritten, or ends within the job, ends it quietly, with the job where
/// it was.
void BUTeditjob_Click(PassPredictionForm& form, ProgramState& state, Services& services);
/// Takes the selected job out of pass.dat and the list. Throws FileError; then nothing has happened.
void PresetDelete_Click(PassPredictionForm& form, ProgramState& state, Services& services);
/// Calculates the selected job from the calendar's date on, then saves and prints if the job says so. What
/// fails is logged and passed over.
void PresetGo_Click(PassPredictionForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
