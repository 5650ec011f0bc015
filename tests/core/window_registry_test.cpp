#include "core/window_registry.h"

#include <gtest/gtest.h>

#include "tests/support/fake_window.h"

namespace vantrace {
namespace {

using Notes = std::vector<std::string>;

class WindowRegistryTest : public testing::Test {
  protected:
    WindowRegistryTest() {
        registerFake(registry, "Main", main);
        registerFake(registry, "Horizon", horizon);
    }

    // Before the registry, which destroys the windows.
    WindowScript main;
    WindowScript horizon;
    WindowRegistry registry;
};

TEST_F(WindowRegistryTest, AskingMakesNothing) {
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    EXPECT_FALSE(registry.isLoaded("Horizon"));
    registry.unload("Horizon");
    registry.hide("Horizon");
    registry.focusCame("Horizon");
    EXPECT_EQ(horizon.made, 0);
}

TEST_F(WindowRegistryTest, ANameThatNobodyRegisteredDoesNothing) {
    EXPECT_FALSE(registry.isRegistered("nobody"));
    EXPECT_EQ(registry.refer("nobody"), nullptr);
    registry.show("nobody");
    registry.unload("nobody");
    EXPECT_FALSE(registry.isOnScreen("nobody"));
}

TEST_F(WindowRegistryTest, AWindowIsMadeOnceAndAfreshAfterUnloading) {
    RegisteredWindow* const window = registry.refer("Horizon");
    EXPECT_EQ(registry.refer("Horizon"), window);
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    registry.show("Horizon");
    EXPECT_EQ(horizon.notes, (Notes{"load", "show", "activate"}));

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
    EXPECT_EQ(horizon.notes, (Notes{"load", "show", "activate", "retire", "hide", "unload"}));
    EXPECT_TRUE(registry.isOnScreen("Main"));
}

TEST_F(WindowRegistryTest, AWindowCanRefuseToGo) {
    horizon.staysOpen = true;
    registry.show("Horizon");
    registry.unload("Horizon");
    EXPECT_TRUE(registry.isOnScreen("Horizon"));
    EXPECT_EQ(horizon.count("unload"), 0);
}

TEST_F(WindowRegistryTest, ShowingActivatesOnlyWhatWasNotTheActiveWindow) {
    registry.show("Main");
    registry.show("Main");
    EXPECT_EQ(main.count("activate"), 1);
    registry.show("Horizon");
    registry.show("Main");
    EXPECT_EQ(main.count("activate"), 2) << "shown already, but another window was active";
    registry.hide("Main");
    registry.show("Main");
    EXPECT_EQ(main.count("activate"), 3);
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

TEST_F(WindowRegistryTest, AFocusThatNeverCameIsNotWaitedFor) {
    registry.show("Main");
    registry.show("Horizon");
    registry.focusCame("Horizon");
    EXPECT_EQ(main.count("activate"), 1);
    registry.focusCame("Main");
    EXPECT_EQ(main.count("activate"), 2);
}

TEST_F(WindowRegistryTest, AFocusThatComesAfterTheWindowWasHiddenCountsForNothing) {
    registry.show("Main");
    registry.show("Horizon");
    registry.hide("Main");
    registry.focusCame("Main");
    EXPECT_EQ(main.count("activate"), 1);
}

TEST_F(WindowRegistryTest, AFocusThatComesBackFromAMessageBoxActivatesNothing) {
    registry.show("Main");
    registry.focusCame("Main");
    registry.focusCame("Main");
    EXPECT_EQ(main.count("activate"), 1);

    registry.show("Horizon");
    registry.focusCame("Horizon");
    registry.unload("Horizon");
    registry.focusCame("Main");
    EXPECT_EQ(main.count("activate"), 2) << "back from a window of ours";
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

TEST_F(WindowRegistryTest, AFocusThatIsNeverGrantedHidesNoLaterOne) {
    registry.show("Horizon");
    registry.focusCame("Horizon");
    registry.show("Main");  // the window system refuses the focus
    registry.focusCame("Horizon");
    registry.focusCame("Main");
    EXPECT_EQ(main.count("activate"), 2);
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
