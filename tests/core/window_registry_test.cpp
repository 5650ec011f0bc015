#include "core/window_registry.h"

#include <gtest/gtest.h>

namespace vantrace {
namespace {

struct WindowCounts {
    int made = 0;
    int loaded = 0;
    int alive = 0;
};

class CountedWindow final : public RegisteredWindow {
  public:
    CountedWindow(WindowCounts& counts, std::function<void()> onLoad)
        : m_counts(counts), m_onLoad(std::move(onLoad)) {
        ++m_counts.made;
        ++m_counts.alive;
    }
    ~CountedWindow() override { --m_counts.alive; }
    void load() override {
        ++m_counts.loaded;
        if (m_onLoad) m_onLoad();
    }
    void show() override { m_isShown = true; }
    void hide() override { m_isShown = false; }
    bool isOnScreen() const override { return m_isShown; }

  private:
    WindowCounts& m_counts;
    std::function<void()> m_onLoad;
    bool m_isShown = false;
};

class WindowRegistryTest : public testing::Test {
  protected:
    WindowRegistryTest() {
        registry.registerWindow("Horizon",
                                [this] { return std::make_unique<CountedWindow>(counts, onLoad); });
    }

    WindowCounts counts;
    std::function<void()> onLoad;
    WindowRegistry registry;
};

TEST_F(WindowRegistryTest, AskingMakesNothing) {
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    EXPECT_FALSE(registry.isLoaded("Horizon"));
    EXPECT_FALSE(registry.isOnScreen("nobody"));
    registry.unload("Horizon");
    EXPECT_EQ(counts.made, 0);
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
    EXPECT_TRUE(registry.isOnScreen("Horizon"));
    EXPECT_EQ(counts.loaded, 1);

    registry.unload("Horizon");
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    EXPECT_FALSE(window->isOnScreen()) << "hidden, but not destroyed under its own handler";
    registry.show("Horizon");
    EXPECT_EQ(counts.made, 2);
    EXPECT_EQ(counts.alive, 2);
    registry.releaseUnloaded();
    EXPECT_EQ(counts.alive, 1);
    EXPECT_TRUE(registry.isOnScreen("Horizon"));
}

TEST_F(WindowRegistryTest, ALoadMayReferToItsOwnWindowOrUnloadIt) {
    onLoad = [this] { registry.refer("Horizon"); };
    registry.show("Horizon");
    EXPECT_EQ(counts.made, 1);
    registry.unload("Horizon");

    onLoad = [this] { registry.unload("Horizon"); };
    registry.show("Horizon");
    EXPECT_FALSE(registry.isOnScreen("Horizon"));
    registry.releaseUnloaded();
    EXPECT_EQ(counts.alive, 0);
}

}  // namespace
}  // namespace vantrace
