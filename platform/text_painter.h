// Text as pixels: what a Surface prints.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

/// A face by name, as the surfaces ask for it. A face that the machine lacks is replaced by a similar one.
struct Font {
    std::string face;
    /// 72 points are 96 pixels.
    double sizePoints = 8;
    bool isBold = false;

    bool operator==(const Font&) const = default;
};

/// One line of text as coverage. All measures are in device pixels.
struct TextCoverage {
    int width = 0;
    int height = 0;
    /// Where the bitmap's top left corner lies, seen from the top left corner of the line of text.
    int left = 0;
    int top = 0;
    /// How far the next text would start to the right of this one.
    double advance = 0;
    /// Row by row from the top, `width` times `height` of them: 0 leaves what is there, 255 covers it.
    std::vector<std::uint8_t> coverage;
    /// The same for what is laid under the letters in a colour that sets them off from any ground: a bitmap
    /// that is wider by the margin on each side. Empty where the letters stand alone.
    int haloMargin = 0;
    std::vector<std::uint8_t> halo;
};

/// Paints lines of text. What can't be shown has a replacement sign; nothing fails but for want of memory.
class TextPainter {
  public:
    virtual ~TextPainter() = default;

    /// The coverage of a text in UTF-8, for a device with so many pixels to each of ours, along each axis.
    /// The same question has the same answer. It is valid until the next question.
    virtual const TextCoverage& coverageOf(const Font& font, std::string_view text,
                                           double devicePixelsPerPixel) = 0;
};

}  // namespace vantrace
