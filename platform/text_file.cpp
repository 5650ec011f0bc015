#include "platform/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "platform/file_descriptor.h"

namespace vantrace {

std::string readTextFile(const std::filesystem::path& path, std::size_t limitBytes) {
    // Without O_NONBLOCK the opening of a pipe waits for somebody who writes into it.
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!file.isOpen()) throw FileError(path, reasonOf(errno));
    struct stat status {};
    if (fstat(file.get(), &status) != 0) throw FileError(path, reasonOf(errno));
    if (!S_ISREG(status.st_mode)) throw FileError(path, "not a regular file");

    const auto tooLong = [&] {
        return FileError(path, "longer than " + std::to_string(limitBytes) + " bytes");
    };
    if (status.st_size > 0 && static_cast<std::size_t>(status.st_size) > limitBytes) throw tooLong();

    std::string content;
    content.reserve(static_cast<std::size_t>(std::max<off_t>(status.st_size, 0)));
    std::array<char, 65536> buffer{};
    // The size was true a moment ago; a file that grows is still held to the limit.
    for (;;) {
        const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
        if (count == 0) return content;
        if (count < 0) {
            if (errno == EINTR) continue;
            throw FileError(path, reasonOf(errno));
        }
        content.append(buffer.data(), static_cast<std::size_t>(count));
        if (content.size() > limitBytes) throw tooLong();
    }
}

LineReader::LineReader(std::string_view text) : m_rest(text) {
    constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
    if (m_rest.starts_with(utf8Mark)) m_rest.remove_prefix(utf8Mark.size());
}

std::string_view LineReader::next() {
    const std::size_t length = std::min(m_rest.find('\n'), m_rest.size());
    std::string_view line = m_rest.substr(0, length);
    m_rest.remove_prefix(std::min(length + 1, m_rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::vector<std::string_view> splitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    for (LineReader reader(text); !reader.atEnd();) {
        lines.push_back(reader.next());
    }
    return lines;
}

}  // namespace vantrace
