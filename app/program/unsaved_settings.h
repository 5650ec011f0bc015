// Settings that are read from a store and never written back.
#pragma once

#include <map>
#include <string>

#include "core/texts.h"
#include "platform/settings_store.h"

namespace vantrace {

class UnsavedSettings final : public SettingsStore {
  public:
    /// The store outlives this.
    explicit UnsavedSettings(SettingsStore& store) : m_store(store) {}

    std::optional<std::string> get(std::string_view key) override {
        const auto held = m_held.find(lowerCased(key));
        if (held != m_held.end()) return held->second;
        return m_isEmptied ? std::nullopt : m_store.get(key);
    }
    void set(std::string_view key, std::string_view value) override {
        m_held.insert_or_assign(lowerCased(key), std::string(value));
    }
    /// The store may come to hold the user's own value.
    void setDefault(std::string_view /*key*/, std::string_view /*value*/) override {}
    void removeAll() override {
        m_held.clear();
        m_isEmptied = true;
    }

  private:
    SettingsStore& m_store;
    std::map<std::string, std::string> m_held;
    bool m_isEmptied = false;
};

}  // namespace vantrace
