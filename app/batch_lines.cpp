#include "app/batch_lines.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <span>
#include <thread>

#include "app/program/descriptor.h"
#include "platform/file_descriptor.h"
#include "platform/file_error.h"

namespace vantrace {

namespace {

constexpr std::size_t readAtOnce = 65536;

class FileSource final : public ByteSource {
  public:
    FileSource(std::string path, int descriptor)
        : m_path(std::move(path)), m_file(descriptor), m_source(descriptor) {}

    std::size_t read(std::span<char> buffer) override {
        if (!m_first.empty()) {
            const std::size_t count = std::min(buffer.size(), m_first.size());
            std::copy_n(m_first.begin(), count, buffer.begin());
            m_first.erase(0, count);
            return count;
        }
        return m_source.read(buffer);
    }

    /// Opened without waiting, a pipe that nobody writes into looks as if it were at its end.
    void waitForWriter() {
        constexpr auto pause = std::chrono::milliseconds(50);
        constexpr int pauses = 40;
        for (int i = 0; i < pauses; ++i) {
            char byte = 0;
            const ssize_t count = ::read(m_file.get(), &byte, 1);
            if (count == 1) m_first = byte;
            if (count != 0) {
                waitInReads();
                return;
            }
            std::this_thread::sleep_for(pause);
        }
        throw FileError(m_path, "nobody writes into this pipe");
    }

    void waitInReads() { ::fcntl(m_file.get(), F_SETFL, O_RDONLY); }

  private:
    std::string m_path;
    FileDescriptor m_file;
    DescriptorSource m_source;
    std::string m_first;
};

}  // namespace

BatchLines::BatchLines(ByteSource& source, std::function<void()> beforeWaiting)
    : m_source(source), m_beforeWaiting(std::move(beforeWaiting)) {}

bool BatchLines::fill() {
    m_beforeWaiting();
    m_buffer.resize(readAtOnce);
    m_buffer.resize(m_source.read(m_buffer));
    m_rest = m_buffer;
    return !m_rest.empty();
}

void BatchLines::append(std::string_view piece) {
    const std::size_t room = longestLine - m_line.size();
    m_isCut = m_isCut || piece.size() > room;
    m_line += piece.substr(0, room);
}

std::optional<BatchLine> BatchLines::next() {
    m_line.clear();
    m_isCut = false;
    bool hasBytes = false;
    while (!m_rest.empty() || fill()) {
        hasBytes = true;
        const std::size_t end = m_rest.find('\n');
        append(m_rest.substr(0, end));
        m_rest.remove_prefix(std::min(end, m_rest.size() - 1) + 1);
        if (end != std::string_view::npos) break;
    }
    if (!hasBytes) return std::nullopt;
    std::string_view text = m_line;
    constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
    if (++m_number == 1 && text.starts_with(utf8Mark)) text.remove_prefix(utf8Mark.size());
    if (text.ends_with('\r')) text.remove_suffix(1);
    return BatchLine{m_number, text, m_isCut};
}

std::unique_ptr<ByteSource> openBatchFile(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) throw FileError(path, reasonOf(errno));
    auto source = std::make_unique<FileSource>(path, descriptor);
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) throw FileError(path, reasonOf(errno));
    if (S_ISFIFO(status.st_mode)) {
        source->waitForWriter();
    } else if (!S_ISREG(status.st_mode)) {
        throw FileError(path, S_ISDIR(status.st_mode) ? "is a folder" : "is neither a file nor a pipe");
    }
    source->waitInReads();
    return source;
}

}  // namespace vantrace
