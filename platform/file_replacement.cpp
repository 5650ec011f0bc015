#include "platform/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

#include "platform/file_descriptor.h"

namespace vantrace {

namespace {

constexpr mode_t usualMode = 0644;

/// Removes the scratch file unless it took its place.
class ScratchFile {
  public:
    explicit ScratchFile(const std::filesystem::path& target) {
        // The name may be as long as the platform allows; there must be room for the ending.
        const std::string stem = target.filename().string().substr(0, 200);
        m_path = (target.parent_path() / (stem + ".XXXXXX.tmp")).string();
        m_descriptor = mkostemps(m_path.data(), 4, O_CLOEXEC);
        m_error = errno;
    }
    ~ScratchFile() {
        if (m_descriptor >= 0 && !m_renamed) unlink(m_path.c_str());
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    int descriptor() const { return m_descriptor; }
    int error() const { return m_error; }
    bool renameTo(const std::filesystem::path& target) {
        m_renamed = ::rename(m_path.c_str(), target.c_str()) == 0;
        return m_renamed;
    }

  private:
    std::string m_path;
    int m_descriptor = -1;
    int m_error = 0;
    bool m_renamed = false;
};

bool writeAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t count = ::write(descriptor, content.data(), content.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Where the links end, also when there is no file yet.
std::filesystem::path behindLinks(std::filesystem::path path) {
    constexpr int mostLinks = 40;
    std::error_code error;
    for (int links = 0; std::filesystem::is_symlink(path, error); ++links) {
        if (links == mostLinks) throw FileError(path, reasonOf(ELOOP));
        const std::filesystem::path next = std::filesystem::read_symlink(path, error);
        if (error) throw FileError(path, error.message());
        path = path.parent_path() / next;
    }
    return path;
}

}  // namespace

void flushFolderOf(const std::filesystem::path& file) {
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
    const FileDescriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen()) fsync(descriptor.get());
}

void replaceFile(const std::filesystem::path& path, std::string_view content, std::optional<mode_t> mode) {
    const std::filesystem::path target = behindLinks(path);
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) throw FileError(target, reasonOf(errno));
    if (exists && !S_ISREG(old.st_mode)) throw FileError(target, "not a regular file");
    // The rename would go through all the same: it asks for the rights of the folder only.
    if (exists && access(target.c_str(), W_OK) != 0) throw FileError(target, reasonOf(errno));

    ScratchFile scratch(target);
    if (scratch.descriptor() < 0) throw FileError(target, reasonOf(scratch.error()));
    FileDescriptor file(scratch.descriptor());
    // Who runs this with more rights than the owner has leaves the file the owner's, where that is allowed.
    if (exists && (old.st_uid != geteuid() || old.st_gid != getegid()) &&
        fchown(file.get(), old.st_uid, old.st_gid) != 0) {
        errno = 0;
    }
    const mode_t newMode = mode.value_or(exists ? old.st_mode & mode_t{0777} : usualMode);
    if (fchmod(file.get(), newMode) != 0 || !writeAll(file.get(), content) || fsync(file.get()) != 0 ||
        !file.close() || !scratch.renameTo(target)) {
        throw FileError(target, reasonOf(errno));
    }
    flushFolderOf(target);
}

}  // namespace vantrace
