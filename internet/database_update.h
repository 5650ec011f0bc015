// Fetching the satellite database.
#pragma once

namespace vantrace {

struct ProgramState;
struct Services;
struct UpdatesForm;

/// Fetches satellite.dat from the update server over the one in the program folder, whatever arrives, and
/// tells its size. Failures are logged. Ends without a report when the window goes meanwhile.
void BUTupdateDB_Click(UpdatesForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
