// The antenna and radio tracker: once a second where the antenna points and what the radio is tuned to, as
// one line of text that a station program reads.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/skin.h"
#include "core/timer_state.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// A drop-down whose text may be typed.
struct FrequencyCombo {
    std::vector<std::string> items;
    std::string text;
};

/// What the window `frmTracker` shows and holds.
struct TrackerForm {
    bool CHonOff = false;
    bool CHtrackMoon = false;
    /// In MHz, as the machine writes numbers.
    FrequencyCombo COMuplink;
    FrequencyCombo COMdownlink;
    std::string lblSelSat;
    std::string lblAz;
    std::string lblEL;
    std::string lblUplink;
    std::string lblDownlink;
    /// The line: "SN<name> AZ<deg> EL<deg> UP<Hz> DN<Hz> DO<Hz>", of the moon without UP and DN.
    std::string Tracking;
    TimerState Timer1{1000, false};

    /// Degrees.
    float TrackAz = 0;
    float TrackEl = 0;
    /// MHz, with the Doppler shift that the satellite's movement gives.
    float UplinkNow = 0;
    float DownlinkNow = 0;
    /// The Doppler shift in Hz of something received at 100 MHz.
    double DopplerAt100 = 0;
    Skin skin;
};

/// A fresh window: its `Tag` is empty, until whoever opens it writes a name there.
void Form_Load(TrackerForm& form, ProgramState& state, Services& services);
void CHonOff_Click(TrackerForm& form, Services& services);
/// Starts the outside station program, which is found by its name in the program folder.
void BUTwisp_Click(ProgramState& state, Services& services);
/// One second of the link.
void Timer1_Timer(TrackerForm& form, ProgramState& state, Services& services);
/// Whoever reads the line is told that there is none any more.
void Form_Unload(TrackerForm& form, ProgramState& state, Services& services);

/// Places the satellite, or the moon where it is ticked, at the present whole second, and works out the
/// frequencies of a downlink and an uplink in MHz. Throws EngineError, and then leaves everything as it was.
void CalculateTracking(TrackerForm& form, const ProgramState& state, Services& services,
                       std::string_view name, float downlinkMHz, float uplinkMHz);

/// The line of the present captions.
std::string trackingLine(const TrackerForm& form, std::string_view name, char decimalMark);

}  // namespace vantrace
