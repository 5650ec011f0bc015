// When the recording of a pass is started and stopped, and what of the window `Record` is told so.
#pragma once

#include <string_view>

namespace vantrace {

class ErrorLabel;
struct ProgramState;
struct Services;

/// What others ask of the window `Record`.
class RecordWindow {
  public:
    virtual ~RecordWindow() = default;
    /// Starts the countdown to the recording of that satellite; called when the window has been shown.
    virtual void StartRecording(std::string_view name) = 0;
    /// Saves what was captured, and unloads the window.
    virtual void StopRecording() = 0;
};

/// The start and stop tests for a satellite, by its elevation in the satellite result block, of which the
/// whole part (rounded down) counts against the setting "WxEL". Nothing happens unless "RecWxsat" or
/// "RecPrimary" is on. A satellite that fits both is started twice, which starts its countdown again. The
/// window is made anew where there is none; without one registered the flag alone is set.
void testRecording(ProgramState& state, Services& services, ErrorLabel& label, std::string_view name);

}  // namespace vantrace
