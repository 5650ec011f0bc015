// The settings in a text file of the user.
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/settings_document.h"
#include "platform/settings_store.h"

namespace vantrace {

/// Values live in memory. Every change is written at once, whole or not at all, readable by the user alone;
/// at the end where a batch is open. Where the file can't be read or written the values live on, and are
/// written with the next change that can be; defaults only where the file then has no value. A file that is
/// there and can't be read is never written over. Another process may write the same file: its changes are
/// taken in by refresh() and before every write.
class FileSettingsStore final : public SettingsStore {
  public:
    explicit FileSettingsStore(std::filesystem::path path, std::string_view application = "Vantrace",
                               std::string_view section = "Settings");

    std::optional<std::string> get(std::string_view key) override;
    void set(std::string_view key, std::string_view value) override;
    void setDefault(std::string_view key, std::string_view value) override;
    void removeAll() override;
    void beginBatch() override;
    void endBatch() override;

    /// Reads the file again if it has changed; looks at no more than its stamp if not.
    void refresh();

  private:
    /// What tells one state of the file from another.
    struct Stamp {
        bool exists = false;
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        timespec modified{};

        bool operator==(const Stamp& other) const;
    };
    struct PendingValue {
        std::string key;
        std::string value;
        bool isDefault = false;
    };

    void hold(PendingValue value);
    bool isBeaten(const PendingValue& pending) const;
    Stamp stampOnDisk() const;
    void load();
    void storeChanges();
    void write();

    std::filesystem::path m_path;
    std::string m_heading;
    SettingsDocument m_document;
    /// Of the file that was read last; nothing after a write of our own.
    std::optional<Stamp> m_stamp;
    /// False where the file is there and can't be read.
    bool m_isReadable = true;
    int m_openBatches = 0;
    /// What the file doesn't have yet: a removal, and after it these values, by their keys in lower case.
    bool m_removalPending = false;
    std::map<std::string, PendingValue> m_pending;
};

}  // namespace vantrace
