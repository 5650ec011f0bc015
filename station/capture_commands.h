// The commands that a recording gives to the sound card, and what the user is told where one fails. A failure
// doesn't end a sequence: the next command is given. Only what ends the recording while a message waits for
// the user ends it; the sound card may be another recording's by then.
#pragma once

#include <string_view>

namespace vantrace {

struct ProgramState;
struct Services;

/// Closes what is open and opens a new capture. This and the next two do nothing more from where
/// `isCapturing` has become false.
void OpenCapture(Services& services, const bool& isCapturing);
/// Writes the form of the samples into the state and gives it to the capture.
void SetCaptureFormat(ProgramState& state, Services& services, const bool& isCapturing);
void StartCapture(Services& services, const bool& isCapturing);
/// A file of that name gives way to the new one, when there is one and not before; so it is deleted by the
/// saving itself. A name with a blank is given to the card in its short form. Whether the file was saved.
bool SaveCapture(ProgramState& state, Services& services, std::string_view file);
void StopCapture(Services& services);
void CloseCapture(Services& services);

}  // namespace vantrace
