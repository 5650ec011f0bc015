// One program for one daemon.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/file_descriptor.h"

namespace vantrace {

/// A lock that the machine takes back when the process ends, however it does.
class SingleCopy {
  public:
    /// The lock of a daemon's address, in a folder of the user. Throws UserError where another process holds
    /// it.
    SingleCopy(const std::filesystem::path& folder, std::string_view address);
    /// The file that stays tells of nobody.
    ~SingleCopy();
    SingleCopy(const SingleCopy&) = delete;
    SingleCopy& operator=(const SingleCopy&) = delete;

  private:
    FileDescriptor m_file;
};

/// The process that holds the lock of a daemon's address; nothing where none does.
std::optional<pid_t> holderOf(const std::filesystem::path& folder, std::string_view address);

/// $XDG_RUNTIME_DIR; without it a folder of this user's own in the folder for temporary files, made if need
/// be. Throws UserError where that one is somebody else's.
std::filesystem::path lockFolder();

}  // namespace vantrace
