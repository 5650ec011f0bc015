#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "orbit/elements/element_reader.h"
#include "orbit/elements/element_set.h"

namespace vantrace {

/// One file of the folder as it was read.
struct ElementFile {
    std::string name;                    ///< bare name
    std::vector<ElementSet> sets;        ///< the good ones, in file order
    std::vector<ElementRemark> remarks;  ///< sets left out, and odd ones that are used; the first 1000
    std::size_t furtherRemarks = 0;      ///< how many more there are
    std::string leftOutNames;            ///< of the sets left out, as far as known, each ended by a line feed
    std::string failure;                 ///< why the file could not be read at all, else empty
    bool holdsElements = false;          ///< looks like element sets by content
};

/// A satellite of the catalogue: its newest set and the file that holds it.
struct CatalogueEntry {
    const ElementSet* set = nullptr;
    const ElementFile* file = nullptr;
};

/// The element sets of a folder, by name. Files are told apart by content, not by name; scratch files (.tmp,
/// .new, .part, ~) are passed over. A file that hasn't changed (time, size, number) is not read again.
class ElementCatalogue {
  public:
    /// Looks the folder over; true when anything has changed, which makes every pointer given before invalid.
    /// Throws EngineError when the folder can't be listed.
    bool refresh(const std::filesystem::path& folder);

    /// Different catalogue numbers over all files.
    std::int32_t satelliteCount() const { return m_satelliteCount; }
    /// Every name once, in the order of files and sets, each ended by a line feed.
    const std::string& nameList() const { return m_nameList; }

    /// Whether the folder names the satellite although it can't be found: in a set that was left out, or,
    /// for all that is known, in a file that could not be read (of unknown ones those that end in ".txt").
    bool mayHold(std::string_view name) const;

    /// By the trimmed name, with or without "0 " in front; failing that, as a name cut to 15 characters: the
    /// first set whose name begins with it. Null when there is none. A name that several sets bear is
    /// answered from the newest epoch.
    const CatalogueEntry* find(std::string_view name) const;

    /// One entry a name, in the order of files and sets.
    const std::deque<CatalogueEntry>& entries() const { return m_entries; }
    /// The files that hold element sets or could not be read, by name.
    std::vector<const ElementFile*> files() const;

  private:
    struct Stamp {
        std::int64_t modifiedNs = 0;
        std::int64_t changedNs = 0;
        std::uint64_t size = 0;
        std::uint64_t inode = 0;
        bool operator==(const Stamp&) const = default;
    };
    struct KnownFile {
        Stamp stamp;
        ElementFile file;
        bool seen = false;
    };

    bool lookAtFile(const std::filesystem::path& path);
    void rebuildIndex();
    void indexSet(const ElementSet& set, const ElementFile& file);

    std::filesystem::path m_folder;
    std::map<std::string, std::unique_ptr<KnownFile>> m_files;
    std::deque<CatalogueEntry> m_entries;
    std::unordered_map<std::string_view, CatalogueEntry*> m_byName;
    std::unordered_map<std::string_view, CatalogueEntry*> m_byCutName;
    std::string m_nameList;
    std::int32_t m_satelliteCount = 0;
};

/// Length that names are cut to where favourites are kept.
inline constexpr std::size_t cutNameLength = 15;

}  // namespace vantrace
