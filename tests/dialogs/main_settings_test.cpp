#include "dialogs/main_settings.h"

#include "core/labels.h"
#include "dialogs/degrees.h"
#include "orbit/orbit_engine.h"
#include "tests/dialogs/dialogs_test.h"

namespace vantrace {
namespace {

constexpr const char* latitudeMessage = "Latitude should be less than 90";
constexpr const char* longitudeMessage = "Longitude should be less than 360";

class MainSettingsTest : public DialogsTest {
  protected:
    using DialogsTest::DialogsTest;

    void load() { Form_Load(form, state, services); }
    bool close() {
        if (!Form_QueryUnload(form, services)) return false;
        Form_Unload(form, state, services);
        return true;
    }

    MainSettingsForm form;
};

TEST(Degrees, AreBrokenUpTowardsMinusInfinityAndComeBack) {
    struct Case {
        double value, deg, min, sec;
    };
    for (const Case& expected :
         {Case{-33.5, -34, 30, 0}, Case{0, 0, 0, 0}, Case{48.25, 48, 15, 0}, Case{359.99, 359, 59, 24},
          Case{-0.25, -1, 45, 0}, Case{12.1251, 12, 7, 30}}) {
        double deg = 0;
        double min = 0;
        double sec = 0;
        DecimalToDMS(expected.value, deg, min, sec);
        EXPECT_EQ(deg, expected.deg) << expected.value;
        EXPECT_EQ(min, expected.min) << expected.value;
        EXPECT_EQ(sec, expected.sec) << expected.value;
        double back = 0;
        DMSToDecimal(deg, min, sec, back);
        EXPECT_NEAR(back, expected.value, 1.0 / 3600) << "a second at most is lost";
    }
    double value = 0;
    DMSToDecimal(48, 12, 36.5, value);
    EXPECT_EQ(value, 48.2101) << "four decimals";
}

TEST_F(MainSettingsTest, OpensWithTheDefaultsOfAFreshStore) {
    load();
    EXPECT_EQ((Texts{form.Tlocation, form.Tlatitude, form.LAspeechspeed, form.SLspeechspeedTip, form.LAminEl,
                     form.LAWxWavDir}),
              (Texts{"Default", "0", "180 WPM", "180 WPM", "0 Degrees", state.AppPath}));
    EXPECT_TRUE(form.OPdecDeg && form.CHskin && form.skin.isApplied);
    EXPECT_FALSE(form.CHspeechpack);
    EXPECT_TRUE(form.VoiceSelect.list.empty());
    EXPECT_TRUE(messages().empty());
}

TEST_F(MainSettingsTest, OpensWithWhatIsStored) {
    for (const auto& [key, value] :
         std::vector<std::pair<const char*, const char*>>{{"Latitude", "-33.5"},
                                                          {"Longitude", "208.75"},
                                                          {"DMS", "1"},
                                                          {"SpeechSpeed", "9999"},
                                                          {"WxEL", "12"},
                                                          {"RecWxsat", "1"},
                                                          {"WxWavDir", "/wavs/"}}) {
        fakes.settings.set(key, value);
    }
    load();
    EXPECT_EQ((Texts{form.Tlatdeg, form.Tlatmin, form.Tlatsec, form.Tlondeg, form.Tlonmin, form.Tlonsec}),
              (Texts{"-34", "30", "0", "208", "45", "0"}));
    EXPECT_EQ((Texts{form.LAspeechspeed, form.LAminEl, form.LAWxWavDir}),
              (Texts{"250 WPM", "12 Degrees", "/wavs/"}));
    EXPECT_TRUE(form.OPnonDecDeg && form.CHrecwxsat);
    EXPECT_FALSE(form.CHrecPrimary);
}

TEST_F(MainSettingsTest, WritesTheHeightAsItIsTypedAndRewritesItAtTheEnd) {
    load();
    struct Case {
        const char* typed;
        const char* kept;
        const char* rewritten;
    };
    for (const Case& test : {Case{"170", "170", "170"}, Case{"170m", "170m", "170"}, Case{"", "0", "0"},
                             Case{"high", "0", "0"}, Case{"-12.5", "-12.5", "-12.5"}}) {
        SCOPED_TRACE(test.typed);
        form.Theight = test.typed;
        Theight_Change(form, services);
        EXPECT_EQ(stored("HASL"), test.kept);
        EXPECT_TRUE(close());
        EXPECT_EQ(form.Theight, test.rewritten);
        EXPECT_EQ(stored("HASL"), test.rewritten);
    }
    EXPECT_EQ(state.ObserverHeight, -12.5);
}

TEST_F(MainSettingsTest, ClosesWithinTheLimitsOnly) {
    load();
    struct Case {
        const char* latitude;
        const char* longitude;
        Texts messages;
    };
    for (const Case& expected : {Case{"91", "360", {}}, Case{"90.5", "0", {}}, Case{"-200", "-5", {}},
                                 Case{"91.1", "0", {latitudeMessage}}, Case{"0", "361", {longitudeMessage}},
                                 Case{"91.1", "361", {latitudeMessage, longitudeMessage}}}) {
        fakes.dialogs.messages.clear();
        form.Tlatitude = expected.latitude;
        form.Tlongitude = expected.longitude;
        EXPECT_EQ(Form_QueryUnload(form, services), expected.messages.empty()) << expected.latitude;
        EXPECT_EQ(messages(), expected.messages);
    }
    form.Tlatitude = " 91.10 N";
    EXPECT_FALSE(close());
    EXPECT_EQ(form.Tlatitude, "91.1") << "rewritten all the same";
    form.Tlatitude = "north";
    form.Tlongitude = "0";
    EXPECT_TRUE(close());
    EXPECT_EQ(stored("Latitude"), "0");
}

TEST_F(MainSettingsTest, ClosingTellsTheProgramItsNewPlace) {
    state.OrbitEngine = std::make_shared<OrbitEngine>(&fakes.clock);
    load();
    form.Tlocation = "Vienna";
    Tlocation_Change(form, services);
    EXPECT_EQ(stored("Location Name"), "Vienna") << "at once";
    form.Tlatitude = "48.21";
    form.Tlongitude = "343.63";
    form.Theight = "170";
    form.LAWxWavDir = "/wavs/";
    EXPECT_EQ(stored("Latitude"), "0") << "not at once";
    EXPECT_TRUE(close());
    EXPECT_EQ(stored("Latitude"), "48.21");
    EXPECT_EQ(stored("Longitude"), "343.63");
    EXPECT_EQ(stored("WxWavDir"), "/wavs/");
    EXPECT_EQ(stored("Voice"), "0") << "nothing is selected";
    EXPECT_EQ(state.ObserverName, "Vienna");
    EXPECT_EQ(state.ObserverLatitude, 48.21);
    EXPECT_EQ(state.ObserverLongitude, 343.63);
    EXPECT_DOUBLE_EQ(state.OrbitEngine->EngineGetLongitude(), 360 - 343.63);
    form.Tlocation.clear();
    Tlocation_Change(form, services);
    EXPECT_TRUE(close());
    EXPECT_EQ(state.ObserverName, "Default") << "as the next start has it";
    form.Tlatitude = "90.5";
    form.Tlongitude = "10";
    form.VoiceSelect.selected = 1;
    EXPECT_TRUE(close());
    EXPECT_EQ(fakes.logged(labels::mainCONUnload), 0);
    EXPECT_EQ(state.ObserverLatitude, 90.5);
    EXPECT_DOUBLE_EQ(state.OrbitEngine->EngineGetLongitude(), 350);
    EXPECT_EQ(stored("Voice"), "2");
}

TEST_F(MainSettingsTest, TheSixBoxesCountFromTheNextStart) {
    fakes.settings.set("Latitude", "10.20849");
    fakes.settings.set("Longitude", "20");
    load();
    OPnonDecDeg_Click(form, services);
    EXPECT_EQ(stored("DMS"), "1");
    OPdecDeg_Click(form, services);
    EXPECT_EQ(stored("DMS"), "0");
    EXPECT_TRUE(close());
    EXPECT_EQ(stored("Latitude"), "10.20849") << "there and back changes nothing";
    OPnonDecDeg_Click(form, services);
    state.ObserverName = "Vienna";
    form.Tlocation = "Sydney";
    Tlocation_Change(form, services);
    form.Tlatdeg = "-34";
    form.Tlatmin = "30";
    form.Tlatsec = "";
    form.Tlondeg = "999";
    EXPECT_TRUE(close()) << "the six boxes are never tested";
    EXPECT_EQ(stored("Latitude"), "-33.5");
    EXPECT_EQ(stored("Longitude"), "999");
    EXPECT_EQ(state.ObserverName, "Vienna") << "of the place that goes on";
    EXPECT_EQ(state.ObserverLatitude, 10.20849);
    EXPECT_EQ(state.ObserverLongitude, 20);
    MainSettingsForm next;
    Form_Load(next, state, services);
    Form_Unload(next, state, services);
    EXPECT_EQ(state.ObserverLatitude, -33.5) << "the next opening has it in the two boxes";
    EXPECT_EQ(state.ObserverName, "Sydney");
}

TEST_F(MainSettingsTest, VoicesAppearAtTheNextOpening) {
    fakes.settings.set("Voice", "2");
    load();
    form.CHspeechpack = true;
    CHspeechpack_Click(form, services);
    EXPECT_EQ(stored("Speechpack"), "1");
    EXPECT_TRUE(form.VoiceSelect.list.empty());
    EXPECT_TRUE(messages().empty());
    MainSettingsForm next;
    Form_Load(next, state, services);
    EXPECT_EQ(next.VoiceSelect.list, (Texts{"Anna", "Bert"}));
    EXPECT_EQ(next.VoiceSelect.text, "Bert");
    EXPECT_EQ(fakes.speech.voiceNumber, 0) << "shown, not taken";
    Form_Unload(next, state, services);
    EXPECT_EQ(stored("Voice"), "2");
}

TEST_F(MainSettingsTest, NoVoiceIsNoErrorAndOneThatIsGoneIsLogged) {
    fakes.settings.set("Speechpack", "1");
    fakes.settings.set("Voice", "0");
    load();
    EXPECT_EQ(form.VoiceSelect.selected, noEntry);
    EXPECT_EQ(form.VoiceSelect.list.size(), 2U);
    fakes.settings.set("Voice", "1");
    fakes.speech.voiceNames.clear();
    MainSettingsForm silent;
    Form_Load(silent, state, services);
    EXPECT_EQ(silent.VoiceSelect.selected, noEntry);
    EXPECT_TRUE(fakes.logLines().empty());
    fakes.settings.set("Voice", "7");
    fakes.settings.set("WxEL", "9");
    fakes.speech.voiceNames = {"Anna", "Bert"};
    MainSettingsForm other;
    Form_Load(other, state, services);
    EXPECT_EQ(other.VoiceSelect.selected, noEntry);
    EXPECT_EQ(other.LAminEl, "9 Degrees") << "the rest is loaded";
    EXPECT_EQ(fakes.logged(labels::mainCONFormLoad), 1);
}

TEST_F(MainSettingsTest, AChosenVoiceSpeaksWhileTheWindowIsThere) {
    fakes.settings.set("Speechpack", "1");
    load();
    form.VoiceSelect.select(1);
    VoiceSelect_Click(form, services);
    EXPECT_EQ(fakes.speech.voiceNumber, 0);
    showFake("frmCONmain");
    VoiceSelect_Click(form, services);
    EXPECT_EQ(fakes.speech.voiceNumber, 2);
    EXPECT_EQ(fakes.speech.texts, Texts{"Changed Voice to Bert"});
    fakes.settings.set("Speechpack", "0");
    VoiceSelect_Click(form, services);
    EXPECT_EQ(fakes.speech.texts.size(), 1U);
}

TEST_F(MainSettingsTest, CompatibilityIsOffAfterTheOpeningThoughItIsStored) {
    fakes.settings.set("Compatibility", "1");
    state.CompatibilityMode = true;
    load();
    EXPECT_TRUE(form.CHcomp);
    EXPECT_FALSE(state.CompatibilityMode);
    EXPECT_EQ(stored("Compatibility"), "1");
    EXPECT_TRUE(messages().empty());
    showFake("frmCONmain");
    CHcomp_Click(form, state, services);
    EXPECT_TRUE(state.CompatibilityMode);
    EXPECT_EQ(
        messages(),
        Texts{"Compatibility mode ON....on the 2D map views, the 'alphablending' feature to create the "
              "sun shine wont been seen, all the earth will look the same brightness, this mode is used "
              "if you're having problems bringing up any of the 2D map views"});
    form.CHcomp = false;
    CHcomp_Click(form, state, services);
    EXPECT_FALSE(state.CompatibilityMode);
    EXPECT_EQ(stored("Compatibility"), "0");
    EXPECT_EQ(messages().size(), 1U);
}

TEST_F(MainSettingsTest, TheModeOfTheScreenIsWarnedOfWhenItIsTicked) {
    showFake("frmCONmain");
    form.Chchangeres = true;
    Chchangeres_Click(form, services);
    EXPECT_EQ(stored("ChangeRes"), "1");
    EXPECT_EQ(
        messages(),
        Texts{"The next time Vantrace starts it will change to 800x600 mode, and when you exit, it will "
              "change back to 640x480. If you run 800x600 or higher, turn this option OFF"});
    form.Chchangeres = false;
    Chchangeres_Click(form, services);
    EXPECT_EQ(messages().size(), 1U);
}

TEST_F(MainSettingsTest, TheLookComesAndGoesWhileTheWindowIsHidden) {
    WindowScript& main = showFake("Main");
    WindowScript& window = showFake("frmCONmain");
    main.notes.clear();
    window.notes.clear();
    form.skin.isApplied = true;
    bool wasHidden = false;
    fakes.events.onYield = [&] { wasHidden = !fakes.windows.isOnScreen("frmCONmain"); };
    form.CHskin = false;
    CHskin_Click(form, services);
    EXPECT_EQ(stored("Skin"), "0");
    EXPECT_FALSE(form.skin.isApplied);
    EXPECT_EQ(main.notes, (Texts{"hide", "show", "activate"}));
    EXPECT_EQ(window.notes, (Texts{"hide", "show", "activate"}));
    EXPECT_TRUE(wasHidden);
    form.CHskin = true;
    CHskin_Click(form, services);
    EXPECT_TRUE(form.skin.isApplied);
    EXPECT_EQ(main.notes.size(), 3U) << "only this window takes it at once";
}

TEST_F(MainSettingsTest, TheFolderOfTheRecordingsEndsInItsSeparator) {
    load();
    BUTwxWavDir_Click(form, services);
    EXPECT_EQ(form.LAWxWavDir, state.AppPath) << "cancelled";
    EXPECT_EQ(fakes.dialogs.requests.at(0).start, state.AppPath);
    fakes.dialogs.chosen = "/";
    BUTwxWavDir_Click(form, services);
    EXPECT_EQ(form.LAWxWavDir, "/");
    fakes.dialogs.chosen = fakes.folder.path();
    BUTwxWavDir_Click(form, services);
    EXPECT_EQ(form.LAWxWavDir, fakes.folder.path().string() + "/");
    fakes.dialogs.chosen = fakes.folder.path() / "gone";
    BUTwxWavDir_Click(form, services);
    EXPECT_EQ(messages(), Texts{"Invalid Folder name, try again"});
    EXPECT_EQ(form.LAWxWavDir, fakes.folder.path().string() + "/");
}

TEST_F(MainSettingsTest, ADesktopWithoutTimeSettingsIsPassedOver) {
    BUTeditTZ_Click(services);
    EXPECT_EQ(fakes.desktop.opened, Texts{"time settings"});
    fakes.desktop.failure = "there is none";
    BUTeditTZ_Click(services);
    EXPECT_TRUE(messages().empty());
    EXPECT_TRUE(fakes.logLines().empty());
}

class CommaMachineTest : public MainSettingsTest {
  protected:
    CommaMachineTest() : MainSettingsTest(commaFormat()) {}
    static MachineFormat commaFormat() {
        MachineFormat format;
        format.decimalMark = ',';
        return format;
    }
};

TEST_F(CommaMachineTest, NumbersAreUnderstoodWithBothMarksAndKeptWithTheMachines) {
    fakes.settings.set("Longitude", "343.5");
    load();
    EXPECT_EQ(form.Tlonmin, "30");
    form.Tlatitude = "48,25";
    form.Theight = "170,5";
    EXPECT_TRUE(close());
    EXPECT_EQ(state.ObserverLatitude, 48.25);
    EXPECT_EQ(state.ObserverLongitude, 343.5);
    EXPECT_EQ(state.ObserverHeight, 170.5);
    EXPECT_EQ(stored("Latitude"), "48,25");
    EXPECT_EQ(stored("HASL"), "170,5") << "a point would stand between thousands here";
}

}  // namespace
}  // namespace vantrace
