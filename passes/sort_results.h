// The order of the results by time.
#pragma once

namespace vantrace {

struct PassPredictionForm;
struct ProgramState;
struct Services;

/// Sorts the rows in place by date and time as they show them, in the present year: so January comes before
/// the December in front of it. Rows of the same time keep their order. Meanwhile the list is hidden; it
/// yields at every step, so that what the user does takes effect in the middle of it, and leaves when
/// `Main.Tag` becomes "menu" or "exit". Throws std::invalid_argument for a date that is none.
void BUTsortChron_Click(PassPredictionForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
