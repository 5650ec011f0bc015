// The log of what failed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/machine_format.h"

namespace vantrace {

struct Services;

/// Appends lines to error.log in the program folder. A log that can't be written does no harm.
class ErrorLog {
  public:
    /// Past this many bytes the log is deleted, the line that brought it there included.
    static constexpr std::int64_t sizeLimitBytes = 200000;

    /// The clock outlives this. While no folder is set nothing is written.
    ErrorLog(const Clock& clock, MachineFormat format, std::string folder = {});

    /// The program folder, ended by '/'.
    void setFolder(std::string folder);

    /// Writes one line: version, date and time, what happened, and the label of the routine where it did.
    /// Line ends inside become blanks.
    void append(std::string_view description, std::string_view label) noexcept;

  private:
    std::string line(std::string_view description, std::string_view label) const;

    const Clock& m_clock;
    MachineFormat m_format;
    std::string m_folder;
};

/// Writes one line of the log. Never fails.
void LogError(Services& services, std::string_view description, std::string_view label) noexcept;

}  // namespace vantrace
