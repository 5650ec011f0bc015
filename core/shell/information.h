// The two windows that tell what this program is: the splash and About.
#pragma once

#include <string>

#include "core/skin.h"

namespace vantrace {

struct Services;

/// What `frmSplash` shows.
struct SplashForm {
    std::string lblVersion;
    Skin skin;
};

void Form_Load(SplashForm& form, Services& services);
/// Lets the splash be painted, then shows `Main`.
void Form_Activate(SplashForm& form, Services& services);

/// What `About` shows.
struct AboutForm {
    std::string lblVersion;
    std::string lblEngine;
    /// Whether the desktop has a tool that the button can start.
    bool isBUTsysinfoEnabled = false;
    Skin skin;
};

void Form_Load(AboutForm& form, Services& services);
void BUTok_Click(AboutForm& form, Services& services);
/// Throws DesktopError where the tool doesn't start.
void BUTsysinfo_Click(AboutForm& form, Services& services);

}  // namespace vantrace
