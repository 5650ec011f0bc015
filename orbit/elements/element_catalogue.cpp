#include "orbit/elements/element_catalogue.h"

#include <sys/stat.h>

#include <algorithm>
#include <bitset>
#include <fstream>
#include <optional>

#include "core/texts.h"
#include "orbit/engine_error.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

/// A full public catalogue holds some 5 MB; what is larger is no element file.
constexpr std::size_t largestElementFile = std::size_t{64} * 1024 * 1024;

bool isScratchFile(std::string_view name) {
    for (const std::string_view ending : {".tmp", ".new", ".part", "~"}) {
        if (name.ends_with(ending)) {
            return true;
        }
    }
    return false;
}

/// Stamps of regular files only, links followed.
bool statRegular(const std::filesystem::path& path, struct stat& status) {
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// The first bytes of a file, enough to tell element sets from anything else; nothing when it can't be
/// opened.
std::optional<std::string> fileStart(const std::filesystem::path& path) {
    constexpr std::size_t lookedAt = std::size_t{64} * 1024;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        return std::nullopt;
    }
    std::string text(lookedAt, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

/// A file of nothing but bad sets must not fill the memory with complaints.
void keepRemark(ElementFile& file, ElementRemark&& remark) {
    if (!remark.used && !remark.name.empty()) {
        file.leftOutNames.append(remark.name).push_back('\n');
    }
    constexpr std::size_t mostRemarks = 1000;
    if (file.remarks.size() < mostRemarks) {
        file.remarks.push_back(std::move(remark));
    } else {
        ++file.furtherRemarks;
    }
}

/// Reads a file that looks like element sets; a file of any other kind stays empty.
ElementFile readElementFile(const std::filesystem::path& path) {
    ElementFile file;
    file.name = path.filename().string();
    const std::optional<std::string> start = fileStart(path);
    if (!start) {
        file.failure = "can't be opened";
        return file;
    }
    file.holdsElements = looksLikeElementSets(*start);
    if (!file.holdsElements) {
        return file;
    }
    try {
        const std::string text = readTextFile(path, largestElementFile);
        constexpr std::size_t bytesOfSet = 165;
        file.sets.reserve(text.size() / bytesOfSet + 1);
        readElementSets(text, {[&file](ElementSet&& set) { file.sets.push_back(std::move(set)); },
                               [&file](ElementRemark&& remark) { keepRemark(file, std::move(remark)); }});
    } catch (const FileError& error) {
        file.failure = error.what();
    }
    return file;
}

std::string_view cutName(std::string_view name) {
    return trimmed(name.substr(0, cutNameLength));
}

}  // namespace

bool ElementCatalogue::refresh(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    if (error) {
        throw EngineError("element files in \"" + folder.string() + "\" can't be listed: " + error.message());
    }
    bool changed = folder != m_folder;
    if (changed) {
        m_files.clear();
        m_folder = folder;
    }
    for (auto& [name, known] : m_files) {
        known->seen = false;
    }
    for (; entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        changed = lookAtFile(entry->path()) || changed;
    }
    changed = std::erase_if(m_files, [](const auto& item) { return !item.second->seen; }) > 0 || changed;
    if (changed) {
        rebuildIndex();
    }
    return changed;
}

bool ElementCatalogue::lookAtFile(const std::filesystem::path& path) {
    const std::string name = path.filename().string();
    struct stat status {};
    if (isScratchFile(name) || !statRegular(path, status)) {
        return false;
    }
    constexpr std::int64_t nanosecondsPerSecond = 1000000000;
    const Stamp stamp{status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec,
                      status.st_ctim.tv_sec * nanosecondsPerSecond + status.st_ctim.tv_nsec,
                      static_cast<std::uint64_t>(status.st_size), status.st_ino};
    std::unique_ptr<KnownFile>& known = m_files[name];
    if (known && known->stamp == stamp) {
        known->seen = true;
        return false;
    }
    known = std::make_unique<KnownFile>(KnownFile{stamp, readElementFile(path), true});
    return true;
}

void ElementCatalogue::rebuildIndex() {
    constexpr std::size_t numbersOfFiveColumns = 340000;
    static_assert(numbersOfFiveColumns > 339999);
    m_entries.clear();
    m_byName.clear();
    m_byCutName.clear();
    m_nameList.clear();
    std::size_t total = 0;
    for (const auto& [name, known] : m_files) {
        total += known->file.sets.size();
    }
    m_byName.reserve(total);
    m_byCutName.reserve(total);
    const auto numbers = std::make_unique<std::bitset<numbersOfFiveColumns>>();
    for (const auto& [name, known] : m_files) {
        for (const ElementSet& set : known->file.sets) {
            numbers->set(static_cast<std::size_t>(set.catalogNumber));
            indexSet(set, known->file);
        }
    }
    m_satelliteCount = static_cast<std::int32_t>(numbers->count());
}

void ElementCatalogue::indexSet(const ElementSet& set, const ElementFile& file) {
    const auto [place, isNew] = m_byName.try_emplace(set.name, nullptr);
    if (!isNew) {
        const Instant& known = place->second->set->epoch;
        if (secondsBetween(known, set.epoch) > 0.0) {
            *place->second = {&set, &file};
        }
        return;
    }
    place->second = &m_entries.emplace_back(CatalogueEntry{&set, &file});
    m_nameList.append(set.name).push_back('\n');
    if (set.name.size() > cutNameLength) {
        m_byCutName.try_emplace(cutName(set.name), place->second);
    }
}

bool ElementCatalogue::mayHold(std::string_view name) const {
    return std::any_of(m_files.begin(), m_files.end(), [name](const auto& item) {
        const ElementFile& file = item.second->file;
        const bool isUnread = !file.failure.empty() && (file.holdsElements || file.name.ends_with(".txt"));
        return isUnread || file.leftOutNames.find(name) != std::string::npos;
    });
}

const CatalogueEntry* ElementCatalogue::find(std::string_view name) const {
    const std::string_view wanted = trimmed(withoutNameMark(trimmed(name)));
    if (const auto exact = m_byName.find(wanted); exact != m_byName.end()) {
        return exact->second;
    }
    const auto cut = m_byCutName.find(wanted);
    return cut != m_byCutName.end() ? cut->second : nullptr;
}

std::vector<const ElementFile*> ElementCatalogue::files() const {
    std::vector<const ElementFile*> result;
    for (const auto& [name, known] : m_files) {
        if (known->file.holdsElements || !known->file.failure.empty()) {
            result.push_back(&known->file);
        }
    }
    return result;
}

}  // namespace vantrace
