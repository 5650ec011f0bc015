// The recorder of a pass: fifteen seconds of warning, then the sound card's input into a wave file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/skin.h"
#include "core/timer_state.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// What the window `Record` shows and holds.
struct RecordForm {
    std::string Countdown = "Recording in 15 Seconds";
    std::string Status;
    /// The caption of the button, which tells what a click on it does.
    std::string BUTstartstop = "Start Now";
    TimerState Timer1{1000, false};
    /// The countdown.
    std::int16_t SecondsLeft = 0;
    std::string SatName;
    /// Date and time of the pass, as the file's name has them.
    std::string PassStamp;
    /// From the first command to the sound card until it was told to close.
    bool isCapturing = false;
    Skin skin;
};

void Form_Load(RecordForm& form, Services& services);
void StartRecording(RecordForm& form, ProgramState& state, Services& services, std::string_view name);
/// One second of the countdown; the last one starts the capture.
void Timer1_Timer(RecordForm& form, ProgramState& state, Services& services);
/// "Start Now" lets the next tick be the last. "Stop Now" saves and unloads the window; the pass stays the
/// one that is being recorded, so that it isn't started again.
void BUTstartstop_Click(RecordForm& form, ProgramState& state, Services& services);
/// Nothing is captured of a pass that isn't yet; the pass stays the one that is being recorded. What is being
/// captured goes on unseen.
void BUTcancel_Click(RecordForm& form, Services& services);
/// Saves the capture as "SATELLITE - DATE - hh mm.wav" in the current directory, by way of a temporary name
/// of eight digits (month, day, hour, minute). That name it keeps where the other one can't be had: because
/// there is such a file already, or because a sign in it can't be part of a name. Failures are not told.
void StopRecording(RecordForm& form, ProgramState& state, Services& services);
/// However the window goes, by its frame or with all views: what is being captured is saved as by "Stop Now".
void Form_Unload(RecordForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
