// The windows of the program, by name.
#pragma once

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
    /// Runs once, when the registry holds the window; so a load may refer to its own window.
    virtual void load() = 0;
    virtual void show() = 0;
    virtual void hide() = 0;
    virtual bool isOnScreen() const = 0;
};

/// Each window exists once: made by the first reference, released by unloading, made afresh by a reference
/// after that. A name that nobody registered does nothing.
class WindowRegistry {
  public:
    using Maker = std::function<std::unique_ptr<RegisteredWindow>()>;

    void registerWindow(std::string name, Maker maker);
    bool isRegistered(std::string_view name) const;

    /// The window, made and loaded if need be; none for a name that nobody registered. What its making or its
    /// load throws comes out here; after a failed load the window is there all the same.
    RegisteredWindow* refer(std::string_view name);
    /// Makes the window if need be and shows it.
    void show(std::string_view name);

    /// These make nothing.
    bool isLoaded(std::string_view name) const;
    bool isOnScreen(std::string_view name) const;

    /// Hides a window at once and puts it aside: a handler of its own may still be on the stack.
    void unload(std::string_view name);
    /// Destroys the windows put aside; called when no handler is running.
    void releaseUnloaded();

  private:
    struct Entry {
        Maker maker;
        std::unique_ptr<RegisteredWindow> window;
    };

    const Entry* find(std::string_view name) const;
    Entry* find(std::string_view name);

    std::unordered_map<std::string, Entry> m_entries;
    std::vector<std::unique_ptr<RegisteredWindow>> m_unloaded;
};

}  // namespace vantrace
