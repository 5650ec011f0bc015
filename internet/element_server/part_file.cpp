#include "internet/element_server/part_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/file_descriptor.h"
#include "platform/file_error.h"

namespace vantrace {

namespace {

/// "STEM.xxxxxx.part" or "STEM.xxxxxx.tmp".
bool isScratchOf(const std::string& stem, std::string_view name) {
    constexpr std::size_t randomLength = 6;
    if (!name.starts_with(stem + ".")) return false;
    name.remove_prefix(stem.size() + 1);
    return name.size() > randomLength && name.find('.') == randomLength &&
           (name.substr(randomLength) == ".part" || name.substr(randomLength) == ".tmp");
}

/// Times of one file system are compared, never with the machine's clock. What fails stays.
void removeLeftovers(const std::filesystem::path& fresh, const std::string& stem) {
    constexpr std::chrono::hours longAgo{24};
    std::error_code error;
    const auto now = std::filesystem::last_write_time(fresh, error);
    if (error) return;
    std::filesystem::directory_iterator entries(fresh.parent_path(), error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        const std::filesystem::directory_entry& entry = *entries;
        std::error_code failure;
        if (!isScratchOf(stem, entry.path().filename().string()) || entry.is_symlink(failure) ||
            !entry.is_regular_file(failure)) {
            continue;
        }
        const auto time = entry.last_write_time(failure);
        if (!failure && now - time > longAgo) std::filesystem::remove(entry.path(), failure);
    }
}

}  // namespace

PartFile::PartFile(const std::filesystem::path& target) {
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) throw FileError(target, "not a regular file");
    if (exists && access(target.c_str(), W_OK) != 0) throw FileError(target, reasonOf(errno));
    if (!target.has_filename()) throw FileError(target, "no name of a file");
    // The name may be as long as the platform allows; there must be room for the ending.
    const std::string stem = target.filename().string().substr(0, 200);
    std::string name = (target.parent_path() / (stem + ".XXXXXX.part")).string();
    const FileDescriptor made(mkostemps(name.data(), 5, O_CLOEXEC));
    if (!made.isOpen()) throw FileError(target, reasonOf(errno));
    m_path = name;
    for (const std::string_view other : {std::string_view(stem), mendedElementsFile, requestsFile}) {
        removeLeftovers(m_path, std::string(other));
    }
}

PartFile::~PartFile() {
    unlink(m_path.c_str());
}

}  // namespace vantrace
