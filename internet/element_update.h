// Fetching the element files of all groups, and mending what came through damaged.
#pragma once

#include <string>

namespace vantrace {

struct ProgramState;
struct Services;
struct UpdatesForm;

/// Fetches the file of every group whose flag isn't "1" into the program folder, under the name behind the
/// last "/" of its address, mends it by `CheckKepFile` and tells its size. What fails is shown in a message,
/// and the next step follows. Yields at the start and once for each group; ends without a report when the
/// window goes meanwhile.
void BUTupdateKeps_Click(UpdatesForm& form, ProgramState& state, Services& services);

/// Gives every line a CR LF at its end, and every one that begins with "1 " or "2 " and hasn't 69 characters
/// the place of a fixed line of the right form, so that the lines around it keep theirs: "CROPPED" where that
/// was so, else "OK". Whoever follows a link finds the file behind it mended; one in which there is nothing
/// to mend isn't touched. A file that can't be read or may not be written is logged and stays as it is, as is
/// one that would hold more than a file of elements may.
std::string CheckKepFile(ProgramState& state, Services& services, const std::string& file);

}  // namespace vantrace
