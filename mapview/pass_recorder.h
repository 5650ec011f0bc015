// The recorder of passes, as the map sees it, and when the map starts and stops it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vantrace {

class ErrorLabel;
struct ProgramState;
struct Services;

/// The flags of the window `Record`, and its two doors. A door that nobody has filled in does nothing.
struct PassRecorder {
    /// From the moment that a recording is decided until `StopRecording` has run.
    bool Recording = false;
    /// The satellite being recorded; written by `StartRecording`.
    std::string RecordingSat;

    /// Called with the satellite's name when `Record` has been shown.
    std::function<void(std::string_view)> StartRecording;
    std::function<void()> StopRecording;
};

/// The start and stop tests for a satellite, by its elevation in the satellite result block, of which the
/// whole part (rounded down) counts against the setting "WxEL". Nothing happens unless "RecWxsat" or
/// "RecPrimary" is on. A satellite that fits both is started twice, which starts its countdown again.
void testRecording(PassRecorder& recorder, const ProgramState& state, Services& services, ErrorLabel& label,
                   std::string_view name);

}  // namespace vantrace
