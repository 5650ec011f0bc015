#include "platform/qt/qt_pictures.h"

#include <QBuffer>
#include <QFile>
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

namespace vantrace {

namespace {

constexpr std::size_t greatestFileBytes = std::size_t{64} << 20U;
/// 16384 by 8192 of them are 512 MB.
constexpr qint64 greatestPixels = qint64{16384} * 8192;
constexpr int densestDrawing = 3;

Surface surfaceOf(const QImage& picture, double devicePixelsPerPixel) {
    const QImage words = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    std::vector<std::uint32_t> pixels;
    const auto width = static_cast<std::size_t>(words.width());
    pixels.reserve(width * static_cast<std::size_t>(words.height()));
    for (int y = 0; y < words.height(); ++y) {
        const auto* const row = reinterpret_cast<const std::uint32_t*>(words.constScanLine(y));
        pixels.insert(pixels.end(), row, row + width);
    }
    return Surface(words.width(), words.height(), pixels, devicePixelsPerPixel);
}

QImage decoded(QIODevice& device, const std::filesystem::path& file) {
    QImageReader reader(&device);
    // By content: the ending may lie.
    reader.setDecideFormatFromContent(true);
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
    const std::string bytes = readTextFile(file, greatestFileBytes);
    QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&view);
    buffer.open(QIODevice::ReadOnly);
    return surfaceOf(decoded(buffer, file), 1);
}

Surface QtPictures::builtIn(std::string_view name, double devicePixelsPerPixel) {
    // Pictures are drawn once for each whole density; one between two of them takes the denser.
    const int density = std::clamp(static_cast<int>(std::ceil(devicePixelsPerPixel)), 1, densestDrawing);
    const std::string file = ":/pictures/" + std::string(name) +
                             (density == 1 ? "" : "@" + std::to_string(density) + "x") + ".png";
    const QImage picture(QString::fromStdString(file));
    if (picture.isNull()) throw std::invalid_argument("no picture is called " + std::string(name));
    return surfaceOf(picture, density);
}

void QtPictures::save(const Surface& surface, const std::filesystem::path& file) {
    const QImage picture(reinterpret_cast<const uchar*>(surface.words().data()), surface.deviceWidth(),
                         surface.deviceHeight(), QImage::Format_RGB32);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, "PNG")) throw FileError(file, "the picture can't be made a file");
    replaceFile(file, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace vantrace
