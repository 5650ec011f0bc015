#include "art/draw_pictures/plane.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace vantrace {

namespace {

constexpr float full = 255;

/// One pass of a running mean over 2 radius + 1 values; the index function tells where a value beyond the
/// ends comes from.
void runningMean(const std::vector<float>& from, std::vector<float>& to, int radius,
                 const std::function<int(int)>& inside) {
    const int count = static_cast<int>(from.size());
    const auto at = [&](int index) { return from[static_cast<std::size_t>(inside(index))]; };
    double sum = 0;
    for (int index = -radius; index <= radius; ++index) sum += static_cast<double>(at(index));
    for (int index = 0; index < count; ++index) {
        to[static_cast<std::size_t>(index)] = static_cast<float>(sum / (2 * radius + 1));
        sum += static_cast<double>(at(index + radius + 1)) - static_cast<double>(at(index - radius));
    }
}

void blurLine(std::vector<float>& line, std::vector<float>& scratch, int radius, bool wraps) {
    const int count = static_cast<int>(line.size());
    const auto inside = [count, wraps](int index) {
        return wraps ? ((index % count) + count) % count : std::clamp(index, 0, count - 1);
    };
    constexpr int passes = 3;
    for (int pass = 0; pass < passes; ++pass) {
        runningMean(line, scratch, radius, inside);
        std::swap(line, scratch);
    }
}

/// A line to twice its length. New pixels lie a quarter to each side of the old ones.
void doubleLine(const std::vector<float>& line, std::vector<float>& result, bool wraps) {
    const int count = static_cast<int>(line.size());
    const auto at = [&](int index) {
        const int place = wraps ? (index + count) % count : std::clamp(index, 0, count - 1);
        return line[static_cast<std::size_t>(place)];
    };
    // The Catmull-Rom cubic at a quarter.
    constexpr float before = -0.0703125F;
    constexpr float near = 0.8671875F;
    constexpr float far = 0.2265625F;
    constexpr float after = -0.0234375F;
    for (int index = 0; index < count; ++index) {
        const auto place = static_cast<std::size_t>(index) * 2;
        result[place] =
            before * at(index + 1) + near * at(index) + far * at(index - 1) + after * at(index - 2);
        result[place + 1] =
            before * at(index - 1) + near * at(index) + far * at(index + 1) + after * at(index + 2);
    }
}

struct Weighted {
    Picture picture;
    Plane weight;
};

Weighted halved(const Picture& picture, const Plane& weight) {
    const int width = std::max(1, picture.width() / 2);
    const int height = std::max(1, picture.height() / 2);
    Weighted result{Picture(width, height), Plane(width, height)};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            float sum = 0;
            Tone tone;
            for (const int fromY : {2 * y, std::min(2 * y + 1, picture.height() - 1)}) {
                for (const int fromX : {2 * x, std::min(2 * x + 1, picture.width() - 1)}) {
                    const float share = weight.row(fromY)[fromX];
                    const Tone part = picture.tone(fromX, fromY);
                    sum += share;
                    tone = {tone.red + share * part.red, tone.green + share * part.green,
                            tone.blue + share * part.blue};
                }
            }
            if (sum > 0) result.picture.setTone(x, y, scaled(tone, 1 / sum));
            result.weight.row(y)[x] = std::min(sum, 1.0F);
        }
    }
    return result;
}

Tone between(const Picture& coarse, int x, int y) {
    const int width = coarse.width();
    const int height = coarse.height();
    const int x0 = std::min(x / 2, width - 1);
    const int x1 = ((x % 2 == 0 ? x0 - 1 : x0 + 1) + width) % width;
    const int y0 = std::min(y / 2, height - 1);
    const int y1 = std::clamp(y % 2 == 0 ? y0 - 1 : y0 + 1, 0, height - 1);
    constexpr float quarter = 0.25F;
    return mix(mix(coarse.tone(x0, y0), coarse.tone(x1, y0), quarter),
               mix(coarse.tone(x0, y1), coarse.tone(x1, y1), quarter), quarter);
}

}  // namespace

float smoothStep(float edge0, float edge1, float value) {
    const float share = std::clamp((value - edge0) / (edge1 - edge0), 0.0F, 1.0F);
    return share * share * (3 - 2 * share);
}

Picture pictureOf(const QImage& image) {
    const QImage words = image.convertToFormat(QImage::Format_RGB32);
    Picture picture(words.width(), words.height());
    for (int y = 0; y < words.height(); ++y) {
        for (int x = 0; x < words.width(); ++x) picture.setTone(x, y, toneOf(words.pixel(x, y)));
    }
    return picture;
}

QImage imageOf(const Picture& picture) {
    QImage image(picture.width(), picture.height(), QImage::Format_RGB32);
    const auto byte = [](float value) {
        return static_cast<int>(std::lround(std::clamp(value, 0.0F, 1.0F) * full));
    };
    for (int y = 0; y < picture.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const Tone tone = picture.tone(x, y);
            row[x] = qRgb(byte(tone.red), byte(tone.green), byte(tone.blue));
        }
    }
    return image;
}

Plane planeOf(const QImage& greyImage) {
    const QImage grey = greyImage.convertToFormat(QImage::Format_Grayscale8);
    Plane plane(grey.width(), grey.height());
    for (int y = 0; y < grey.height(); ++y) {
        const uchar* const from = grey.constScanLine(y);
        std::transform(from, from + grey.width(), plane.row(y),
                       [](uchar value) { return static_cast<float>(value) / full; });
    }
    return plane;
}

Plane brightnessOf(const Picture& picture) {
    Plane plane(picture.width(), picture.height());
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) plane.row(y)[x] = brightness(picture.tone(x, y));
    }
    return plane;
}

Plane blurred(const Plane& plane, double sigma) {
    // Three running means of this width have the variance of the Gaussian.
    const int radius = std::max(1, static_cast<int>(std::lround((std::sqrt(4 * sigma * sigma + 1) - 1) / 2)));
    Plane result = plane;
    std::vector<float> line(static_cast<std::size_t>(plane.width()));
    std::vector<float> scratch(line.size());
    for (int y = 0; y < plane.height(); ++y) {
        std::copy_n(result.row(y), plane.width(), line.begin());
        blurLine(line, scratch, radius, true);
        std::copy(line.begin(), line.end(), result.row(y));
    }
    line.resize(static_cast<std::size_t>(plane.height()));
    scratch.resize(line.size());
    for (int x = 0; x < plane.width(); ++x) {
        for (int y = 0; y < plane.height(); ++y) line[static_cast<std::size_t>(y)] = result.row(y)[x];
        blurLine(line, scratch, radius, false);
        for (int y = 0; y < plane.height(); ++y) result.row(y)[x] = line[static_cast<std::size_t>(y)];
    }
    return result;
}

Plane detailOf(const Plane& plane, double sigma) {
    Plane result = blurred(plane, sigma);
    std::transform(plane.values().begin(), plane.values().end(), result.values().begin(),
                   result.values().begin(), std::minus<>());
    return result;
}

Plane doubled(const Plane& plane) {
    Plane wide(plane.width() * 2, plane.height());
    std::vector<float> line(static_cast<std::size_t>(plane.width()));
    std::vector<float> twice(line.size() * 2);
    for (int y = 0; y < plane.height(); ++y) {
        std::copy_n(plane.row(y), plane.width(), line.begin());
        doubleLine(line, twice, true);
        std::copy(twice.begin(), twice.end(), wide.row(y));
    }
    Plane result(wide.width(), plane.height() * 2);
    line.resize(static_cast<std::size_t>(plane.height()));
    twice.resize(line.size() * 2);
    for (int x = 0; x < wide.width(); ++x) {
        for (int y = 0; y < wide.height(); ++y) line[static_cast<std::size_t>(y)] = wide.row(y)[x];
        doubleLine(line, twice, false);
        for (int y = 0; y < result.height(); ++y) result.row(y)[x] = twice[static_cast<std::size_t>(y)];
    }
    return result;
}

Picture doubled(const Picture& picture) {
    Picture result;
    std::transform(picture.planes.begin(), picture.planes.end(), result.planes.begin(),
                   [](const Plane& plane) { return doubled(plane); });
    return result;
}

Picture sharpened(const Picture& picture, double sigma, float amount) {
    Picture result = picture;
    for (Plane& plane : result.planes) {
        const Plane detail = detailOf(plane, sigma);
        std::transform(plane.values().begin(), plane.values().end(), detail.values().begin(),
                       plane.values().begin(),
                       [amount](float value, float difference) { return value + amount * difference; });
    }
    return result;
}

Picture filledIn(const Picture& picture, const Plane& weight) {
    if (picture.width() <= 2 || picture.height() <= 2) return picture;
    const Weighted half = halved(picture, weight);
    const Picture coarse = filledIn(half.picture, half.weight);
    Picture result(picture.width(), picture.height());
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            result.setTone(x, y, mix(between(coarse, x, y), picture.tone(x, y), weight.row(y)[x]));
        }
    }
    return result;
}

}  // namespace vantrace
