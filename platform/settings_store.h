// The user's settings: texts by key.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

/// Keys are matched without regard to the case of A to Z; the spelling that was stored first stays. Values
/// are any bytes. No operation fails: what can't be stored for good is held until the program ends.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    /// The value as it was set; nothing where the key isn't there. Costs no access to the disk.
    virtual std::optional<std::string> get(std::string_view key) = 0;
    /// Sets a value for good. Setting the value that is already held writes nothing.
    virtual void set(std::string_view key, std::string_view value) = 0;
    /// Sets what stands for a key that nobody has set: a value that turns up in the store later beats it.
    virtual void setDefault(std::string_view key, std::string_view value) { set(key, value); }
    /// Removes every key of the section.
    virtual void removeAll() = 0;

    /// What is set between these two may be stored at the end, in one go. They can be nested.
    virtual void beginBatch() {}
    virtual void endBatch() {}
};

/// Holds a batch open for as long as it lives.
class SettingsBatch {
  public:
    explicit SettingsBatch(SettingsStore& store) : m_store(store) { m_store.beginBatch(); }
    ~SettingsBatch() { m_store.endBatch(); }
    SettingsBatch(const SettingsBatch&) = delete;
    SettingsBatch& operator=(const SettingsBatch&) = delete;

  private:
    SettingsStore& m_store;
};

}  // namespace vantrace
