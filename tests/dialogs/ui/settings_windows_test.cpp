// The windows of the main settings and of the map's, as the user works them.
#include "tests/dialogs/ui/dialog_windows_test.h"

namespace vantrace {
namespace {

using SettingsWindowsTest = DialogWindowsTest;

TEST_F(SettingsWindowsTest, ThePlaceThatIsTypedIsTheProgramsAsTheWindowCloses) {
    auto* const window = open<frmCONmain>("mnuCONmain");
    EXPECT_EQ(window->windowTitle().toStdString(), "Vantrace Main Settings");
    EXPECT_EQ(textOf(window, "Tlocation"), "Vienna");
    EXPECT_EQ(textOf(window, "Tlatitude"), "48.21");
    EXPECT_FALSE(childOf<QLineEdit>(window, "Tlatdeg")->isVisible());
    EXPECT_EQ(window->focusWidget(), childOf<QLineEdit>(window, "Tlocation"));
    auto* const location = childOf<QLineEdit>(window, "Tlocation");
    location->selectAll();
    location->insert(QStringLiteral("Graz\r\nx\n"));
    emit location->textEdited(location->text());
    EXPECT_EQ(stored("Location Name"), "Graz  x") << "as from the clipboard";
    retype(window, "Tlocation", "Graz");
    retype(window, "Tlatitude", "95");
    retype(window, "Tlongitude", "344.5");
    retype(window, "Theight", "353");
    EXPECT_EQ(stored("Location Name"), "Graz");
    EXPECT_EQ(stored("HASL"), "353");
    QTest::keyClick(window, Qt::Key_Escape);
    ViewProgram::settle();
    ASSERT_EQ(windowOnScreen<frmCONmain>(), window) << "the latitude keeps it";
    EXPECT_EQ(messages(), Texts{"Latitude should be less than 90"});
    retype(window, "Tlatitude", "47.07");
    click(window, "closeButton");
    ViewProgram::settle();
    EXPECT_EQ(windowOnScreen<frmCONmain>(), nullptr);
    EXPECT_EQ(stored("Latitude"), "47.07");
    EXPECT_EQ(program.state.ObserverLongitude, 344.5);
    program.fakes.host.handle("test", [this] { program.fakes.windows.focusCame("Main"); });
    EXPECT_EQ(textOf(windowOnScreen<Main>(), "Status3"), "Current Location settings are: Graz");
    EXPECT_TRUE(textOf(windowOnScreen<Main>(), "Status4").starts_with("47.07 deg Latitude"));
}

TEST_F(SettingsWindowsTest, SixBoxesTakeTheTurnOfTwo) {
    auto* const window = open<frmCONmain>("mnuCONmain");
    childOf<QRadioButton>(window, "OPnonDecDeg")->click();
    EXPECT_TRUE(childOf<QLineEdit>(window, "Tlatdeg")->isVisible());
    EXPECT_TRUE(childOf<QWidget>(window, "Label10")->isVisible());
    EXPECT_FALSE(childOf<QLineEdit>(window, "Tlatitude")->isVisible());
    EXPECT_EQ(textOf(window, "Tlatmin"), "12");
    savePicture(*window, "main-settings-dms");
    retype(window, "Tlondeg", "10");
    close(window);
    EXPECT_EQ(stored("DMS"), "1");
    EXPECT_EQ(stored("Longitude"), "10.6297") << "37 minutes and 47 seconds stood there";
    EXPECT_TRUE(childOf<QLineEdit>(open<frmCONmain>("mnuCONmain"), "Tlatdeg")->isVisible());
}

TEST_F(SettingsWindowsTest, TicksSlidersAndVoicesWork) {
    program.fakes.settings.set("Speechpack", "1");
    auto* const window = open<frmCONmain>("mnuCONmain");
    pick(window, "VoiceSelect", 1);
    EXPECT_EQ(program.fakes.speech.texts.back(), "Changed Voice to Bert");
    QTest::keyClick(childOf<QSlider>(window, "SLspeechspeed"), Qt::Key_PageUp);
    EXPECT_EQ(textOf(window, "LAspeechspeed"), "190 WPM");
    EXPECT_EQ(childOf<QSlider>(window, "SLspeechspeed")->toolTip(), QStringLiteral("190 WPM"));
    QTest::keyClick(childOf<QSlider>(window, "SLminEl"), Qt::Key_Right);
    EXPECT_EQ(stored("WxEL"), "1");
    for (const char* const tick : {"CHrecwxsat", "CHrecPrimary", "Chchangeres", "CHcomp"}) {
        childOf<QCheckBox>(window, tick)->click();
    }
    EXPECT_EQ(stored("RecWxsat") + stored("RecPrimary") + stored("ChangeRes") + stored("Compatibility"),
              "1111");
    EXPECT_EQ(messages().size(), 2U);
    EXPECT_TRUE(program.state.CompatibilityMode);
    program.fakes.dialogs.chosen = "/";
    click(window, "BUTwxWavDir");
    EXPECT_EQ(textOf(window, "LAWxWavDir"), "/");
    click(window, "BUTeditTZ");
    EXPECT_EQ(program.fakes.desktop.opened, Texts{"time settings"});
    close(window);
    EXPECT_EQ(stored("Voice"), "2");
    EXPECT_EQ(stored("WxWavDir"), "/");
}

TEST_F(SettingsWindowsTest, TheLookGoesAndComesBackAtOnce) {
    auto* const window = open<frmCONmain>("mnuCONmain");
    const QColor desktop = QApplication::palette().color(QPalette::Window);
    const QColor skinned = window->palette().color(QPalette::Window);
    ASSERT_NE(skinned, desktop);
    childOf<QCheckBox>(window, "CHskin")->click();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->palette().color(QPalette::Window), desktop);
    EXPECT_EQ(windowOnScreen<Main>()->palette().color(QPalette::Window), desktop);
    childOf<QCheckBox>(window, "CHskin")->click();
    EXPECT_EQ(window->palette().color(QPalette::Window), skinned);
    EXPECT_EQ(stored("Skin"), "1");
}

TEST_F(SettingsWindowsTest, TheMapsSettingsAreStoredAtEachChange) {
    program.fakes.settings.set("MapFile", "gone");
    auto* const window = open<frmCON2D>("mnu2Dsettings");
    EXPECT_EQ(window->windowTitle().toStdString(), "2D Controls");
    auto* const maps = childOf<QComboBox>(window, "COMmap");
    EXPECT_EQ(maps->currentIndex(), -1);
    EXPECT_EQ(maps->placeholderText(), QStringLiteral("gone"));
    EXPECT_EQ(childOf<QComboBox>(window, "COMhormap")->currentText(), QStringLiteral("hdefault"));
    pick(window, "COMmap", maps->findText(QStringLiteral("Political")));
    EXPECT_EQ(stored("MapFile"), "Political");
    QTest::keyClick(childOf<QSlider>(window, "SLgroundTrackLen"), Qt::Key_PageUp);
    EXPECT_EQ(textOf(window, "LABgroundtrackLen"), "150 Minutes");
    EXPECT_EQ(stored("GroundTrackLen"), "150");
    childOf<QCheckBox>(window, "CHaltworld")->click();
    childOf<QCheckBox>(window, "CHfootprints")->click();
    EXPECT_EQ(stored("AltWorld") + stored("ShowFootprints"), "10");
    EXPECT_EQ(messages().size(), 0U);
    QTest::keyClick(window, Qt::Key_Escape);
    ViewProgram::settle();
    EXPECT_EQ(windowOnScreen<frmCON2D>(), nullptr);
}

TEST_F(SettingsWindowsTest, TheWheelChangesOnlyWhatHasTheFocus) {
    program.fakes.settings.set("Speechpack", "1");
    auto* const window = open<frmCONmain>("mnuCONmain");
    const std::size_t spoken = program.fakes.speech.texts.size();
    for (const char* const name : {"VoiceSelect", "SLspeechspeed", "SLminEl"}) {
        auto* const control = childOf<QWidget>(window, name);
        EXPECT_NE(control->focusPolicy(), Qt::WheelFocus) << name;
        turnWheel(*control);
    }
    EXPECT_EQ(childOf<QComboBox>(window, "VoiceSelect")->currentIndex(), 0);
    EXPECT_EQ(program.fakes.speech.texts.size(), spoken);
    EXPECT_EQ(childOf<QSlider>(window, "SLspeechspeed")->value(), 180);
    EXPECT_EQ(childOf<QSlider>(window, "SLminEl")->value(), 0);
    childOf<QSlider>(window, "SLspeechspeed")->setFocus();
    turnWheel(*childOf<QSlider>(window, "SLspeechspeed"));
    EXPECT_NE(stored("SpeechSpeed"), "180");
    close(window);
    auto* const map = open<frmCON2D>("mnu2Dsettings");
    childOf<QCheckBox>(map, "CHaltworld")->setFocus();
    const std::string before = stored("MapFile") + stored("HorizonFile") + stored("MapUpdate");
    for (const char* const name : {"COMmap", "COMhormap", "SLMapUpdate", "SLgroundTrackLen"}) {
        turnWheel(*childOf<QWidget>(map, name));
    }
    EXPECT_EQ(stored("MapFile") + stored("HorizonFile") + stored("MapUpdate"), before);
    EXPECT_EQ(textOf(map, "LABgroundtrackLen"), "90 Minutes");
}

TEST_F(SettingsWindowsTest, EverythingHasItsPlaceInBothLooksAndItsCaption) {
    program.fakes.settings.set("WxWavDir", "/home/observer/recordings/");
    takePictures<frmCONmain>("mnuCONmain", "main-settings");
    takePictures<frmCON2D>("mnu2Dsettings", "map-settings");
    auto* const window = open<frmCONmain>("mnuCONmain");
    expectCaptions(
        window,
        {"frameLocation=Your Location Settings", "captionLocation=Location Name",
         "OPdecDeg=Co-ordinates in Decimal Degrees", "OPnonDecDeg=Co-ordinates in Degrees, Minutes, Seconds",
         "Label1=Lat", "Label2=Longitude", "Label9=Lat", "Label8=Longitude", "headingDeg=DEG",
         "headingMin=MIN", "headingSec=SEC", "noteLongitude=Longitude must be in Degrees WEST (0 to 359)",
         "captionHeight=Height above Sea Level (in Metres)", "captionTimezone=Timezone",
         "BUTeditTZ=View / Edit"});
    expectCaptions(window, {"frameSpeech=Speechpack Settings", "CHspeechpack=Speechpack Installed",
                            "captionVoice=Voice Name", "captionSpeed=Speed of Speech (in words per minute)"});
    expectCaptions(
        window,
        {"frameRecording=Audio Recording Settings", "CHrecwxsat=Record Weather Satellite Passes",
         "CHrecPrimary=Record Primary Satellite Passes", "captionMinEl=Minimum Elevation for Recording",
         "captionWavDir=Path to save Recorded WAVs", "BUTwxWavDir=Browse"});
    expectCaptions(
        window,
        {"frameMiscellanous=Miscellanous Settings", "Chchangeres=Change Resoultion up to 800x600 on Start up",
         "noteChangeRes=Only Switch this on if you like 640x480 mode", "CHcomp=Compatability Mode?",
         "noteComp=If you have difficulty bringing up the map views, put a tick in this box to disable "
         "'alphablending'",
         "CHskin=Vantrace \"Skinning\" Effect"});
    expectCaptions(
        open<frmCON2D>("mnu2Dsettings"),
        {"captionTrackLen=Groundtrack Length (in Minutes)", "captionMapUpdate=Map Update (in Seconds)",
         "CHgroundtrack=Show Groundtrack", "CHfootprints=Show Footprints",
         "CHaltworld=Alternate World View (Ideal for Australia/New Zealand)", "CHshowinfopane=Show Info Pane",
         "captionMap=2D Map Image File", "captionHorizon=Panoramic Horizon View Image File"});
}

}  // namespace
}  // namespace vantrace
