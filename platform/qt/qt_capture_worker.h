// The one that listens: what of the sound card lives on a thread of its own.
#pragma once

#include <QAudioDevice>
#include <QObject>
#include <QPointer>
#include <filesystem>
#include <memory>

#include "platform/sound_capture.h"
#include "platform/sound_converter.h"
#include "platform/wave_file.h"

class QAudioSource;
class QIODevice;

namespace vantrace {

/// Lives, and is destroyed, on a thread with an event loop; the sound server may hold that thread up as long
/// as it likes. The operations are those of SoundCapture. What is captured goes at once into a wave file of
/// the current directory, "Vantrace unsaved recording.wav" or the next free number; saving gives it its name.
class CaptureWorker final : public QObject, public SoundCapture {
  public:
    CaptureWorker();
    ~CaptureWorker() override;

    bool closeAll() override;
    bool open() override;
    bool seekToStart() override;
    bool setFormat(const CaptureFormat& format) override;
    bool record() override;
    bool save(std::string_view file) override;
    bool stop() override;
    bool close() override;

  private:
    bool start();
    void takeSound();
    void write(const std::vector<std::uint8_t>& samples);

    bool m_isOpen = false;
    QAudioDevice m_device;
    CaptureFormat m_format;
    std::unique_ptr<QAudioSource> m_source;
    /// Belongs to the source.
    QPointer<QIODevice> m_input;
    std::unique_ptr<SoundConverter> m_converter;
    std::unique_ptr<WaveFile> m_file;
    std::uint32_t m_flushedBytes = 0;
};

}  // namespace vantrace
