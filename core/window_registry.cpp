#include "core/window_registry.h"

#include <utility>

namespace vantrace {

void WindowRegistry::registerWindow(std::string name, Maker maker) {
    m_entries[std::move(name)].maker = std::move(maker);
}

bool WindowRegistry::isRegistered(std::string_view name) const {
    return find(name) != nullptr;
}

RegisteredWindow* WindowRegistry::refer(std::string_view name) {
    Entry* const entry = find(name);
    if (entry == nullptr) return nullptr;
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
    if (RegisteredWindow* const window = refer(name)) window->show();
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
    if (entry == nullptr || !entry->window) return;
    m_unloaded.push_back(std::move(entry->window));
    m_unloaded.back()->hide();
}

void WindowRegistry::releaseUnloaded() {
    // What a destructor unloads in turn comes to the new list.
    std::exchange(m_unloaded, {}).clear();
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
