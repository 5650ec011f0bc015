// The window `frmCON2D`: how the map and the panorama look. Each change is stored at once.
#pragma once

#include <string>

#include "core/lists.h"
#include "core/skin.h"
#include "dialogs/setting_values.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// Minutes; seconds.
inline constexpr SliderRange groundTrackRange{10, 300};
inline constexpr SliderRange mapUpdateRange{2, 60};

/// What the window shows and holds.
struct MapSettingsForm {
    int SLgroundTrackLen = 90;
    std::string LABgroundtrackLen;
    int SLMapUpdate = 2;
    std::string LABmapUpdate;
    bool CHgroundtrack = false;
    bool CHfootprints = false;
    bool CHaltworld = false;
    bool CHshowinfopane = false;
    /// Pictures of the program folder, without their ".jpg".
    DropDown COMmap;
    DropDown COMhormap;
    Skin skin;
};

/// What can't be had is logged, and the rest loaded.
void Form_Load(MapSettingsForm& form, ProgramState& state, Services& services);

void SLgroundTrackLen_Change(MapSettingsForm& form, Services& services);
void SLMapUpdate_Change(MapSettingsForm& form, Services& services);
void CHgroundtrack_Click(MapSettingsForm& form, Services& services);
void CHfootprints_Click(MapSettingsForm& form, Services& services);
void CHaltworld_Click(MapSettingsForm& form, Services& services);
void CHshowinfopane_Click(MapSettingsForm& form, Services& services);
void COMmap_Click(MapSettingsForm& form, Services& services);
void COMhormap_Click(MapSettingsForm& form, Services& services);

}  // namespace vantrace
