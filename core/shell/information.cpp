#include "core/shell/information.h"

#include "core/services.h"
#include "core/shell/start_up.h"
#include "core/version.h"

namespace vantrace {

void Form_Load(SplashForm& form, Services& services) {
    ApplySkin(services, form.skin);
    form.lblVersion = "Version " + std::string(shortVersion);
}

void Form_Activate(SplashForm& /*form*/, Services& services) {
    services.events.yield();
    services.windows.show("Main");
}

void Form_Load(AboutForm& form, Services& services) {
    ApplySkin(services, form.skin);
    form.lblVersion = "Version " + std::string(shortVersion);
    form.lblEngine = "SGP4 and SDP4 after the published equations, WGS-72";
    form.isBUTsysinfoEnabled = services.desktop.hasSystemInformation();
}

void BUTok_Click(AboutForm& /*form*/, Services& services) {
    services.windows.unload("About");
}

void BUTsysinfo_Click(AboutForm& /*form*/, Services& services) {
    services.desktop.startSystemInformation();
}

}  // namespace vantrace
