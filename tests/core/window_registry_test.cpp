#include "core/window_registry.h"

#include "tests/support/fake_window.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

struct Windows {
    Windows() {
        registerFake(registry, "Main", main);
        registerFake(registry, "Horizon", horizon);
    }
    /// What the user and the window system do: "show Main", "hide Main", "unload Main", "focus Main".
    void play(const Texts& steps) {
        for (const std::string& step : steps) {
            const std::string window = step.substr(step.find(' ') + 1);
            if (step.starts_with("show")) registry.show(window);
            if (step.starts_with("hide")) registry.hide(window);
            if (step.starts_with("unload")) registry.unload(window);
            if (step.starts_with("focus")) registry.focusCame(window);
        }
    }

    // Before the registry, which destroys the windows.
    WindowScript main;
    WindowScript horizon;
    WindowRegistry registry;
};

class WindowRegistryTest : public testing::Test, protected Windows {};

TEST_F(WindowRegistryTest, AskingMakesNothingNorDoesANameThatNobodyRegistered) {
    play({"unload Horizon", "hide Horizon", "focus Horizon", "show nobody", "unload nobody"});
    for (const char* const name : {"Horizon", "nobody"}) {
        EXPECT_FALSE(registry.isOnScreen(name));
        EXPECT_FALSE(registry.isLoaded(name));
    }
    EXPECT_EQ(horizon.made, 0);
    EXPECT_FALSE(registry.isRegistered("nobody"));
    EXPECT_EQ(registry.refer("nobody"), nullptr);
}

TEST_F(WindowRegistryTest, AWindowIsMadeOnceAndAfreshAfterUnloading) {
    RegisteredWindow* const window = registry.refer("Horizon");
    EXPECT_EQ(registry.refer("Horizon"), window);
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    registry.show("Horizon");
    EXPECT_EQ(horizon.notes, (Texts{"load", "show", "activate"}));

    registry.unload("Horizon");
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    EXPECT_FALSE(window->isOnScreen()) << "hidden, but not destroyed under its own handler";
    registry.show("Horizon");
    EXPECT_EQ(horizon.made, 2);
    EXPECT_EQ(horizon.alive, 2);
    registry.releaseUnloaded();
    EXPECT_EQ(horizon.alive, 1);
    EXPECT_TRUE(registry.isOnScreen("Horizon"));
}

TEST_F(WindowRegistryTest, ALoadMayReferToItsOwnWindowOrUnloadIt) {
    horizon.onLoad = [this] { registry.refer("Horizon"); };
    registry.show("Horizon");
    EXPECT_EQ(horizon.made, 1);
    registry.unload("Horizon");

    horizon.onLoad = [this] { registry.unload("Horizon"); };
    registry.show("Horizon");
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    registry.releaseUnloaded();
    EXPECT_EQ(horizon.alive, 0);
}

TEST_F(WindowRegistryTest, AnUnloadedWindowIsStoppedAndHiddenBeforeItIsTold) {
    horizon.onUnload = [this] {
        EXPECT_FALSE(registry.isLoaded("Horizon"));
        registry.unload("Horizon");
        registry.show("Main");
    };
    registry.show("Horizon");
    registry.unload("Horizon");
    EXPECT_EQ(horizon.notes, (Texts{"load", "show", "activate", "retire", "hide", "unload"}));
    EXPECT_TRUE(registry.isOnScreen("Main"));
}

TEST_F(WindowRegistryTest, AWindowCanRefuseToGo) {
    horizon.staysOpen = true;
    registry.show("Horizon");
    registry.unload("Horizon");
    EXPECT_TRUE(registry.isOnScreen("Horizon"));
    EXPECT_EQ(horizon.count("unload"), 0);
}

TEST(WindowActivation, HappensOnceForEachWayToAWindow) {
    struct Case {
        const char* claim;
        Texts steps;
        int ofMain;
    };
    for (const Case& test : std::vector<Case>{
             {"shown again, it was active", {"show Main", "show Main"}, 1},
             {"shown already, but another was active", {"show Main", "show Horizon", "show Main"}, 2},
             {"hidden and shown", {"show Main", "hide Main", "show Main"}, 2},
             {"the focus came late", {"show Main", "show Horizon", "focus Horizon"}, 1},
             {"a focus that never came is not waited for",
              {"show Main", "show Horizon", "focus Horizon", "focus Main"},
              2},
             {"hidden before its focus came", {"show Main", "show Horizon", "hide Main", "focus Main"}, 1},
             {"back from a message box", {"show Main", "focus Main", "focus Main"}, 1},
             {"back from a window of ours",
              {"show Main", "focus Main", "show Horizon", "focus Horizon", "unload Horizon", "focus Main"},
              2},
             {"a focus that the window system refuses hides no later one",
              {"show Horizon", "focus Horizon", "show Main", "focus Horizon", "focus Main"},
              2}}) {
        Windows windows;
        windows.play(test.steps);
        EXPECT_EQ(windows.main.count("activate"), test.ofMain) << test.claim;
    }
}

TEST_F(WindowRegistryTest, TheFocusThatAShowBringsLaterDoesNotActivateAgain) {
    main.onActivate = [this] { registry.show("Horizon"); };
    registry.show("Main");
    // The window system comes behind: the focus of Main arrives after Horizon has been shown.
    registry.focusCame("Main");
    registry.focusCame("Horizon");
    EXPECT_EQ(main.count("activate"), 1);
    EXPECT_EQ(horizon.count("activate"), 1);

    registry.focusCame("Main");
    EXPECT_EQ(main.count("activate"), 2) << "now the user went there";
}

TEST_F(WindowRegistryTest, AnActivationInsideItsOwnIsDropped) {
    horizon.onUnload = [this] { registry.show("Main"); };
    main.onActivate = [this] {
        registry.unload("Horizon");
        registry.show("Main");
        registry.focusCame("Main");
    };
    registry.show("Horizon");
    registry.show("Main");
    EXPECT_EQ(main.count("activate"), 1);
    EXPECT_EQ(horizon.count("unload"), 1);
}

TEST_F(WindowRegistryTest, AWindowShownInItsOwnActivationIsTheActiveOne) {
    main.onActivate = [this] {
        if (main.count("activate") > 1) return;
        registry.show("Horizon");
        registry.hide("Horizon");
        registry.show("Main");
    };
    registry.show("Main");
    registry.focusCame("Main");
    registry.focusCame("Main");
    EXPECT_EQ(main.count("activate"), 1) << "a message box that closes is no way to get here";
}

TEST_F(WindowRegistryTest, AWindowMadeAnewInsideItsOwnActivationIsActivated) {
    horizon.onActivate = [this] {
        if (horizon.made > 1) return;
        registry.unload("Horizon");
        registry.show("Horizon");
    };
    registry.show("Horizon");
    EXPECT_EQ(horizon.count("activate"), 2);
}

TEST_F(WindowRegistryTest, AfterItsCloseNothingIsMadeOrTold) {
    horizon.onUnload = [this] { registry.show("Main"); };
    registry.show("Horizon");
    registry.close();
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    EXPECT_EQ(horizon.count("retire"), 1);
    EXPECT_EQ(horizon.count("unload"), 0);
    registry.show("Main");
    EXPECT_EQ(main.made, 0);
    registry.releaseUnloaded();
    EXPECT_EQ(horizon.alive, 0);
}

}  // namespace
}  // namespace vantrace
