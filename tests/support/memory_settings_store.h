// Settings that live as long as a test.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "core/texts.h"
#include "platform/settings_store.h"

namespace vantrace {

class MemorySettingsStore final : public SettingsStore {
  public:
    std::optional<std::string> get(std::string_view key) override {
        const auto entry = m_entries.find(lowerCased(key));
        if (entry == m_entries.end()) return std::nullopt;
        return entry->second.value;
    }

    void set(std::string_view key, std::string_view value) override {
        const auto [entry, isNew] = m_entries.try_emplace(lowerCased(key));
        if (!isNew && entry->second.value == value) return;
        if (isNew) entry->second.spelling = key;
        entry->second.value = value;
        ++m_writes;
    }

    void removeAll() override { m_entries.clear(); }

    /// How often a value was really stored.
    int writes() const { return m_writes; }
    /// The spelling under which a key was first stored; empty where it isn't there.
    std::string spelling(std::string_view key) const {
        const auto entry = m_entries.find(lowerCased(key));
        return entry == m_entries.end() ? std::string() : entry->second.spelling;
    }

  private:
    struct Entry {
        std::string spelling;
        std::string value;
    };
    std::map<std::string, Entry> m_entries;
    int m_writes = 0;
};

}  // namespace vantrace
