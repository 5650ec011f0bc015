#include "platform/qt/qt_text_painter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <clocale>
#include <cmath>
#include <iterator>
#include <utility>

namespace vantrace {

/// Qt's faces need an application. Where the process has none, this one shows nothing and asks for no screen.
class FontPlatform {
  public:
    FontPlatform() {
        if (QCoreApplication::instance() != nullptr) return;
        // What it misses of a desktop (a runtime folder, a theme) is nothing to tell whoever wants a text.
        const QtMessageHandler before =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        m_application = std::make_unique<QGuiApplication>(m_argumentCount, m_arguments.data());
        qInstallMessageHandler(before);
        // Making it sets the locale of the process; nobody else's numbers shall have its commas.
        std::setlocale(LC_NUMERIC, "C");
    }

  private:
    // Qt keeps references to both.
    std::array<char, 9> m_name{"vantrace"};
    std::array<char, 10> m_option{"-platform"};
    std::array<char, 10> m_platform{"offscreen"};
    std::array<char*, 4> m_arguments{m_name.data(), m_option.data(), m_platform.data(), nullptr};
    int m_argumentCount = 3;
    std::unique_ptr<QGuiApplication> m_application;
};

namespace {

/// A map with 500 names on it, on a screen of the highest density, takes some 10 MB.
constexpr std::size_t mostRecentBytes = 16'000'000;
/// Longer than any screen is wide, and short enough for a picture.
constexpr qsizetype greatestLetters = 1000;
constexpr double pixelsPerPoint = 96.0 / 72.0;

/// The faces asked for are narrower than the one that is there.
constexpr int widthPercent = 90;

/// The two faces that surfaces ask for are those of another platform.
QFont fontFor(const Font& asked, double devicePixelsPerPixel) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(
        std::max(1, static_cast<int>(std::lround(asked.sizePoints * pixelsPerPoint * devicePixelsPerPixel))));
    font.setBold(asked.isBold);
    font.setStretch(widthPercent);
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

/// The part of a picture that isn't black; empty where all is.
QRect inkOf(const QImage& image) {
    int left = image.width();
    int right = -1;
    int top = image.height();
    int bottom = -1;
    for (int y = 0; y < image.height(); ++y) {
        const uchar* const begin = image.constScanLine(y);
        const uchar* const end = begin + image.width();
        const auto isInk = [](uchar value) { return value != 0; };
        const uchar* const first = std::find_if(begin, end, isInk);
        if (first == end) continue;
        const auto last = std::find_if(std::reverse_iterator(end), std::reverse_iterator(begin), isInk);
        left = std::min(left, static_cast<int>(first - begin));
        right = std::max(right, static_cast<int>(last.base() - begin) - 1);
        top = std::min(top, y);
        bottom = y;
    }
    return {QPoint(left, top), QPoint(right, bottom)};
}

/// How much of a letter's ink the pixels around it take, row by row: 60 % next to it, less at the corners.
std::vector<double> haloShares(int margin) {
    constexpr double strength = 0.6;
    std::vector<double> shares;
    for (int y = -margin; y <= margin; ++y) {
        for (int x = -margin; x <= margin; ++x) {
            shares.push_back(strength * std::clamp(2 - std::hypot(x, y) / margin, 0.0, 1.0));
        }
    }
    return shares;
}

/// What lies around the letters.
void addHalo(TextCoverage& text, double devicePixelsPerPixel) {
    if (text.coverage.empty()) return;
    const int margin = std::max(1, static_cast<int>(std::lround(devicePixelsPerPixel)));
    const std::vector<double> shares = haloShares(margin);
    const int width = text.width + 2 * margin;
    text.haloMargin = margin;
    text.halo.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(text.height + 2 * margin), 0);
    for (int y = 0; y < text.height; ++y) {
        for (int x = 0; x < text.width; ++x) {
            const double ink =
                text.coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(text.width) +
                              static_cast<std::size_t>(x)];
            if (ink == 0) continue;
            const double* share = shares.data();
            for (int dy = 0; dy <= 2 * margin; ++dy) {
                std::uint8_t* const row = text.halo.data() + std::ptrdiff_t{width} * (y + dy) + x;
                for (int dx = 0; dx <= 2 * margin; ++dx) {
                    row[dx] = std::max(row[dx], static_cast<std::uint8_t>(ink * *share++));
                }
            }
        }
    }
}

TextCoverage painted(const QFont& font, const QString& text) {
    const QFontMetricsF metrics(font);
    TextCoverage result;
    result.advance = metrics.horizontalAdvance(text);
    // Room for what leans over its place.
    const QRectF reach = metrics.boundingRect(text).adjusted(-2, -2, 2, 2);
    const QRect box = reach.translated(0, metrics.ascent()).toAlignedRect();
    if (text.isEmpty() || box.isEmpty()) return result;

    QImage image(box.size(), QImage::Format_Grayscale8);
    image.fill(0);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QPointF(-box.left(), metrics.ascent() - box.top()), text);
    painter.end();
    const QRect ink = inkOf(image);
    if (ink.isEmpty()) return result;
    result.width = ink.width();
    result.height = ink.height();
    result.left = box.left() + ink.left();
    result.top = box.top() + ink.top();
    result.coverage.reserve(static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height));
    for (int y = ink.top(); y <= ink.bottom(); ++y) {
        const uchar* const row = image.constScanLine(y) + ink.left();
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
    if (const auto known = m_recent.find(key); known != m_recent.end()) return known->second;
    if (auto known = m_older.extract(key)) return keep(std::move(known));
    if (m_platform == nullptr) m_platform = std::make_unique<FontPlatform>();
    const QString line =
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).left(greatestLetters);
    TextCoverage letters = painted(fontFor(font, devicePixelsPerPixel), line);
    addHalo(letters, devicePixelsPerPixel);
    Known known;
    known.emplace(std::move(key), std::move(letters));
    return keep(known.extract(known.begin()));
}

const TextCoverage& QtTextPainter::keep(Known::node_type known) {
    constexpr std::size_t bytesBeside = 300;
    const TextCoverage& letters = known.mapped();
    const std::size_t bytes =
        std::get<3>(known.key()).size() + letters.coverage.size() + letters.halo.size() + bytesBeside;
    if (m_recentBytes + bytes > mostRecentBytes) {
        m_older = std::exchange(m_recent, {});
        m_recentBytes = 0;
    }
    m_recentBytes += bytes;
    return m_recent.insert(std::move(known)).position->second;
}

}  // namespace vantrace
