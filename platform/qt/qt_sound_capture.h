// The user's sound input, captured by the desktop's sound server.
#pragma once

#include <functional>
#include <memory>

#include "platform/sound_capture.h"

namespace vantrace {

class CaptureWorker;
template <class Worker>
class WorkerThread;

/// Needs a QCoreApplication. Everything happens on a thread of its own, made at the first open(), so that no
/// sound is lost while the windows are busy, and no sound server can hold them up: an operation that isn't
/// done within 3 seconds has failed as far as its caller is told, and the next ones hardly wait until it is
/// done. They all are carried out in their order all the same. Where the device can't give the samples that
/// are wanted, its own are converted.
class QtSoundCapture final : public SoundCapture {
  public:
    QtSoundCapture();
    /// Waits for the thread at most 1 second; one that a hanging sound server holds is left to itself.
    ~QtSoundCapture() override;
    QtSoundCapture(const QtSoundCapture&) = delete;
    QtSoundCapture& operator=(const QtSoundCapture&) = delete;

    bool closeAll() override;
    bool open() override;
    bool seekToStart() override;
    bool setFormat(const CaptureFormat& format) override;
    bool record() override;
    bool save(std::string_view file) override;
    bool stop() override;
    bool close() override;

  private:
    bool ask(std::function<bool(CaptureWorker&)> operation);

    const std::unique_ptr<WorkerThread<CaptureWorker>> m_thread;
    bool m_isLate = false;
};

}  // namespace vantrace
