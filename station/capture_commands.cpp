#include "station/capture_commands.h"

#include <string>

#include "core/files.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"

namespace vantrace {

namespace {

constexpr std::uint16_t hasShortName = 65535;

/// The windows show what they hold while the message waits for the user.
void tellUnless(bool succeeded, Services& services, std::string_view text) {
    if (succeeded) return;
    services.windows.beforeYield();
    services.dialogs.message(text);
    services.windows.afterYield();
}

}  // namespace

void OpenCapture(Services& services, const bool& isCapturing) {
    if (isCapturing) tellUnless(services.capture.closeAll(), services, "Closing all MCI operations failed!");
    if (isCapturing) tellUnless(services.capture.open(), services, "Opening new wave failed!");
}

void SetCaptureFormat(ProgramState& state, Services& services, const bool& isCapturing) {
    state.WaveRate = 11025;
    state.WaveChannels = 1;
    state.WaveBits = 8;
    const CaptureFormat format{state.WaveRate, state.WaveChannels, state.WaveBits};
    if (isCapturing) tellUnless(services.capture.seekToStart(), services, "Starting recording failed!");
    if (isCapturing) {
        tellUnless(services.capture.setFormat(format), services, "Settings for recording not consistent");
    }
}

void StartCapture(Services& services, const bool& isCapturing) {
    if (!isCapturing) return;
    tellUnless(services.capture.record(), services,
               "Recording not possible, please restart your computer...");
}

bool SaveCapture(ProgramState& state, Services& services, std::string_view file) {
    if (!HasBlank(file)) return services.capture.save(file);
    state.WaveLongName = file;
    state.WaveShortName = ShortPathOf(file);
    state.WaveNameFlag = hasShortName;
    return services.capture.save(state.WaveShortName);
}

void StopCapture(Services& services) {
    services.capture.stop();
}

void CloseCapture(Services& services) {
    services.capture.close();
    services.capture.closeAll();
}

}  // namespace vantrace
