#include "platform/qt/qt_pictures.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <cmath>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

#include "platform/file_error.h"
#include "platform/file_replacement.h"
#include "platform/text_file.h"

// In a static library the pictures are left out of the program unless something asks for them; the macro must
// stand outside of any namespace. Asking again costs a look into a short list.
static void takeInPictures() {
    Q_INIT_RESOURCE(map_pictures);
}

namespace vantrace {

namespace {

constexpr std::size_t greatestFileBytes = std::size_t{64} << 20U;
/// 16384 by 8192 of them are 512 MB.
constexpr qint64 greatestPixels = qint64{16384} * 8192;
constexpr int densestDrawing = 3;

Surface surfaceOf(QImage picture, double devicePixelsPerPixel) {
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    // Rows of 32-bit words have no gaps.
    const std::span words(reinterpret_cast<const std::uint32_t*>(picture.constBits()),
                          static_cast<std::size_t>(picture.sizeInBytes()) / sizeof(std::uint32_t));
    return {picture.width(), picture.height(), words, devicePixelsPerPixel};
}

bool isJpeg(std::string_view bytes) {
    return bytes.starts_with("\xFF\xD8\xFF");
}

bool isPng(std::string_view bytes) {
    return bytes.starts_with("\x89PNG\r\n\x1A\n");
}

/// Whether a JPEG goes on to its end mark; the decoder takes half of one, too, and makes the rest up. Walks
/// from marker to marker (ITU-T T.81, annex B).
bool isWholeJpeg(std::string_view bytes) {
    constexpr std::size_t afterStart = 2;
    std::size_t place = afterStart;
    while ((place = bytes.find('\xFF', place)) != std::string_view::npos) {
        if (++place == bytes.size()) return false;
        const auto marker = static_cast<unsigned char>(bytes[place]);
        if (marker == 0xFF) continue;
        if (marker == 0xD9) return true;
        ++place;
        // A data byte of the picture, a restart and the like have nothing behind them.
        if (marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD8)) continue;
        if (bytes.size() - place < 2) return false;
        place += static_cast<std::size_t>(static_cast<unsigned char>(bytes[place])) * 256 +
                 static_cast<unsigned char>(bytes[place + 1]);
    }
    return false;
}

QImage decoded(const std::string& bytes, const std::filesystem::path& file) {
    // By content: the ending may lie. Qt's other formats are left alone, an SVG could ask for other files.
    const char* const format = isJpeg(bytes) ? "jpeg" : isPng(bytes) ? "png" : nullptr;
    if (format == nullptr) throw FileError(file, "neither a JPEG nor a PNG picture");
    if (isJpeg(bytes) && !isWholeJpeg(bytes)) throw FileError(file, "the picture ends too early");
    QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&view);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isValid() && (size.width() > Surface::maximumSize || size.height() > Surface::maximumSize ||
                           qint64{size.width()} * size.height() > greatestPixels)) {
        throw FileError(file, "the picture is too large");
    }
    constexpr int megabytesOfTheGreatest = 600;
    QImageReader::setAllocationLimit(megabytesOfTheGreatest);
    QImage picture = reader.read();
    if (picture.isNull()) throw FileError(file, reader.errorString().toStdString());
    return picture;
}

}  // namespace

Surface QtPictures::load(const std::filesystem::path& file) {
    return surfaceOf(decoded(readTextFile(file, greatestFileBytes), file), 1);
}

Surface QtPictures::builtIn(std::string_view name, double devicePixelsPerPixel) {
    takeInPictures();
    // Pictures are drawn once for each whole density; one between two of them takes the denser.
    const int density = std::clamp(static_cast<int>(std::ceil(devicePixelsPerPixel)), 1, densestDrawing);
    const std::string file = ":/pictures/" + std::string(name) +
                             (density == 1 ? "" : "@" + std::to_string(density) + "x") + ".png";
    const QImage picture(QString::fromStdString(file));
    // A name is not the file of a density.
    const bool isName = name.find('@') == std::string_view::npos;
    if (!isName || picture.isNull()) throw std::invalid_argument("no picture is called " + std::string(name));
    return surfaceOf(picture, density);
}

void QtPictures::save(const Surface& surface, const std::filesystem::path& file) {
    const QImage picture(reinterpret_cast<const uchar*>(surface.words().data()), surface.deviceWidth(),
                         surface.deviceHeight(), QImage::Format_RGB32);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    // Some percent larger than it could be, in a third of the time.
    constexpr int quick = 60;
    if (!picture.save(&buffer, "PNG", quick)) throw FileError(file, "the picture can't be made a file");
    replaceFile(file, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace vantrace
