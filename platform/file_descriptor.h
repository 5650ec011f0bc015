// An open file of the machine, for what std streams can't do: files that must not block, be followed or be
// shared.
#pragma once

#include <unistd.h>

#include <string>
#include <system_error>
#include <utility>

namespace vantrace {

/// Closes itself.
class FileDescriptor {
  public:
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    ~FileDescriptor() {
        if (isOpen()) ::close(m_descriptor);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }
    /// False where the platform tells only now that something was lost.
    bool close() { return ::close(std::exchange(m_descriptor, -1)) == 0; }

  private:
    int m_descriptor;
};

/// The words for an errno.
inline std::string reasonOf(int error) {
    return std::generic_category().message(error);
}

}  // namespace vantrace
