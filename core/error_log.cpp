#include "core/error_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "core/date_time.h"
#include "core/services.h"
#include "core/version.h"
#include "platform/file_descriptor.h"

namespace vantrace {

namespace {

std::string onOneLine(std::string_view text) {
    std::string result(text);
    for (char& sign : result) {
        if (sign == '\r' || sign == '\n') sign = ' ';
    }
    return result;
}

}  // namespace

ErrorLog::ErrorLog(const Clock& clock, MachineFormat format, std::string folder)
    : m_clock(clock), m_format(std::move(format)), m_folder(std::move(folder)) {}

void ErrorLog::setFolder(std::string folder) {
    m_folder = std::move(folder);
}

void ErrorLog::append(std::string_view description, std::string_view label) noexcept {
    if (m_folder.empty()) return;
    try {
        const std::string path = m_folder + "error.log";
        const std::string text = line(description, label);
        // Without O_NONBLOCK a pipe of that name would hold the program up.
        const FileDescriptor file(
            open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0644));
        struct stat status {};
        if (!file.isOpen() || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return;
        // One write, so that the lines of two programs never mix. One that fails leaves nothing to be done.
        const ssize_t written = ::write(file.get(), text.data(), text.size());
        if (written < 0 || fstat(file.get(), &status) != 0) return;
        if (status.st_size > sizeLimitBytes) unlink(path.c_str());
    } catch (...) {
        // There is no place left to tell this to.
        return;
    }
}

std::string ErrorLog::line(std::string_view description, std::string_view label) const {
    const ClockParts now = m_clock.read().local;
    return std::string(shortVersion) + " " + m_format.dateText(now) + " - " + m_format.timeText(now) + " - " +
           onOneLine(description) + " - " + std::string(label) + "\r\n";
}

void LogError(Services& services, std::string_view description, std::string_view label) noexcept {
    services.errorLog.append(description, label);
}

}  // namespace vantrace
