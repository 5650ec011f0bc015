// The sound card's input, captured and kept as a wave file.
#pragma once

#include <string_view>

namespace vantrace {

/// Samples as they are captured. One form is used: 8 bits, unsigned, one channel.
struct CaptureFormat {
    int samplesPerSecond = 11025;
    int channels = 1;
    int bitsPerSample = 8;
};

/// One capture at most is open, from open() to close() or closeAll(). Each operation tells whether it did
/// what it is for; without an open capture all but open() and closeAll() tell that they didn't. Nothing
/// throws, and nothing waits for long.
class SoundCapture {
  public:
    virtual ~SoundCapture() = default;

    /// Closes whatever is open; what was captured and not saved is gone. Succeeds with nothing open, too.
    virtual bool closeAll() = 0;
    /// A new capture, empty, on the user's input device. Fails where there is none.
    virtual bool open() = 0;
    /// Back to the start, for what is captured next.
    virtual bool seekToStart() = 0;
    virtual bool setFormat(const CaptureFormat& format) = 0;
    /// From here on all sound is captured.
    virtual bool record() = 0;
    /// Puts what is captured into a wave file; a name without a folder means the current directory. Whatever
    /// happens to the process after record(), what was captured up to then lies in a file that plays.
    virtual bool save(std::string_view file) = 0;
    /// The end of record(). What was captured stays.
    virtual bool stop() = 0;
    virtual bool close() = 0;
};

/// For programs without ears.
class NoSoundCapture final : public SoundCapture {
  public:
    bool closeAll() override { return true; }
    bool open() override { return false; }
    bool seekToStart() override { return false; }
    bool setFormat(const CaptureFormat&) override { return false; }
    bool record() override { return false; }
    bool save(std::string_view) override { return false; }
    bool stop() override { return false; }
    bool close() override { return false; }
};

}  // namespace vantrace
