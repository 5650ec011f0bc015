#include "app/station/single_copy.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <string>

#include "app/program/arguments.h"

namespace vantrace {

namespace {

std::filesystem::path lockFile(const std::filesystem::path& folder, std::string_view address) {
    std::string name = "vantrace-station-" + std::string(address) + ".lock";
    for (char& sign : name) {
        if (sign == '/') sign = '-';
    }
    return folder / name;
}

}  // namespace

SingleCopy::SingleCopy(const std::filesystem::path& folder, std::string_view address)
    : m_file(::open(lockFile(folder, address).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)) {
    if (!m_file.isOpen()) {
        throw UserError(lockFile(folder, address).string() + ": " + reasonOf(errno));
    }
    if (::flock(m_file.get(), LOCK_EX | LOCK_NB) != 0) {
        throw UserError("another vantrace-station steers " + std::string(address) + " already");
    }
    const std::string process = std::to_string(::getpid()) + "\n";
    if (::ftruncate(m_file.get(), 0) != 0 ||
        ::write(m_file.get(), process.data(), process.size()) != static_cast<ssize_t>(process.size())) {
        throw UserError(lockFile(folder, address).string() + ": " + reasonOf(errno));
    }
}

SingleCopy::~SingleCopy() {
    // What stays behind is harmless: nobody holds the lock.
    [[maybe_unused]] const int status = ::ftruncate(m_file.get(), 0);
}

std::optional<pid_t> holderOf(const std::filesystem::path& folder, std::string_view address) {
    const FileDescriptor file(
        ::open(lockFile(folder, address).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!file.isOpen() || ::flock(file.get(), LOCK_SH | LOCK_NB) == 0) return std::nullopt;
    std::array<char, 16> text{};
    const ssize_t length = ::read(file.get(), text.data(), text.size());
    pid_t process = 0;
    if (length > 0) std::from_chars(text.data(), text.data() + length, process);
    // Smaller numbers mean groups of processes.
    return process > 1 ? std::optional(process) : std::nullopt;
}

std::filesystem::path lockFolder() {
    const char* const running = std::getenv("XDG_RUNTIME_DIR");
    std::error_code error;
    if (running != nullptr && *running == '/' && std::filesystem::is_directory(running, error))
        return running;
    std::filesystem::path own =
        std::filesystem::temp_directory_path() / ("vantrace-station-" + std::to_string(::getuid()));
    ::mkdir(own.c_str(), 0700);
    struct stat status {};
    // Others can write beside it: it mustn't be a link of theirs.
    const bool isOurs = ::lstat(own.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
                        status.st_uid == ::getuid() && (status.st_mode & 0077) == 0;
    if (!isOurs) throw UserError(own.string() + " is no folder of this user alone");
    return own;
}

}  // namespace vantrace
