// What the user does with the results: emptying, saving and printing them. For their sort see sort_results.h.
#pragma once

namespace vantrace {

struct PassPredictionForm;
struct ProgramState;
struct Services;

void BUTclearResults_Click(PassPredictionForm& form);

/// Asks for a file and writes the report there, then tells so. Where the user names none it is "Vantrace.txt"
/// in the present folder. Throws FileError; an old file is then untouched.
void BUTsaveresults_Click(PassPredictionForm& form, ProgramState& state, Services& services);

/// Asks for a printer and prints the report. A printer that fails, or isn't there, is not told.
void BUTprint_Click(PassPredictionForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
