#include "platform/qt/qt_text_painter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vantrace {

/// Qt's faces need an application of its own.
class FontPlatform {
  public:
    FontPlatform() {
        if (QCoreApplication::instance() != nullptr) return;
        qputenv("QT_QPA_PLATFORM", "offscreen");
        m_application = std::make_unique<QGuiApplication>(m_argumentCount, m_arguments);
    }

  private:
    char m_name[9] = "vantrace";
    char* m_arguments[2] = {m_name, nullptr};
    int m_argumentCount = 1;
    std::unique_ptr<QGuiApplication> m_application;
};

namespace {

/// A map full of satellites has some hundred names on it.
constexpr std::size_t knownTexts = 2000;
/// Longer than any screen is wide, and short enough for a picture.
constexpr qsizetype greatestLetters = 1000;
constexpr double pixelsPerPoint = 96.0 / 72.0;

/// The two faces that surfaces ask for are those of another platform.
QFont fontFor(const Font& asked, double devicePixelsPerPixel) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(
        std::max(1, static_cast<int>(std::lround(asked.sizePoints * pixelsPerPoint * devicePixelsPerPixel))));
    font.setBold(asked.isBold);
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

TextCoverage painted(const QFont& font, const QString& text) {
    const QFontMetricsF metrics(font);
    TextCoverage result;
    result.advance = metrics.horizontalAdvance(text);
    // Room for what leans over its place.
    const QRectF ink = metrics.boundingRect(text).adjusted(-2, -2, 2, 2);
    const QRect box = ink.translated(0, metrics.ascent()).toAlignedRect();
    result.width = std::max(0, box.width());
    result.height = std::max(0, box.height());
    result.left = box.left();
    result.top = box.top();
    if (text.isEmpty() || result.width == 0 || result.height == 0) return result;

    QImage image(result.width, result.height, QImage::Format_Grayscale8);
    image.fill(0);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QPointF(-box.left(), metrics.ascent() - box.top()), text);
    painter.end();
    result.coverage.reserve(static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height));
    for (int y = 0; y < result.height; ++y) {
        const uchar* const row = image.constScanLine(y);
        result.coverage.insert(result.coverage.end(), row, row + result.width);
    }
    return result;
}

}  // namespace

QtTextPainter::QtTextPainter() = default;
QtTextPainter::~QtTextPainter() = default;

const TextCoverage& QtTextPainter::coverageOf(const Font& font, std::string_view text,
                                              double devicePixelsPerPixel) {
    Key key{font.face, font.sizePoints * devicePixelsPerPixel, font.isBold, std::string(text)};
    if (const auto known = m_known.find(key); known != m_known.end()) return known->second;
    if (m_platform == nullptr) m_platform = std::make_unique<FontPlatform>();
    if (m_known.size() >= knownTexts) m_known.clear();
    const QString line =
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).left(greatestLetters);
    return m_known.emplace(std::move(key), painted(fontFor(font, devicePixelsPerPixel), line)).first->second;
}

}  // namespace vantrace
