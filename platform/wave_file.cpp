#include "platform/wave_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

namespace vantrace {

namespace {

constexpr std::uint32_t headerBytes = 44;
/// What the header counts besides the samples.
constexpr std::uint32_t riffBytes = headerBytes - 8;
/// The sizes in the header have 32 bits; a little is left for the pad byte.
constexpr std::uint32_t mostBytes = 0xFFFFFFFF - riffBytes - 2;

/// The header's fields, each with its lowest byte first.
class HeaderBytes {
  public:
    void put(std::string_view text) {
        for (const char sign : text) m_bytes[m_size++] = static_cast<std::uint8_t>(sign);
    }
    void put16(std::uint32_t value) {
        m_bytes[m_size++] = static_cast<std::uint8_t>(value & 0xFF);
        m_bytes[m_size++] = static_cast<std::uint8_t>(value >> 8 & 0xFF);
    }
    void put32(std::uint32_t value) {
        put16(value & 0xFFFF);
        put16(value >> 16);
    }
    std::span<const std::uint8_t> bytes() const { return m_bytes; }

  private:
    std::array<std::uint8_t, headerBytes> m_bytes{};
    std::size_t m_size = 0;
};

/// How many bytes went into the file.
std::size_t writeAt(int file, std::uint64_t offset, std::span<const std::uint8_t> bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = pwrite(file, bytes.data() + written, bytes.size() - written,
                                     static_cast<off_t>(offset + written));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        written += static_cast<std::size_t>(count);
    }
    return written;
}

}  // namespace

WaveFile::WaveFile(const std::filesystem::path& path, const CaptureFormat& format)
    : m_path(path),
      m_file(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0644)),
      m_format(format) {
    if (!m_file.isOpen()) throw FileError(path, reasonOf(errno));
    if (!writeHeader(0)) {
        const int error = errno;
        unlink(path.c_str());
        throw FileError(path, reasonOf(error));
    }
}

bool WaveFile::append(std::span<const std::uint8_t> samples) {
    if (!m_grows) return false;
    const std::size_t room = std::min<std::size_t>(samples.size(), mostBytes - m_sizeBytes);
    const std::size_t written =
        writeAt(m_file.get(), std::uint64_t{headerBytes} + m_sizeBytes, samples.first(room));
    const std::uint32_t grown = m_sizeBytes + static_cast<std::uint32_t>(written);
    // A part of an odd size has a byte behind it that nobody counts.
    const bool isPadded = grown % 2 == 0 || writeAt(m_file.get(), std::uint64_t{headerBytes} + grown,
                                                    std::array<std::uint8_t, 1>{}) == 1;
    const std::uint32_t kept = isPadded ? grown : grown - 1;
    if (kept > m_sizeBytes && writeHeader(kept)) m_sizeBytes = kept;
    if (m_sizeBytes != grown || written != samples.size()) endGrowing();
    return m_grows;
}

bool WaveFile::flush() {
    return fdatasync(m_file.get()) == 0;
}

bool WaveFile::renameTo(const std::filesystem::path& path) {
    if (::rename(m_path.c_str(), path.c_str()) != 0) return false;
    m_path = path;
    return true;
}

bool WaveFile::writeHeader(std::uint32_t sizeBytes) {
    const auto channels = static_cast<std::uint32_t>(m_format.channels);
    const auto bits = static_cast<std::uint32_t>(m_format.bitsPerSample);
    const auto rate = static_cast<std::uint32_t>(m_format.samplesPerSecond);
    const std::uint32_t alignment = channels * bits / 8;
    constexpr std::uint32_t formatBytes = 16;
    constexpr std::uint32_t uncompressed = 1;
    HeaderBytes header;
    header.put("RIFF");
    header.put32(riffBytes + sizeBytes + sizeBytes % 2);
    header.put("WAVEfmt ");
    header.put32(formatBytes);
    header.put16(uncompressed);
    header.put16(channels);
    header.put32(rate);
    header.put32(rate * alignment);
    header.put16(alignment);
    header.put16(bits);
    header.put("data");
    header.put32(sizeBytes);
    return writeAt(m_file.get(), 0, header.bytes()) == headerBytes;
}

/// Nothing is left behind what the header counts.
void WaveFile::endGrowing() {
    m_grows = false;
    const off_t end = off_t{headerBytes} + m_sizeBytes + m_sizeBytes % 2;
    if (ftruncate(m_file.get(), end) != 0) errno = 0;
}

}  // namespace vantrace
