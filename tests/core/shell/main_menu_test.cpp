#include "core/shell/main_menu.h"

#include "core/shell/information.h"
#include "core/shell/start_up.h"
#include "core/version.h"
#include "tests/core/shell/shell_test.h"

namespace vantrace {
namespace {

class MainMenuTest : public ShellTest {
  protected:
    void run(std::string_view entry) { runMenuEntry(entry, state, services); }
};

TEST_F(MainMenuTest, TheWebIsReachedByTheWordsForHosts) {
    folder.write("hosts.dat", "homePage=https://home.example.org/\nvideoPlaylists=http://v.example.org/x/\n");
    run("Website");
    run("MhelpOLD");
    run("mnuNASAhi");
    run("mnuNASAlo");
    run("Mhelp");
    EXPECT_EQ(
        fakes.desktop.opened,
        (Texts{"https://home.example.org/", "https://vantrace.example/help/",
               "http://v.example.org/x/makeplaylist.dll?id=139072&segment=",
               "http://v.example.org/x/makeplaylist.dll?id=138294&segment=", state.AppPath + "history.txt"}));
}

TEST_F(MainMenuTest, ResetAsksFirstAndAlwaysEndsTheProcess) {
    fakes.settings.set("Latitude", "48");
    run("Mreset");
    EXPECT_EQ(fakes.settings.get("Latitude"), "48");
    EXPECT_EQ(fakes.process.starts, 0);
    EXPECT_EQ(fakes.dialogs.titles, Texts{"Reset Settings"});

    fakes.dialogs.saysYes = true;
    run("Mreset");
    EXPECT_FALSE(fakes.settings.get("Latitude"));
    EXPECT_EQ(fakes.dialogs.messages.back(), "All Settings Reset, Vantrace will now restart");
    EXPECT_EQ(fakes.process.starts, 1);
    EXPECT_EQ(fakes.process.ends, std::vector{0});

    fakes.process.failure = "vantrace: No such file or directory";
    run("Mreset");
    EXPECT_EQ(fakes.dialogs.messages.back(), fakes.process.failure);
    EXPECT_EQ(fakes.process.ends, (std::vector{0, 0})) << "also where it can't be started anew";

    WindowScript& wizard = fakeWindow("PassWizard");
    services.windows.show("PassWizard");
    wizard.staysOpen = true;
    WindowScript& settings = fakeWindow("frmCONmain");
    services.windows.show("frmCONmain");
    settings.staysOpen = true;
    run("Mreset");
    EXPECT_EQ(fakes.process.ends.size(), 2U) << "the user wants the job in it";
    wizard.staysOpen = false;
    run("Mreset");
    EXPECT_EQ(fakes.process.ends.size(), 3U) << "settings that can't be stored are none that one would miss";
}

TEST_F(MainMenuTest, AboutSpeechNeedsTheSettingToBeOne) {
    fakes.settings.set("Speechpack", "2");
    run("MaboutSP");
    EXPECT_EQ(fakes.dialogs.messages,
              Texts{"There is no speech pack installed. If you want to hear speech in Vantrace, go to the "
                    "Vantrace homepage at https://vantrace.example/ for details"});
    fakes.settings.set("Speechpack", "1");
    run("MaboutSP");
    EXPECT_EQ(fakes.speech.texts, Texts{"The Speech Engine used is made by Voicemakers and has 2 voices."});
    EXPECT_EQ(fakes.speech.abouts, Texts{"Speechpack used by Vantrace"});
}

TEST_F(MainMenuTest, TheExitUnloadsTheTrackerAndMain) {
    WindowScript& tracker = fakeWindow("frmTracker");
    WindowScript& main = fakeWindow("Main");
    main.onUnload = [this] { Form_Unload(form, state, services); };
    services.windows.show("Main");
    services.windows.show("frmTracker");
    run("Mexit");
    EXPECT_EQ(tracker.count("unload"), 1);
    EXPECT_EQ(main.count("unload"), 1);
    EXPECT_EQ(state.MainTag, "exit");
    services.windows.show("Main");
    EXPECT_EQ(main.made, 1) << "the program is at its end";
}

TEST_F(MainMenuTest, AboutOffersTheSystemsToolWhereThereIsOne) {
    AboutForm about;
    fakes.desktop.hasTool = false;
    Form_Load(about, services);
    EXPECT_FALSE(about.isBUTsysinfoEnabled);
    EXPECT_EQ(about.lblVersion, "Version " + std::string(shortVersion));
    BUTsysinfo_Click(about, services);
    EXPECT_EQ(fakes.desktop.opened, Texts{"system information"});
}

}  // namespace
}  // namespace vantrace
