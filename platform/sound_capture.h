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
///
/// No sound is lost: what was captured and not saved when a capture is closed, or when the process ends in
/// whatever way, lies in a wave file in the folder that was the current directory at record().
class SoundCapture {
  public:
    virtual ~SoundCapture() = default;

    /// Closes whatever is open. Succeeds with nothing open, too.
    virtual bool closeAll() = 0;
    /// A new capture, empty, on the user's input device. Fails where there is none.
    virtual bool open() = 0;
    /// The start of an empty capture; fails where something is captured already.
    virtual bool seekToStart() = 0;
    /// Fails for another form than that of CaptureFormat, at any rate but a usual one, and after record().
    virtual bool setFormat(const CaptureFormat& format) = 0;
    /// From here on all sound is captured, until the device vanishes or the disk is full. Fails where the
    /// current directory can't be written.
    virtual bool record() = 0;
    /// Ends record(), and makes what was captured the file of that name; one that was there is gone then. A
    /// name without a folder means the current directory. Where it fails (nothing captured, another file
    /// system, a folder of that name) both stay as they are.
    virtual bool save(std::string_view file) = 0;
    /// The end of record(). What was captured stays. Fails where nothing is being captured.
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
