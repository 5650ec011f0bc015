#include "platform/surface.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

#include "platform/surface_colour.h"

namespace vantrace {
namespace {

void checkSize(double deviceWidth, double deviceHeight, double ratio) {
    if (!(ratio >= 1 && ratio <= 8)) {
        throw std::invalid_argument("a surface can't have " + std::to_string(ratio) +
                                    " device pixels per pixel");
    }
    const auto isSound = [](double size) { return size >= 0 && size <= Surface::maximumSize; };
    if (!isSound(deviceWidth) || !isSound(deviceHeight)) {
        throw std::invalid_argument("a surface can't be " + std::to_string(deviceWidth) + " by " +
                                    std::to_string(deviceHeight) + " device pixels");
    }
}

std::size_t pixelCount(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

}  // namespace

Surface::Surface(int width, int height, double devicePixelsPerPixel) {
    resize(width, height, devicePixelsPerPixel);
    setPenWidth(1);
}

Surface::Surface(int deviceWidth, int deviceHeight, std::span<const std::uint32_t> words,
                 double devicePixelsPerPixel) {
    checkSize(deviceWidth, deviceHeight, devicePixelsPerPixel);
    if (words.size() != pixelCount(deviceWidth, deviceHeight)) {
        throw std::invalid_argument(std::to_string(words.size()) + " words are no picture of " +
                                    std::to_string(deviceWidth) + " by " + std::to_string(deviceHeight));
    }
    m_ratio = devicePixelsPerPixel;
    m_deviceWidth = deviceWidth;
    m_deviceHeight = deviceHeight;
    m_width = static_cast<int>(std::lround(deviceWidth / m_ratio));
    m_height = static_cast<int>(std::lround(deviceHeight / m_ratio));
    m_words.assign(words.begin(), words.end());
    for (std::uint32_t& word : m_words) word |= surface::opaque;
    setPenWidth(1);
}

void Surface::resize(int width, int height, double devicePixelsPerPixel) {
    const double deviceWidth = std::round(width * devicePixelsPerPixel);
    const double deviceHeight = std::round(height * devicePixelsPerPixel);
    checkSize(deviceWidth, deviceHeight, devicePixelsPerPixel);
    m_words.resize(pixelCount(static_cast<int>(deviceWidth), static_cast<int>(deviceHeight)));
    m_width = width;
    m_height = height;
    m_ratio = devicePixelsPerPixel;
    m_deviceWidth = static_cast<int>(deviceWidth);
    m_deviceHeight = static_cast<int>(deviceHeight);
    setPenWidth(m_penWidth);
    clear();
}

bool Surface::hasSizeOf(const Surface& other) const {
    return m_width == other.m_width && m_height == other.m_height && m_ratio == other.m_ratio;
}

void Surface::copy(const Surface& source) {
    if (hasSizeOf(source)) std::copy(source.m_words.begin(), source.m_words.end(), m_words.begin());
}

Colour Surface::pixel(int x, int y) const {
    const double deviceX = std::floor((x + 0.5) * m_ratio);
    const double deviceY = std::floor((y + 0.5) * m_ratio);
    if (!(deviceX >= 0 && deviceX < m_deviceWidth && deviceY >= 0 && deviceY < m_deviceHeight)) {
        throw std::out_of_range("no pixel (" + std::to_string(x) + ", " + std::to_string(y) +
                                ") on a surface of " + std::to_string(m_width) + " by " +
                                std::to_string(m_height));
    }
    return surface::colourOf(row(static_cast<int>(deviceY))[static_cast<std::size_t>(deviceX)]);
}

void Surface::clear() {
    std::fill(m_words.begin(), m_words.end(), surface::wordOf(m_backgroundColour));
    m_pen = {};
}

std::uint32_t* Surface::row(int deviceY) {
    return m_words.data() + pixelCount(m_deviceWidth, deviceY);
}

const std::uint32_t* Surface::row(int deviceY) const {
    return m_words.data() + pixelCount(m_deviceWidth, deviceY);
}

void Surface::fillRun(double first, double last, int deviceY, std::uint32_t word) {
    const double begin = std::max(first, 0.0);
    const double end = std::min(last + 1, static_cast<double>(m_deviceWidth));
    if (!(begin < end)) return;
    std::uint32_t* const words = row(deviceY);
    std::fill(words + static_cast<int>(begin), words + static_cast<int>(end), word);
}

}  // namespace vantrace
