// A window without a screen.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/window_registry.h"

namespace vantrace {

/// What a window does when it is told something, and the notes of what it was told.
struct WindowScript {
    std::function<void()> onLoad;
    std::function<void()> onShow;
    std::function<void()> onActivate;
    std::function<void()> onUnload;
    bool staysOpen = false;

    /// "load", "show", "activate", "hide", "retire", "unload", in their order.
    std::vector<std::string> notes;
    int made = 0;
    int alive = 0;

    int count(const std::string& note) const {
        return static_cast<int>(std::count(notes.begin(), notes.end(), note));
    }
};

class FakeWindow final : public RegisteredWindow {
  public:
    explicit FakeWindow(WindowScript& script) : m_script(script) {
        ++m_script.made;
        ++m_script.alive;
    }
    ~FakeWindow() override { --m_script.alive; }
    FakeWindow(const FakeWindow&) = delete;
    FakeWindow& operator=(const FakeWindow&) = delete;

    void load() override { note("load", m_script.onLoad); }
    void activate() override { note("activate", m_script.onActivate); }
    bool queryUnload() override { return !m_script.staysOpen; }
    void retire() override { note("retire", {}); }
    void unload() override { note("unload", m_script.onUnload); }
    void show() override {
        m_isShown = true;
        note("show", m_script.onShow);
    }
    void hide() override {
        m_isShown = false;
        note("hide", {});
    }
    bool isOnScreen() const override { return m_isShown; }

  private:
    void note(const std::string& what, const std::function<void()>& then) {
        m_script.notes.push_back(what);
        if (then) then();
    }

    WindowScript& m_script;
    bool m_isShown = false;
};

/// The script outlives the registry's use of the window.
inline void registerFake(WindowRegistry& registry, const std::string& name, WindowScript& script) {
    registry.registerWindow(name, [&script] { return std::make_unique<FakeWindow>(script); });
}

}  // namespace vantrace
