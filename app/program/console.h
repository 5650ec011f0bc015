// What a command reads from and writes to.
#pragma once

#include <cstddef>
#include <ostream>
#include <span>
#include <string_view>

namespace vantrace {

/// Bytes that may come from a person, another program or a file.
class ByteSource {
  public:
    virtual ~ByteSource() = default;

    /// Waits for bytes and takes as many as are there, up to the size of the buffer; 0 at the end. Throws
    /// std::runtime_error where reading fails.
    virtual std::size_t read(std::span<char> buffer) = 0;
};

struct Console {
    ByteSource& in;
    std::ostream& out;
    std::ostream& err;

    /// One line on the error stream, printable whatever the text holds.
    void complain(std::string_view text) const;
};

/// How a command ends.
namespace exit_status {
inline constexpr int good = 0;
inline constexpr int incomplete = 1;  ///< something that was asked for couldn't be computed, or written
inline constexpr int userError = 2;
}  // namespace exit_status

}  // namespace vantrace
