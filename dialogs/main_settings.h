// The window `frmCONmain`: the observer's place, speech, recording, and what doesn't fit anywhere else.
#pragma once

#include <string>

#include "core/lists.h"
#include "core/skin.h"
#include "dialogs/setting_values.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// Words per minute; degrees.
inline constexpr SliderRange speechSpeedRange{80, 250};
inline constexpr SliderRange minElRange{0, 40};

/// What the window shows and holds.
struct MainSettingsForm {
    /// The place: its name, its coordinates (degrees, longitude WEST) as one text each and taken apart, its
    /// height in metres, all as typed.
    std::string Tlocation;
    std::string Tlatitude;
    std::string Tlongitude;
    std::string Tlatdeg;
    std::string Tlatmin;
    std::string Tlatsec;
    std::string Tlondeg;
    std::string Tlonmin;
    std::string Tlonsec;
    std::string Theight;
    /// Which of the two is selected, and so which boxes are shown: the two or the six.
    bool OPdecDeg = true;
    bool OPnonDecDeg = false;

    bool CHspeechpack = false;
    DropDown VoiceSelect;
    int SLspeechspeed = 180;
    std::string LAspeechspeed;
    /// The tip of the slider.
    std::string SLspeechspeedTip;

    bool CHrecwxsat = false;
    bool CHrecPrimary = false;
    int SLminEl = 0;
    std::string LAminEl;
    /// A folder, ended by the platform's separator.
    std::string LAWxWavDir;

    bool Chchangeres = false;
    bool CHcomp = false;
    bool CHskin = false;
    Skin skin;
};

void Form_Load(MainSettingsForm& form, ProgramState& state, Services& services);

/// Each stores its setting.
void Tlocation_Change(MainSettingsForm& form, Services& services);
void Theight_Change(MainSettingsForm& form, Services& services);
void OPdecDeg_Click(MainSettingsForm& form, Services& services);
void OPnonDecDeg_Click(MainSettingsForm& form, Services& services);
void CHrecwxsat_Click(MainSettingsForm& form, Services& services);
void CHrecPrimary_Click(MainSettingsForm& form, Services& services);
void SLminEl_Change(MainSettingsForm& form, Services& services);
void SLspeechspeed_Change(MainSettingsForm& form, Services& services);
void Chchangeres_Click(MainSettingsForm& form, Services& services);
void CHcomp_Click(MainSettingsForm& form, ProgramState& state, Services& services);
/// The voices appear at the next opening only.
void CHspeechpack_Click(MainSettingsForm& form, Services& services);
/// Hides this window, and `Main` with it where the look goes, and shows them in the new look. Yields.
void CHskin_Click(MainSettingsForm& form, Services& services);

/// Takes the voice and lets it say so.
void VoiceSelect_Click(MainSettingsForm& form, Services& services);
void BUTwxWavDir_Click(MainSettingsForm& form, Services& services);
/// Starts the desktop's settings of date and time, where there are any.
void BUTeditTZ_Click(Services& services);

/// False, with messages, for coordinates beyond their limits; those of the two boxes, also while the six are
/// shown. Numbers are rewritten as they were understood.
bool Form_QueryUnload(MainSettingsForm& form, Services& services);
/// Stores coordinates, folder and voice; the observer follows the two boxes at once. What was typed into the
/// six boxes counts from the next start.
void Form_Unload(MainSettingsForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
