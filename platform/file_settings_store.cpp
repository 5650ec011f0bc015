#include "platform/file_settings_store.h"

#include <cerrno>
#include <utility>

#include "platform/file_replacement.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

/// No settings of ours come near; what is longer is somebody else's file, or damage.
constexpr std::size_t largestFileBytes = std::size_t{4} * 1024 * 1024;
constexpr mode_t fileMode = 0600;
constexpr mode_t folderMode = 0700;

/// Makes the folder and those on the way to it, for the user alone. What stands in the way shows at the
/// write.
void makePrivateFolder(const std::filesystem::path& folder) {
    std::error_code error;
    if (folder.empty() || std::filesystem::exists(folder, error)) return;
    if (folder.parent_path() != folder) makePrivateFolder(folder.parent_path());
    ::mkdir(folder.c_str(), folderMode);
}

}  // namespace

bool FileSettingsStore::Stamp::operator==(const Stamp& other) const {
    return exists == other.exists && device == other.device && inode == other.inode && size == other.size &&
           modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
}

FileSettingsStore::FileSettingsStore(std::filesystem::path path, std::string_view application,
                                     std::string_view section)
    : m_path(std::move(path)),
      m_heading(std::string(application) + "/" + std::string(section)),
      m_document("", m_heading) {
    load();
}

std::optional<std::string> FileSettingsStore::get(std::string_view key) {
    const std::string* const value = m_document.find(key);
    if (value == nullptr) return std::nullopt;
    return *value;
}

void FileSettingsStore::set(std::string_view key, std::string_view value) {
    hold({std::string(key), std::string(value), false});
}

void FileSettingsStore::setDefault(std::string_view key, std::string_view value) {
    hold({std::string(key), std::string(value), true});
}

void FileSettingsStore::hold(PendingValue value) {
    std::string key = settingsKey(value.key);
    if (!m_document.set(value.key, value.value)) {
        // The user has chosen what was the default.
        if (const auto held = m_pending.find(key); held != m_pending.end() && !value.isDefault) {
            held->second.isDefault = false;
        }
        return;
    }
    m_pending[std::move(key)] = std::move(value);
    storeChanges();
}

void FileSettingsStore::removeAll() {
    m_document.removeAll();
    m_pending.clear();
    m_removalPending = true;
    storeChanges();
}

void FileSettingsStore::beginBatch() {
    ++m_openBatches;
}

void FileSettingsStore::endBatch() {
    --m_openBatches;
    storeChanges();
}

void FileSettingsStore::refresh() {
    if (m_stamp == stampOnDisk()) return;
    load();
    storeChanges();
}

FileSettingsStore::Stamp FileSettingsStore::stampOnDisk() const {
    struct stat status {};
    // Where the way to the file is barred nobody knows whether there is one: then there is.
    if (stat(m_path.c_str(), &status) != 0) return {errno != ENOENT && errno != ENOTDIR, 0, 0, 0, {}};
    return {true, status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

void FileSettingsStore::load() {
    // Taken before the reading: what is written in between shows as one more change.
    const Stamp stamp = stampOnDisk();
    m_stamp = stamp;
    std::string text;
    m_isReadable = true;
    if (stamp.exists) {
        try {
            text = readTextFile(m_path, largestFileBytes);
        } catch (const FileError&) {
            m_isReadable = false;
            // What bars it may go without a trace in the stamp.
            m_stamp.reset();
            return;
        }
    }
    m_document = SettingsDocument(text, m_heading);
    if (m_removalPending) m_document.removeAll();
    std::erase_if(m_pending, [this](const auto& item) { return isBeaten(item.second); });
    for (const auto& [key, pending] : m_pending) m_document.set(pending.key, pending.value);
}

bool FileSettingsStore::isBeaten(const PendingValue& pending) const {
    const std::string* const stored = m_document.find(pending.key);
    return pending.isDefault && stored != nullptr && stored->find_first_not_of(' ') != std::string::npos;
}

void FileSettingsStore::storeChanges() {
    if (m_openBatches == 0 && (m_removalPending || !m_pending.empty())) write();
}

void FileSettingsStore::write() {
    if (m_stamp != stampOnDisk()) load();
    if (!m_removalPending && m_pending.empty()) return;
    const std::string text = m_document.text();
    if (!m_isReadable || text.size() > largestFileBytes) return;
    try {
        makePrivateFolder(m_path.parent_path());
        replaceFile(m_path, text, fileMode);
    } catch (const FileError&) {
        return;
    }
    m_removalPending = false;
    m_pending.clear();
    // Another process may already have replaced what was written here, so the stamp is not known.
    m_stamp.reset();
}

}  // namespace vantrace
