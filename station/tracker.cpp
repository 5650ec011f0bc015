#include "station/tracker.h"

#include <optional>
#include <stdexcept>
#include <utility>

#include "core/date_time.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "orbit/angles.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"
#include "station/frequency_combos.h"

namespace vantrace {

namespace {

constexpr const char* windowName = "frmTracker";
constexpr const char* stationProgram = "wispdde.exe";
constexpr double speedOfLightKmS = 299792.458;
constexpr double hertzPerMegahertz = 1000000.0;

/// What stands in a drop-down or a caption, as the machine writes numbers.
double numberIn(std::string_view text, char decimalMark) {
    const std::optional<double> value = toDouble(text, decimalMark);
    if (!value) throw std::invalid_argument("\"" + std::string(text) + "\" is no number");
    return *value;
}

float frequencyIn(const FrequencyCombo& combo, char decimalMark) {
    const auto megahertz = static_cast<float>(numberIn(combo.text, decimalMark));
    if (megahertz - megahertz != 0.0F) throw std::range_error("\"" + combo.text + "\" is too large a number");
    return megahertz;
}

/// A frequency in MHz of a caption as a number of Hz; with a point, whatever the machine writes.
std::string hertzText(const std::string& caption, char decimalMark) {
    const double hertz = numberIn(caption, decimalMark) * hertzPerMegahertz;
    return replacedAll(numberText(hertz, decimalMark), ",", ".");
}

/// Readers get the line at the same moment; an empty one tells them that the link is off.
void setLine(TrackerForm& form, Services& services, std::string line) {
    form.Tracking = std::move(line);
    services.linePublisher.publish(form.Tracking);
}

void showFrequencies(TrackerForm& form, ErrorLabel& label, char decimalMark) {
    if (form.CHtrackMoon) {
        form.lblDownlink = "Manual";
        form.lblUplink = "Manual";
        // The next tick finds it different from the satellite and fills the drop-downs anew.
        form.lblSelSat = "Moon";
        return;
    }
    label.step([&] { form.lblDownlink = formatNumber(form.DownlinkNow, "0.0000", decimalMark); });
    label.step([&] { form.lblUplink = formatNumber(form.UplinkNow, "0.0000", decimalMark); });
}

}  // namespace

void Form_Load(TrackerForm& form, ProgramState& state, Services& services) {
    state.TrackerTag.clear();
    ApplySkin(services, form.skin);
    form.lblSelSat = state.TrackerTag;
}

void CHonOff_Click(TrackerForm& form, Services& services) {
    form.Timer1.isEnabled = form.CHonOff;
    if (!form.CHonOff) setLine(form, services, {});
}

void BUTwisp_Click(ProgramState& state, Services& services) {
    const std::string program = state.AppPath + stationProgram;
    if (FileExists(program)) {
        services.desktop.startProgram(program);
    } else {
        services.dialogs.message("WiSP-DDE is not installed, it must be in the Vantrace folder.");
    }
}

void CalculateTracking(TrackerForm& form, const ProgramState& state, Services& services,
                       std::string_view name, float downlinkMHz, float uplinkMHz) {
    const std::string_view tracked = form.CHtrackMoon ? "moon" : name;
    const double utc = ToUTC(services.clock, NowLocal(services.clock));
    OrbitEngine& engine = engineOf(state);
    const TrackResult track = engine.EngineTrack(tracked, engine.EngineJulianDate(utc), 0, 0);
    form.TrackAz = static_cast<float>(RadToDeg(track.azimuthRad));
    form.TrackEl = static_cast<float>(RadToDeg(track.elevationRad));
    const double ratio = track.rangeRateKmS / speedOfLightKmS;
    const double downlink = downlinkMHz;
    const double uplink = uplinkMHz;
    form.DownlinkNow = static_cast<float>(downlink - ratio * downlink);
    form.UplinkNow = static_cast<float>(ratio * uplink + uplink);
    form.DopplerAt100 = (100.0 - ratio * 100.0 - 100.0) * hertzPerMegahertz;
}

std::string trackingLine(const TrackerForm& form, std::string_view name, char decimalMark) {
    const std::string doppler = " DO" + numberText(form.DopplerAt100, decimalMark);
    if (form.CHtrackMoon) return "SNmoon AZ" + form.lblAz + " EL" + form.lblEL + doppler;
    return "SN" + std::string(trimmed(replacedAll(name, " ", "_"))) + " AZ" + form.lblAz + " EL" +
           form.lblEL + " UP" + hertzText(form.lblUplink, decimalMark) + " DN" +
           hertzText(form.lblDownlink, decimalMark) + doppler;
}

void Timer1_Timer(TrackerForm& form, ProgramState& state, Services& services) {
    if (state.OrbitEngine == nullptr) {
        services.windows.unload(windowName);
        return;
    }
    const std::string name = state.TrackerTag;
    if (form.lblSelSat != name) {
        form.lblSelSat = name;
        UpdateCombos(form, state, services, name);
    }
    // The line stays as it is, and isn't told again: whoever reads it sees that nothing comes.
    if (form.COMdownlink.text.empty() || form.COMuplink.text.empty()) return;

    ErrorLabel label(services, labels::trackerTimer1);
    const char mark = services.format.decimalMark;
    // A text that is no number counts as 0: the antenna follows all the same.
    float downlinkMHz = 0;
    float uplinkMHz = 0;
    label.step([&] { downlinkMHz = frequencyIn(form.COMdownlink, mark); });
    label.step([&] { uplinkMHz = frequencyIn(form.COMuplink, mark); });
    label.step([&] { CalculateTracking(form, state, services, name, downlinkMHz, uplinkMHz); });
    label.step([&] { form.lblAz = formatNumber(form.TrackAz, "0.00", mark); });
    label.step([&] { form.lblEL = formatNumber(form.TrackEl, "0.00", mark); });
    showFrequencies(form, label, mark);
    label.step([&] { setLine(form, services, trackingLine(form, name, mark)); });
}

void Form_Unload(TrackerForm& form, ProgramState& state, Services& services) {
    form.Timer1.isEnabled = false;
    setLine(form, services, {});
    state.TrackerTag.clear();
}

}  // namespace vantrace
