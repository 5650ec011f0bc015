// The window `PassPrediction`: from which satellite and day the passes are predicted.
#pragma once

#include "passes/pass_prediction_form.h"

namespace vantrace {

class Clock;
struct ProgramState;
struct Services;

/// The day that the machine's clock has.
CalendarDate today(const Clock& clock);

/// While `Main.Tag` is "menu" the window takes its skin and no more. Throws FileError where pass.dat can't be
/// read; everything but the list of jobs is there by then.
void Form_Load(PassPredictionForm& form, const ProgramState& state, Services& services);
/// Shows `Main`.
void Form_Unload(PassPredictionForm& form, Services& services);
void BUTexit_Click(PassPredictionForm& form, Services& services);

/// A group was chosen: its satellites come into `SatelliteName`.
void Groupname_Click(PassPredictionForm& form, ProgramState& state, Services& services);
/// A satellite or a date was chosen: `BUTcalc` is what comes next.
void SatelliteName_Click(PassPredictionForm& form);
void Calendar_DateClick(PassPredictionForm& form);
/// Calculates the satellite of the group, or the favourite where no group is selected. Throws as CalcResults
/// does.
void BUTcalc_Click(PassPredictionForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
