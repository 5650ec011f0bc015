// Pictures as floating-point numbers, for arithmetic on the whole earth: rows wrap round from the right edge
// to the left one, as longitudes do; columns end at the poles.
#pragma once

#include <QImage>
#include <array>
#include <cstddef>
#include <vector>

namespace vantrace {

/// One number per pixel.
class Plane {
  public:
    Plane() = default;
    Plane(int width, int height, float value = 0)
        : m_width(width),
          m_height(height),
          m_values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), value) {}

    int width() const { return m_width; }
    int height() const { return m_height; }
    float* row(int y) { return m_values.data() + offset(y); }
    const float* row(int y) const { return m_values.data() + offset(y); }
    std::vector<float>& values() { return m_values; }
    const std::vector<float>& values() const { return m_values; }

  private:
    std::size_t offset(int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width);
    }

    int m_width = 0;
    int m_height = 0;
    std::vector<float> m_values;
};

/// A colour: red, green, blue, 0 to 1.
struct Tone {
    float red = 0;
    float green = 0;
    float blue = 0;
};

/// 0xRRGGBB.
constexpr Tone toneOf(unsigned code) {
    constexpr float full = 255;
    return {static_cast<float>((code >> 16U) & 0xFFU) / full, static_cast<float>((code >> 8U) & 0xFFU) / full,
            static_cast<float>(code & 0xFFU) / full};
}

constexpr Tone mix(const Tone& from, const Tone& to, float share) {
    return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
            from.blue + (to.blue - from.blue) * share};
}

constexpr Tone scaled(const Tone& tone, float factor) {
    return {tone.red * factor, tone.green * factor, tone.blue * factor};
}

constexpr float brightness(const Tone& tone) {
    return 0.299F * tone.red + 0.587F * tone.green + 0.114F * tone.blue;
}

/// 0 below the first edge, 1 above the second, on a smooth curve between; falling where the edges are
/// swapped.
float smoothStep(float edge0, float edge1, float value);

/// Red, green and blue planes of one size.
struct Picture {
    Picture() = default;
    Picture(int width, int height)
        : planes{Plane(width, height), Plane(width, height), Plane(width, height)} {}

    int width() const { return planes[0].width(); }
    int height() const { return planes[0].height(); }
    Tone tone(int x, int y) const { return {planes[0].row(y)[x], planes[1].row(y)[x], planes[2].row(y)[x]}; }
    void setTone(int x, int y, const Tone& tone) {
        planes[0].row(y)[x] = tone.red;
        planes[1].row(y)[x] = tone.green;
        planes[2].row(y)[x] = tone.blue;
    }

    std::array<Plane, 3> planes;
};

Picture pictureOf(const QImage& image);
QImage imageOf(const Picture& picture);
/// The brightness of a one-coloured image, 0 to 1.
Plane planeOf(const QImage& greyImage);
Plane brightnessOf(const Picture& picture);

/// Nearly a Gaussian of that many pixels.
Plane blurred(const Plane& plane, double sigma);
/// What differs from the surroundings of that many pixels: the relief without the colours of the land.
Plane detailOf(const Plane& plane, double sigma);
/// Twice the size, on a cubic through four pixels.
Plane doubled(const Plane& plane);
Picture doubled(const Picture& picture);
/// Crisper: the differences from the surroundings times 1 + amount.
Picture sharpened(const Picture& picture, double sigma, float amount);

/// Where the weight is 0 the colours flow in from wherever it is 1.
Picture filledIn(const Picture& picture, const Plane& weight);

}  // namespace vantrace
