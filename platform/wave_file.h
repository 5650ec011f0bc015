// A wave file that grows, and that plays at every instant of it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "platform/file_descriptor.h"
#include "platform/file_error.h"
#include "platform/sound_capture.h"

namespace vantrace {

/// Uncompressed samples (PCM) behind the 44 bytes of a RIFF header. The samples are written before the header
/// that counts them: whoever kills the program at any instant finds a file that plays to the sample counted
/// last. After a failure (a full disk) the file doesn't grow any more, and plays to what fitted.
class WaveFile {
  public:
    /// A new file without a sample. Throws FileError where it can't be made, or is there already.
    WaveFile(const std::filesystem::path& path, const CaptureFormat& format);

    /// Samples of 8 bits, unsigned. False where they didn't all go in, and from then on.
    bool append(std::span<const std::uint8_t> samples);
    /// Has the disk take it all. False where something is lost.
    bool flush();
    /// Puts the file into the place of another, which is gone then, or fails and leaves both. Further samples
    /// go to it under the new name.
    bool renameTo(const std::filesystem::path& path);

    const std::filesystem::path& path() const { return m_path; }
    /// Of the samples, without the header.
    std::uint32_t sizeBytes() const { return m_sizeBytes; }

  private:
    bool writeHeader(std::uint32_t sizeBytes);
    void endGrowing();

    std::filesystem::path m_path;
    FileDescriptor m_file;
    CaptureFormat m_format;
    std::uint32_t m_sizeBytes = 0;
    bool m_grows = true;
};

}  // namespace vantrace
