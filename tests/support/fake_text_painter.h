// Text without a face: every letter is a box.
#pragma once

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_painter.h"

namespace vantrace {

/// A letter of a font of so many points is a box as wide and half as high again as that, in pixels, with a
/// step of a quarter of its width to the next. Coverage rises from letter to letter: 255, 254 ... The box
/// starts one device pixel to the left of the pen and two below it.
class FakeTextPainter final : public TextPainter {
  public:
    struct Question {
        Font font;
        std::string text;
        double devicePixelsPerPixel;
    };

    const TextCoverage& coverageOf(const Font& font, std::string_view text,
                                   double devicePixelsPerPixel) override {
        questions.push_back({font, std::string(text), devicePixelsPerPixel});
        const auto box = static_cast<int>(std::lround(font.sizePoints * devicePixelsPerPixel));
        const int step = box + box / 4;
        const auto letters = static_cast<int>(text.size());
        answer = {letters * step, box + box / 2, -1, 2, static_cast<double>(letters * step), {}, 0, {}};
        for (int y = 0; y < answer.height; ++y)
            for (int x = 0; x < answer.width; ++x)
                answer.coverage.push_back(static_cast<std::uint8_t>(x % step < box ? 255 - x / step : 0));
        return answer;
    }

    std::vector<Question> questions;
    TextCoverage answer;
};

}  // namespace vantrace
