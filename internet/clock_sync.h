// Comparing the computer's clock with that of a time server, and setting it.
#pragma once

namespace vantrace {

struct ProgramState;
struct Services;
struct UpdatesForm;

/// Tells how far the clock is out, whole days aside and in the largest of its words only, and sets it where
/// the user wants that. Failures are logged. Ends without a report when the window goes meanwhile.
void BUTsyncClock_Click(UpdatesForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
