#include "station/record.h"

#include "core/program_state.h"
#include "core/services.h"
#include "platform/file_renaming.h"
#include "station/capture_commands.h"

namespace vantrace {

namespace {

constexpr std::int16_t warningSeconds = 15;
constexpr const char* startCaption = "Start Now";
constexpr const char* stopCaption = "Stop Now";

std::string twoDigits(int part) {
    return {static_cast<char>('0' + part / 10), static_cast<char>('0' + part % 10)};
}

std::string temporaryName(const ClockParts& now) {
    return twoDigits(now.month) + twoDigits(now.day) + twoDigits(now.hour) + twoDigits(now.minute) + ".wav";
}

void saveAndClose(RecordForm& form, ProgramState& state, Services& services) {
    form.isCapturing = false;
    StopCapture(services);
    const std::string temporary = temporaryName(services.clock.read().local);
    const bool isSaved = SaveCapture(state, services, temporary);
    CloseCapture(services);
    // Without it there may be such a file all the same: an earlier one, which keeps its name.
    if (isSaved) renameInItsFolder(temporary, form.SatName + " - " + form.PassStamp + ".wav");
}

void startCapturing(RecordForm& form, ProgramState& state, Services& services) {
    form.Timer1.isEnabled = false;
    form.Countdown = "RECORDING NOW";
    form.Status =
        "Recording of " + state.RecordingSat + " will automatically stop when Satellite goes below  Degrees";
    form.BUTstartstop = stopCaption;
    form.isCapturing = true;
    OpenCapture(services, form.isCapturing);
    SetCaptureFormat(state, services, form.isCapturing);
    StartCapture(services, form.isCapturing);
}

}  // namespace

void Form_Load(RecordForm& form, Services& services) {
    ApplySkin(services, form.skin);
}

void StartRecording(RecordForm& form, ProgramState& state, Services& services, std::string_view name) {
    state.RecordingSat = name;
    form.SatName = name;
    const ClockParts now = services.clock.read().local;
    form.PassStamp =
        services.format.longDateText(now) + " - " + twoDigits(now.hour) + " " + twoDigits(now.minute);
    form.Status =
        form.SatName + " is about to pass over, If you do not wish to record this pass, click on CANCEL";
    form.SecondsLeft = warningSeconds;
    form.Timer1.isEnabled = true;
}

void Timer1_Timer(RecordForm& form, ProgramState& state, Services& services) {
    --form.SecondsLeft;
    form.Countdown = "Recording in " + std::to_string(form.SecondsLeft) + " Seconds";
    if (form.SecondsLeft == 0) startCapturing(form, state, services);
}

void BUTstartstop_Click(RecordForm& form, ProgramState& state, Services& services) {
    if (form.BUTstartstop == startCaption) {
        form.SecondsLeft = 1;
        form.BUTstartstop = stopCaption;
        return;
    }
    saveAndClose(form, state, services);
    services.windows.unload("Record");
}

void BUTcancel_Click(RecordForm& form, Services& services) {
    form.Timer1.isEnabled = false;
    services.windows.hide("Record");
}

void StopRecording(RecordForm& form, ProgramState& state, Services& services) {
    saveAndClose(form, state, services);
    state.Recording = false;
    services.windows.unload("Record");
}

void Form_Unload(RecordForm& form, ProgramState& state, Services& services) {
    if (form.isCapturing) saveAndClose(form, state, services);
}

}  // namespace vantrace
