#include "core/window_registry.h"

#include <utility>

namespace vantrace {

namespace {

/// Holds a value in a variable for as long as it lives.
template <class Value>
class Held {
  public:
    Held(Value& variable, Value value) : m_variable(variable), m_before(std::exchange(variable, value)) {}
    ~Held() { m_variable = m_before; }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

  private:
    Value& m_variable;
    Value m_before;
};

}  // namespace

void WindowRegistry::registerWindow(std::string name, Maker maker) {
    m_entries[std::move(name)].maker = std::move(maker);
}

bool WindowRegistry::isRegistered(std::string_view name) const {
    return find(name) != nullptr;
}

RegisteredWindow* WindowRegistry::refer(std::string_view name) {
    Entry* const entry = find(name);
    if (entry == nullptr || m_isClosed) return nullptr;
    if (!entry->window) {
        entry->window = entry->maker();
        RegisteredWindow* const made = entry->window.get();
        made->load();
        // A load may unload its own window; then there is none, and who wants one refers again.
        return entry->window.get() == made ? made : nullptr;
    }
    return entry->window.get();
}

void WindowRegistry::show(std::string_view name) {
    RegisteredWindow* const window = refer(name);
    if (window == nullptr) return;
    Entry& entry = *find(name);
    const bool wasActive = window->isOnScreen() && m_active == name;
    // Set before the show, since some window systems give the focus at once.
    ++m_shows;
    if (!window->hasFocus()) entry.owedFocus = m_shows;
    window->show();
    if (!wasActive && entry.window.get() == window) activate(name, entry);
}

void WindowRegistry::hide(std::string_view name) {
    Entry* const entry = find(name);
    if (entry == nullptr || !entry->window) return;
    entry->owedFocus = 0;
    if (m_active == name) m_active.clear();
    entry->window->hide();
}

void WindowRegistry::focusCame(std::string_view name) {
    Entry* const entry = find(name);
    // A window that was hidden meanwhile only had its news late.
    if (entry == nullptr || !entry->window || !entry->window->isOnScreen()) return;
    if (entry->owedFocus != 0) {
        // What was shown before won't get its focus any more.
        const std::uint64_t paid = entry->owedFocus;
        for (auto& [otherName, other] : m_entries) {
            if (other.owedFocus <= paid) other.owedFocus = 0;
        }
        return;
    }
    if (m_active == name) return;
    // The user went here himself; what is still owed to others won't come.
    for (auto& [otherName, other] : m_entries) other.owedFocus = 0;
    activate(name, *entry);
}

bool WindowRegistry::isLoaded(std::string_view name) const {
    const Entry* const entry = find(name);
    return entry != nullptr && entry->window != nullptr;
}

bool WindowRegistry::isOnScreen(std::string_view name) const {
    const Entry* const entry = find(name);
    return entry != nullptr && entry->window != nullptr && entry->window->isOnScreen();
}

void WindowRegistry::unload(std::string_view name) {
    Entry* const entry = find(name);
    if (entry == nullptr || !entry->window || entry->isAskedToUnload) return;
    {
        const Held asking(entry->isAskedToUnload, true);
        if (!entry->window->queryUnload()) return;
    }
    entry->owedFocus = 0;
    if (m_active == name) m_active.clear();
    m_unloaded.push_back(std::move(entry->window));
    RegisteredWindow& window = *m_unloaded.back();
    window.retire();
    window.hide();
    window.unload();
}

void WindowRegistry::close() {
    m_isClosed = true;
    m_active.clear();
    for (auto& [name, entry] : m_entries) {
        if (!entry.window) continue;
        m_unloaded.push_back(std::move(entry.window));
        m_unloaded.back()->retire();
        m_unloaded.back()->hide();
    }
}

void WindowRegistry::releaseUnloaded() {
    // What a destructor unloads in turn comes to the new list.
    std::exchange(m_unloaded, {}).clear();
}

void WindowRegistry::beforeYield() {
    forEachWindow(&RegisteredWindow::beforeYield);
}

void WindowRegistry::afterYield() {
    forEachWindow(&RegisteredWindow::afterYield);
}

void WindowRegistry::activate(std::string_view name, Entry& entry) {
    m_active = name;
    RegisteredWindow* const window = entry.window.get();
    if (entry.activating == window) return;
    const Held activating(entry.activating, window);
    window->activate();
}

void WindowRegistry::forEachWindow(void (RegisteredWindow::*action)()) {
    for (auto& [name, entry] : m_entries) {
        if (entry.window) (entry.window.get()->*action)();
    }
}

const WindowRegistry::Entry* WindowRegistry::find(std::string_view name) const {
    const auto entry = m_entries.find(std::string(name));
    return entry == m_entries.end() ? nullptr : &entry->second;
}

WindowRegistry::Entry* WindowRegistry::find(std::string_view name) {
    const auto entry = m_entries.find(std::string(name));
    return entry == m_entries.end() ? nullptr : &entry->second;
}

}  // namespace vantrace
