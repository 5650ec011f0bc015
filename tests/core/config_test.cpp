// Settings as the routines read them, and the services that go by them.
#include "core/config.h"

#include "core/core_services.h"
#include "core/program_state.h"
#include "core/skin.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(GetConfig, TheFirstReadMakesTheKeyWithItsDefault) {
    TestServices test;
    EXPECT_EQ(GetConfig(test.services, "MapUpdate", "2"), "2");
    EXPECT_EQ(test.settings.get("MapUpdate"), "2");
    EXPECT_EQ(GetConfig(test.services, "mapupdate", "9"), "2") << "the default of the first reader stays";
    EXPECT_EQ(test.settings.writes(), 1);
    ProgramState state;
    state.AppPath = "/opt/vantrace/";
    EXPECT_EQ(GetConfig(state, test.services, settings::wxWavDir), "/opt/vantrace/");
    EXPECT_EQ(test.settings.get("WxWavDir"), "/opt/vantrace/");
}

TEST(GetConfig, ABlankValueCannotSurvive) {
    TestServices test;
    for (const char* const blank : {"", "   "}) {
        SaveConfig(test.services, "Location Name", blank);
        EXPECT_EQ(GetConfig(test.services, "Location Name", "Default"), "Default");
        EXPECT_EQ(test.settings.get("Location Name"), "Default");
    }
    SaveConfig(test.services, "Location Name", " Home ");
    EXPECT_EQ(GetConfig(test.services, "Location Name", "Default"), " Home ") << "only blanks are blank";
}

TEST(GetConfig, WhoeverAsksForTheProxyPortFirstFixesIt) {
    TestServices flaresFirst;
    EXPECT_EQ(GetConfig(flaresFirst.services, settings::proxyPortForFlares), "80");
    EXPECT_EQ(GetConfig(flaresFirst.services, settings::proxyPortForUpdates), "80");
    TestServices updatesFirst;
    EXPECT_EQ(GetConfig(updatesFirst.services, settings::proxyPortForUpdates), "1080");
    EXPECT_EQ(GetConfig(updatesFirst.services, settings::proxyPortForFlares), "1080");
}

TEST(Speak, IsSilentOnlyWhereSpeechpackIsZero) {
    TestServices test;
    Speak(test.services, "not heard");
    EXPECT_EQ(test.settings.get("Speechpack"), "0");
    EXPECT_TRUE(test.speech.texts.empty());
    SaveConfig(test.services, "SpeechPack", "2");
    Speak(test.services, "heard");
    EXPECT_EQ(test.speech.texts, Texts{"heard"});
    test.speech.fails = true;
    EXPECT_NO_THROW(Speak(test.services, "lost"));
    EXPECT_TRUE(test.logLines().empty());
}

TEST(YieldCycles, YieldsTwiceForEach) {
    CountingEventQueue events;
    YieldCycles(events, 100);
    EXPECT_EQ(events.yields, 200);
    YieldCycles(events, 0);
    YieldCycles(events, -1);
    EXPECT_EQ(events.yields, 200);
}

TEST(ApplySkin, GivesTheLookForOneAndChangesNothingOtherwise) {
    TestServices test;
    Skin skin;
    ApplySkin(test.services, skin);
    EXPECT_TRUE(skin.isApplied) << "the default";
    SaveConfig(test.services, settings::skin, "0");
    ApplySkin(test.services, skin);
    EXPECT_TRUE(skin.isApplied) << "taken away only by remove";
    skin.remove();
    for (const char* const other : {"0", "2", "yes"}) {
        SaveConfig(test.services, settings::skin, other);
        ApplySkin(test.services, skin);
        EXPECT_FALSE(skin.isApplied) << other;
    }
}

}  // namespace
}  // namespace vantrace
