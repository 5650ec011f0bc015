#include "platform/qt/qt_capture_worker.h"

#include <QAudioFormat>
#include <QAudioSource>
#include <QIODevice>
#include <QMediaDevices>
#include <string>
#include <system_error>
#include <utility>

namespace vantrace {

namespace {

namespace fs = std::filesystem;

/// So much sound at most is lost when the power fails.
constexpr std::uint32_t secondsPerFlush = 10;

/// A new file under the first name that is free; none where the folder can't be written.
std::unique_ptr<WaveFile> unsavedRecording(const CaptureFormat& format) {
    constexpr int mostFiles = 1000;
    const std::string stem = "Vantrace unsaved recording";
    std::error_code error;
    const fs::path folder = fs::current_path(error);
    if (error) return nullptr;
    for (int number = 1; number <= mostFiles; ++number) {
        const fs::path path = folder / (stem + (number == 1 ? "" : " " + std::to_string(number)) + ".wav");
        if (fs::exists(fs::symlink_status(path, error))) continue;
        try {
            return std::make_unique<WaveFile>(path, format);
        } catch (const FileError&) {
            // Another copy of the program may have taken the name meanwhile.
            if (!fs::exists(fs::symlink_status(path, error))) return nullptr;
        }
    }
    return nullptr;
}

/// What is wanted where the device has it, else what the device does best.
QAudioFormat deviceFormat(const QAudioDevice& device, const CaptureFormat& wanted) {
    QAudioFormat format;
    format.setSampleRate(wanted.samplesPerSecond);
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::UInt8);
    if (device.isFormatSupported(format)) return format;
    const QAudioFormat preferred = device.preferredFormat();
    if (preferred.isValid()) return preferred;
    format.setSampleRate(48000);
    format.setSampleFormat(QAudioFormat::Int16);
    return format;
}

SampleType sampleType(QAudioFormat::SampleFormat format) {
    switch (format) {
        case QAudioFormat::Int16:
            return SampleType::Int16;
        case QAudioFormat::Int32:
            return SampleType::Int32;
        case QAudioFormat::Float:
            return SampleType::Float;
        default:
            return SampleType::UInt8;
    }
}

}  // namespace

CaptureWorker::CaptureWorker() = default;

CaptureWorker::~CaptureWorker() {
    closeAll();
}

bool CaptureWorker::closeAll() {
    close();
    return true;
}

bool CaptureWorker::open() {
    close();
    m_device = QMediaDevices::defaultAudioInput();
    m_isOpen = !m_device.isNull();
    m_format = {};
    return m_isOpen;
}

bool CaptureWorker::seekToStart() {
    return m_isOpen && !m_file;
}

bool CaptureWorker::setFormat(const CaptureFormat& format) {
    constexpr int lowestRate = 4000;
    constexpr int highestRate = 192000;
    const bool isTaken = m_isOpen && !m_file && format.bitsPerSample == 8 && format.channels == 1 &&
                         format.samplesPerSecond >= lowestRate && format.samplesPerSecond <= highestRate;
    if (isTaken) m_format = format;
    return isTaken;
}

bool CaptureWorker::record() {
    if (!m_isOpen || m_file) return false;
    m_file = unsavedRecording(m_format);
    m_flushedBytes = 0;
    if (!m_file) return false;
    if (start()) return true;
    m_source.reset();
    // Nothing went in.
    std::error_code ignored;
    fs::remove(std::exchange(m_file, nullptr)->path(), ignored);
    return false;
}

bool CaptureWorker::start() {
    const QAudioFormat format = deviceFormat(m_device, m_format);
    m_converter = std::make_unique<SoundConverter>(
        SoundFormat{format.sampleRate(), format.channelCount(), sampleType(format.sampleFormat())},
        m_format.samplesPerSecond);
    m_source = std::make_unique<QAudioSource>(m_device, format);
    m_input = m_source->start();
    if (!m_input || m_source->error() != QAudio::NoError) return false;
    connect(m_input, &QIODevice::readyRead, this, &CaptureWorker::takeSound);
    return true;
}

bool CaptureWorker::save(std::string_view file) {
    stop();
    if (!m_file || m_file->sizeBytes() == 0) return false;
    if (!m_file->renameTo(file)) return false;
    m_file.reset();
    return true;
}

bool CaptureWorker::stop() {
    if (!m_source) return false;
    takeSound();
    const bool wasWell = m_source->error() == QAudio::NoError;
    m_source.reset();
    write(m_converter->finish());
    m_file->flush();
    return wasWell;
}

bool CaptureWorker::close() {
    stop();
    // An empty file is of no use to anybody; what was captured and not saved stays.
    if (m_file && m_file->sizeBytes() == 0) {
        std::error_code ignored;
        fs::remove(m_file->path(), ignored);
    }
    m_file.reset();
    return std::exchange(m_isOpen, false);
}

void CaptureWorker::takeSound() {
    if (!m_input) return;
    const QByteArray bytes = m_input->readAll();
    write(m_converter->convert(
        {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())}));
}

void CaptureWorker::write(const std::vector<std::uint8_t>& samples) {
    m_file->append(samples);
    const auto rate = static_cast<std::uint32_t>(m_format.samplesPerSecond);
    if (m_file->sizeBytes() - m_flushedBytes < rate * secondsPerFlush) return;
    m_flushedBytes = m_file->sizeBytes();
    m_file->flush();
}

}  // namespace vantrace
