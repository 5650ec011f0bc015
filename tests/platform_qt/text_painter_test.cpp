#include <numeric>

#include "platform/qt/qt_text_painter.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

const Font small{"Small fonts", 7, true};

double ink(const TextCoverage& text) {
    return std::accumulate(text.coverage.begin(), text.coverage.end(), 0.0) / 255;
}

TEST(TextPainter, TheSameQuestionHasTheSameAnswerFromEveryPainter) {
    QtTextPainter one;
    QtTextPainter other;
    const TextCoverage first = one.coverageOf(small, "ISS (ZARYA) 14° EL", 1);
    other.coverageOf({"Arial", 11, true}, "something else", 2);
    const TextCoverage second = other.coverageOf(small, "ISS (ZARYA) 14° EL", 1);
    EXPECT_EQ(first.coverage, second.coverage);
    EXPECT_EQ(first.left, second.left);
    EXPECT_EQ(first.top, second.top);
    EXPECT_EQ(first.advance, second.advance);
    EXPECT_EQ(first.coverage, one.coverageOf(small, "ISS (ZARYA) 14° EL", 1).coverage) << "from memory";
}

TEST(TextPainter, CoversItsLettersAndNoMore) {
    QtTextPainter painter;
    const TextCoverage text = painter.coverageOf(small, "Htg", 1);
    ASSERT_EQ(text.coverage.size(), static_cast<std::size_t>(text.width * text.height));
    EXPECT_GE(*std::ranges::max_element(text.coverage), 220) << "a stem of one narrow pixel";
    EXPECT_EQ(*std::ranges::max_element(painter.coverageOf(small, "Htg", 2).coverage), 255)
        << "a stem that is wider than a pixel is full";
    // No rim without ink; the letters lie within the line that starts at the top left corner.
    const auto pixel = [&](int x, int y) {
        return text.coverage[static_cast<std::size_t>(y * text.width + x)];
    };
    int rims = 0;
    for (int x = 0; x < text.width; ++x) {
        rims |= (pixel(x, 0) > 0 ? 1 : 0) | (pixel(x, text.height - 1) > 0 ? 2 : 0);
    }
    for (int y = 0; y < text.height; ++y) {
        rims |= (pixel(0, y) > 0 ? 4 : 0) | (pixel(text.width - 1, y) > 0 ? 8 : 0);
    }
    EXPECT_EQ(rims, 15);
    EXPECT_GE(text.left, -1);
    EXPECT_LE(text.left, 2);
    EXPECT_GE(text.top, 0);
    EXPECT_LE(text.top + text.height, 14);
    EXPECT_NEAR(text.advance, text.width, 3);
}

TEST(TextPainter, GrowsWithPointsWeightAndTheScreensDensity) {
    QtTextPainter painter;
    const TextCoverage plain = painter.coverageOf({"Arial", 9, false}, "Vantrace", 1);
    const TextCoverage bold = painter.coverageOf({"Arial", 9, true}, "Vantrace", 1);
    const TextCoverage dense = painter.coverageOf({"Arial", 9, false}, "Vantrace", 2);
    const TextCoverage large = painter.coverageOf({"Arial", 18, false}, "Vantrace", 1);
    EXPECT_GT(ink(bold), 1.2 * ink(plain));
    EXPECT_EQ(dense.coverage, large.coverage);
    EXPECT_NEAR(dense.advance, 2 * plain.advance, 1);
}

TEST(TextPainter, AnythingIsAText) {
    QtTextPainter painter;
    EXPECT_EQ(painter.coverageOf(small, "", 1).coverage.size(), 0U);
    const TextCoverage blanks = painter.coverageOf(small, "   ", 1);
    EXPECT_EQ(blanks.coverage.size(), 0U);
    EXPECT_GT(blanks.advance, 3);
    for (const std::string& text :
         {std::string("\xff\xfe\x80"), std::string(3, '\0'), std::string("two\nlines\t"),
          std::string(100000, 'W'), std::string("\xe6\xbc\xa2\xf0\x9f\x9b\xb0")}) {
        const TextCoverage& coverage = painter.coverageOf(small, text, 1);
        EXPECT_EQ(coverage.coverage.size(), static_cast<std::size_t>(coverage.width * coverage.height));
    }
    // More than is remembered, with one that is asked for all the time.
    const TextCoverage name = painter.coverageOf(small, "ISS", 1);
    for (int i = 0; i < 300; ++i) {
        painter.coverageOf(small, std::string(900, 'W') + std::to_string(i), 1);
        ASSERT_EQ(painter.coverageOf(small, "ISS", 1).coverage, name.coverage) << i;
    }
}

}  // namespace
}  // namespace vantrace
