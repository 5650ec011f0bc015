// The windows of the program, by name, and when each of them is told that it is the active one.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vantrace {

/// What the registry knows of a window.
class RegisteredWindow {
  public:
    virtual ~RegisteredWindow() = default;
    /// `Form_Load`. Runs once, when the registry holds the window; so a load may refer to its own window.
    virtual void load() = 0;
    /// `Form_Activate`.
    virtual void activate() {}
    /// `Form_QueryUnload`: false keeps the window.
    virtual bool queryUnload() { return true; }
    /// The window is put aside: its timers stop, and of its handlers only `Form_Unload` runs after this.
    virtual void retire() {}
    /// `Form_Unload`. The window is out of the registry and off the screen by then.
    virtual void unload() {}

    virtual void show() = 0;
    virtual void hide() = 0;
    virtual bool isOnScreen() const = 0;
    /// Whether the keyboard speaks to this window.
    virtual bool hasFocus() const { return false; }

    /// Around each yield of a handler: what the window holds goes to its controls, and what the user did to
    /// them in the meantime comes back.
    virtual void beforeYield() {}
    virtual void afterYield() {}
};

/// Each window exists once: made by the first reference, released by unloading, made afresh by a reference
/// after that. A name that nobody registered does nothing.
///
/// `Form_Activate` is called here and nowhere else: when a window is shown that was hidden or wasn't the
/// active one, and when the focus comes to it from another of our windows. The window system tells of a focus
/// later than the show that brought it, so that one counts for nothing; neither does an activation of a
/// window inside its own `Form_Activate`.
class WindowRegistry {
  public:
    using Maker = std::function<std::unique_ptr<RegisteredWindow>()>;

    void registerWindow(std::string name, Maker maker);
    bool isRegistered(std::string_view name) const;

    /// The window, made and loaded if need be; none for a name that nobody registered. What its making or its
    /// load throws comes out here; after a failed load the window is there all the same.
    RegisteredWindow* refer(std::string_view name);
    /// Makes the window if need be, shows it, and activates it.
    void show(std::string_view name);
    /// Takes the window off the screen; makes nothing.
    void hide(std::string_view name);
    /// The window system gave the focus to this window.
    void focusCame(std::string_view name);

    /// These make nothing.
    bool isLoaded(std::string_view name) const;
    bool isOnScreen(std::string_view name) const;

    /// Asks the window, hides it at once and puts it aside: a handler of its own may still be on the stack.
    void unload(std::string_view name);
    /// Takes every window off the screen and puts it aside, untold; from then on nothing is made or shown.
    void close();
    bool hasUnloaded() const { return !m_unloaded.empty(); }
    /// Destroys the windows put aside; called when no handler is running.
    void releaseUnloaded();

    /// For all windows there are.
    void beforeYield();
    void afterYield();

  private:
    struct Entry {
        Maker maker;
        std::unique_ptr<RegisteredWindow> window;
        /// The window whose `Form_Activate` is running; a window made anew under the name is another.
        RegisteredWindow* activating = nullptr;
        bool isAskedToUnload = false;
        /// The number of the show whose focus the window system still owes; 0 when it owes none.
        std::uint64_t owedFocus = 0;
    };

    const Entry* find(std::string_view name) const;
    Entry* find(std::string_view name);
    void activate(std::string_view name, Entry& entry);
    void forEachWindow(void (RegisteredWindow::*action)());

    std::unordered_map<std::string, Entry> m_entries;
    std::vector<std::unique_ptr<RegisteredWindow>> m_unloaded;
    /// The window that was activated last; empty when it has been unloaded or hidden.
    std::string m_active;
    std::uint64_t m_shows = 0;
    bool m_isClosed = false;
};

}  // namespace vantrace
