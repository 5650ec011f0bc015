#include "art/draw_pictures/sprites.h"

#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <stdexcept>

namespace vantrace {

namespace {

/// Per pixel, along each axis.
constexpr int samples = 8;

struct Mean {
    /// How much of the pixel is covered, 0 to 1.
    double coverage = 0;
    /// Of the covered part alone.
    QRgb colour = 0;
};

Mean meanOf(const QImage& large, int x, int y) {
    // The colours are weighted by their alpha already.
    std::array<int, 4> sums{};
    for (int sampleY = 0; sampleY < samples; ++sampleY) {
        const auto* const row = reinterpret_cast<const QRgb*>(large.constScanLine(y * samples + sampleY));
        for (int sampleX = 0; sampleX < samples; ++sampleX) {
            const QRgb word = row[x * samples + sampleX];
            sums[0] += qRed(word);
            sums[1] += qGreen(word);
            sums[2] += qBlue(word);
            sums[3] += qAlpha(word);
        }
    }
    if (sums[3] == 0) return {};
    constexpr int full = 255;
    // Not black: that would be a hole.
    const auto channel = [&](int sum) { return std::clamp(sum * full / sums[3], 1, full); };
    return {sums[3] / static_cast<double>(full * samples * samples),
            qRgb(channel(sums[0]), channel(sums[1]), channel(sums[2]))};
}

}  // namespace

Sprite drawSprite(const QString& svgFile, int density) {
    QSvgRenderer drawing(svgFile);
    if (!drawing.isValid()) throw std::runtime_error("can't read " + svgFile.toStdString());
    const QSize size = drawing.defaultSize() * density;
    QImage large(size * samples, QImage::Format_ARGB32_Premultiplied);
    large.fill(Qt::transparent);
    QPainter painter(&large);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();

    Sprite sprite{QImage(size, QImage::Format_RGB32), QImage(size, QImage::Format_Mono)};
    sprite.picture.fill(Qt::black);
    sprite.mask.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    sprite.mask.fill(1);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const Mean mean = meanOf(large, x, y);
            if (mean.coverage < 0.5) continue;
            sprite.picture.setPixel(x, y, mean.colour);
            sprite.mask.setPixel(x, y, 0);
        }
    }
    return sprite;
}

}  // namespace vantrace
