#include "dialogs/map_settings.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "core/config.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"

namespace vantrace {

namespace {

/// The list of files `File1` with the pattern "*.jpg": names in the order of a dictionary, without what
/// stands behind the last point. The views look for just this ending.
std::vector<std::string> pictureNames(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::filesystem::path& file = entry.path();
        std::error_code ignored;
        const bool isHidden = file.filename().string().starts_with('.');
        if (!isHidden && file.extension() == ".jpg" && entry.is_regular_file(ignored)) {
            names.push_back(file.stem().string());
        }
    }
    std::ranges::sort(names, [](const std::string& left, const std::string& right) {
        const std::string lowerLeft = lowerCased(left);
        const std::string lowerRight = lowerCased(right);
        return lowerLeft == lowerRight ? left < right : lowerLeft < lowerRight;
    });
    return names;
}

void showGroundTrackLen(MapSettingsForm& form) {
    form.LABgroundtrackLen = std::to_string(form.SLgroundTrackLen) + " Minutes";
}

void showMapUpdate(MapSettingsForm& form) {
    form.LABmapUpdate = std::to_string(form.SLMapUpdate) + " Seconds";
}

void loadPictures(DropDown& list, const Setting& setting, const ProgramState& state, Services& services,
                  ErrorLabel& label) {
    label.step([&] { list.list = pictureNames(state.AppPath); });
    list.text = GetConfig(services, setting);
}

}  // namespace

void Form_Load(MapSettingsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::twoDconFormLoad);
    label.step([&] { ApplySkin(services, form.skin); });
    label.step([&] {
        form.SLgroundTrackLen = sliderSetting(services, settings::groundTrackLen, groundTrackRange);
        form.SLMapUpdate = sliderSetting(services, settings::mapUpdate, mapUpdateRange);
    });
    showGroundTrackLen(form);
    showMapUpdate(form);
    form.CHgroundtrack = isTicked(services, settings::showGroundtrack);
    form.CHfootprints = isTicked(services, settings::showFootprints);
    form.CHaltworld = isTicked(services, settings::altWorld);
    form.CHshowinfopane = isTicked(services, settings::showInfoPane);
    loadPictures(form.COMmap, settings::mapFile, state, services, label);
    loadPictures(form.COMhormap, settings::horizonFile, state, services, label);
}

void SLgroundTrackLen_Change(MapSettingsForm& form, Services& services) {
    SaveConfig(services, settings::groundTrackLen, std::to_string(form.SLgroundTrackLen));
    showGroundTrackLen(form);
}

void SLMapUpdate_Change(MapSettingsForm& form, Services& services) {
    SaveConfig(services, settings::mapUpdate, std::to_string(form.SLMapUpdate));
    showMapUpdate(form);
}

void CHgroundtrack_Click(MapSettingsForm& form, Services& services) {
    saveTick(services, settings::showGroundtrack, form.CHgroundtrack);
}

void CHfootprints_Click(MapSettingsForm& form, Services& services) {
    saveTick(services, settings::showFootprints, form.CHfootprints);
}

void CHaltworld_Click(MapSettingsForm& form, Services& services) {
    saveTick(services, settings::altWorld, form.CHaltworld);
}

void CHshowinfopane_Click(MapSettingsForm& form, Services& services) {
    saveTick(services, settings::showInfoPane, form.CHshowinfopane);
}

void COMmap_Click(MapSettingsForm& form, Services& services) {
    SaveConfig(services, settings::mapFile, form.COMmap.text);
}

void COMhormap_Click(MapSettingsForm& form, Services& services) {
    SaveConfig(services, settings::horizonFile, form.COMhormap.text);
}

}  // namespace vantrace
