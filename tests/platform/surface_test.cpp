#include "platform/surface.h"

#include "tests/support/fake_text_painter.h"
#include "tests/support/surface_pictures.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr Colour ink = 0x0000FF;

/// The pixels with the ink's colour, as rows of '#' and '.'.
Texts inked(const Surface& surface) {
    Texts rows;
    for (int y = 0; y < surface.height(); ++y) {
        rows.emplace_back();
        for (int x = 0; x < surface.width(); ++x) rows.back() += surface.pixel(x, y) == ink ? '#' : '.';
    }
    return rows;
}

Surface inkSurface(int width, int height, int penWidth, double ratio = 1) {
    Surface surface(width, height, ratio);
    surface.setPenColour(ink);
    surface.setPenWidth(penWidth);
    return surface;
}

TEST(Surface, HoldsColoursAsWordsForAWindow) {
    Surface surface(2, 2);
    surface.setBackgroundColour(0x123456);
    surface.clear();
    EXPECT_EQ(wordsOf(surface), std::vector<std::uint32_t>(4, 0xFF563412));
    EXPECT_EQ(surface.pixel(1, 1), 0x123456U);

    const std::array<std::uint32_t, 2> words{0x00FF0000, 0x800000FF};
    const Surface loaded(2, 1, words);
    EXPECT_EQ(loaded.pixel(0, 0), 0x0000FFU);
    EXPECT_EQ(loaded.pixel(1, 0), 0xFF0000U);
    EXPECT_EQ(wordAt(loaded, 1, 0), 0xFF0000FF);
    for (const auto& [x, y] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 1}})
        EXPECT_THROW(loaded.pixel(x, y), std::out_of_range);
}

TEST(Surface, RefusesSizesThatNoneCanHave) {
    EXPECT_THROW(Surface(-1, 1), std::invalid_argument);
    EXPECT_THROW(Surface(1, 40000), std::invalid_argument);
    EXPECT_THROW(Surface(20000, 1, 2), std::invalid_argument);
    for (const double ratio : {0.0, 0.9, 9.0, -1.0, notANumber})
        EXPECT_THROW(Surface(1, 1, ratio), std::invalid_argument) << ratio;
    EXPECT_THROW(Surface(2, 2, std::vector<std::uint32_t>(3)), std::invalid_argument);
    EXPECT_TRUE(Surface(0, 5).words().empty());
}

TEST(Surface, ResizingKeepsThePenButNotItsPlace) {
    Surface surface = inkSurface(4, 4, 2);
    surface.setBackgroundColour(0xFFFFFF);
    surface.plot(2, 2);
    surface.resize(3, 2, 2);
    EXPECT_EQ(surface.deviceWidth(), 6);
    EXPECT_EQ(surface.pen(), Place{});
    EXPECT_EQ(wordsOf(surface), std::vector<std::uint32_t>(24, 0xFFFFFFFF));
    surface.plot(1, 1);
    const auto words = wordsOf(surface);
    EXPECT_EQ(std::count(words.begin(), words.end(), 0xFFFF0000), 12) << "a round dot of 4 device pixels";
}

TEST(Pen, DotsLieAroundTheirPlace) {
    Surface surface = inkSurface(4, 3, 1);
    surface.plot(1.4, 0.6);
    EXPECT_EQ(inked(surface), (Texts{"....", ".#..", "...."}));
    surface.setPenWidth(2);
    surface.clear();
    surface.plot(3, 2);
    EXPECT_EQ(inked(surface), (Texts{"....", "..##", "..##"}));
    surface.clear();
    surface.plot(0, 0);
    EXPECT_EQ(inked(surface), (Texts{"#...", "....", "...."}));
    Surface wide = inkSurface(8, 7, 6);
    wide.plot(4, 3);
    EXPECT_EQ(inked(wide),
              (Texts{"..####..", ".######.", ".######.", ".######.", ".######.", "..####..", "........"}));
}

TEST(Pen, StaysWhereItWasLeft) {
    Surface surface = inkSurface(8, 8, 1);
    surface.plot(1.25, 2.5);
    EXPECT_EQ(surface.pen(), (Place{1.25, 2.5}));
    surface.movePen(-7, 1e9);
    EXPECT_EQ(surface.pen(), (Place{-7, 1e9}));
    surface.lineTo(3, 4);
    EXPECT_EQ(surface.pen(), (Place{3, 4}));
    surface.circle(5, 6, 1);
    EXPECT_EQ(surface.pen(), (Place{5, 6}));
    for (const double bad : {notANumber, infinity, -infinity}) {
        const std::vector<std::uint32_t> before = wordsOf(surface);
        surface.movePen(bad, 1);
        surface.plot(1, bad);
        surface.lineTo(bad, 1);
        surface.circle(bad, 1, 2);
        EXPECT_EQ(surface.pen(), (Place{5, 6}));
        EXPECT_EQ(wordsOf(surface), before);
    }
    surface.circle(1, 1, notANumber);
    EXPECT_EQ(surface.pen(), (Place{1, 1}));
    surface.clear();
    EXPECT_EQ(surface.pen(), Place{});
}

/// Every step of a line, each with its dot, and nothing left out.
void referenceLine(Surface& surface, int fromX, int fromY, int toX, int toY) {
    const int steps = std::max(std::abs(toX - fromX), std::abs(toY - fromY));
    const auto along = [steps](int from, int to, int step) {
        if (steps == 0) return from;
        return from + static_cast<int>(std::floor((2.0 * step * (to - from) + steps) / (2.0 * steps)));
    };
    for (int step = 0; step <= steps; ++step) surface.plot(along(fromX, toX, step), along(fromY, toY, step));
}

TEST(Pen, LinesAreTheSameHoweverMuchLiesOffTheSurface) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> place(-120, 160);
    for (int round = 0; round < 300; ++round) {
        Surface drawn = inkSurface(40, 25, 1 + round % 5);
        Surface expected = drawn;
        const std::array<int, 4> ends{place(random), place(random), place(random), place(random)};
        drawn.movePen(ends[0], ends[1]);
        drawn.lineTo(ends[2], ends[3]);
        referenceLine(expected, ends[0], ends[1], ends[2], ends[3]);
        ASSERT_EQ(inked(drawn), inked(expected))
            << testing::PrintToString(ends) << " width " << 1 + round % 5;
    }
}

TEST(Pen, LinesFromAFarKeepTheirDirection) {
    for (const double far : {1e5, 4e8, 1e9, 1e12}) {
        Surface surface = inkSurface(50, 30, 1);
        // Through (25, 15), one up for two to the right.
        surface.movePen(25 - 2 * far, 15 - far);
        surface.lineTo(25 + 2 * far, 15 + far);
        for (int x = 0; x < 50; ++x) {
            int count = 0;
            for (int y = 0; y < 30; ++y) {
                if (surface.pixel(x, y) != ink) continue;
                ++count;
                EXPECT_NEAR(y, 15 + (x - 25) / 2.0, 1) << far << " at " << x;
            }
            EXPECT_EQ(count, 1) << far << " at " << x;
        }
    }
    Surface none = inkSurface(50, 30, 3);
    none.movePen(-1e9, -10);
    none.lineTo(1e9, -10);
    none.movePen(1e9, -1e9);
    none.lineTo(1e9, 1e9);
    EXPECT_EQ(inked(none), Texts(30, std::string(50, '.')));
}

TEST(Pen, CirclesAreRingsAsWideAsThePen) {
    std::mt19937 random(2);
    std::uniform_int_distribution<int> place(-20, 60);
    for (int round = 0; round < 200; ++round) {
        const int width = 1 + round % 4;
        const int radius = round % 31;
        Surface drawn = inkSurface(40, 40, width);
        const int x = place(random);
        const int y = place(random);
        drawn.circle(x, y, radius);
        const double middle = width % 2 / 2.0;
        for (int line = 0; line < 40; ++line) {
            for (int column = 0; column < 40; ++column) {
                const double distance = std::hypot(column + 0.5 - (x + middle), line + 0.5 - (y + middle));
                ASSERT_EQ(drawn.pixel(column, line) == ink, std::abs(distance - radius) <= width / 2.0)
                    << x << ", " << y << " radius " << radius << " width " << width << " at " << column
                    << ", " << line;
            }
        }
    }
    Surface huge = inkSurface(4, 3, 2);
    huge.circle(1e9, 1, 1e9 - 2);
    EXPECT_EQ(inked(huge), (Texts{".##.", ".##.", ".##."}));
}

TEST(Print, MixesCoverageOfThePenIntoWhatIsThereAndClipsIt) {
    FakeTextPainter painter;
    const Font font{"Small fonts", 4, true};
    for (const auto& [x, y] :
         {std::pair{5, 4}, {-9, 4}, {15, 4}, {5, -6}, {5, 9}, {-40, 0}, {0, 99}, {99, -99}}) {
        Surface surface = noise(20, 12, 3);
        const Surface before = surface;
        surface.setFont(font);
        surface.setPenColour(0x0A64C8);
        surface.movePen(x, y);
        surface.print(painter, "abc");
        EXPECT_EQ(surface.pen(), (Place{double(x), double(y)}));
        EXPECT_EQ(painter.questions.back().font, font);
        EXPECT_EQ(painter.questions.back().text, "abc");
        for (int line = 0; line < 12; ++line) {
            for (int column = 0; column < 20; ++column) {
                const int left = column - (x - 1);
                const int top = line - (y + 2);
                const bool inside = left >= 0 && left < 15 && left % 5 < 4 && top >= 0 && top < 6;
                const int coverage = inside ? 255 - left / 5 : 0;
                for (unsigned channel = 0; channel < 3; ++channel) {
                    const std::uint32_t pen = channelOf(0xFFC8640A, channel);
                    const double mixed =
                        (coverage * double(pen) +
                         (255 - coverage) * double(channelOf(wordAt(before, column, line), channel))) /
                        255;
                    ASSERT_EQ(channelOf(wordAt(surface, column, line), channel), std::lround(mixed))
                        << x << ", " << y << " at " << column << ", " << line;
                }
            }
        }
    }
}

TEST(Print, MovesThePenOnlyWhenTold) {
    FakeTextPainter painter;
    Surface surface(100, 20, 1.5);
    surface.setFont({"Arial", 8, false});
    surface.movePen(3.5, 2);
    surface.print(painter, "four", PenAfterText::goesToEnd);
    // Four steps of 15 device pixels.
    EXPECT_EQ(surface.pen(), (Place{43.5, 2}));
    EXPECT_EQ(painter.questions.back().devicePixelsPerPixel, 1.5);
    surface.movePen(1e300, notANumber);
    surface.movePen(1e300, -1e300);
    surface.print(painter, "far away");
    EXPECT_EQ(surface.pen(), (Place{1e300, -1e300}));
}

TEST(DenseSurface, DrawsTheSameInMorePixels) {
    Surface dense = inkSurface(20, 20, 2, 2);
    Surface large = inkSurface(40, 40, 4);
    const auto draw = [](Surface& surface, double scale) {
        surface.movePen(-3 * scale, 2 * scale);
        surface.lineTo(15 * scale, 9.5 * scale);
        surface.plot(18 * scale, 3 * scale);
        surface.circle(8 * scale, 14 * scale, 4 * scale);
    };
    draw(dense, 1);
    draw(large, 2);
    EXPECT_EQ(wordsOf(dense), wordsOf(large));

    // A dot 1 pixel wide is the pixel, all of it.
    Surface dot = inkSurface(3, 3, 1, 2);
    dot.plot(1, 2);
    std::vector<std::uint32_t> expected(36, 0xFF000000);
    for (const std::size_t at : {26U, 27U, 32U, 33U}) expected[at] = 0xFFFF0000;
    EXPECT_EQ(wordsOf(dot), expected);
}

}  // namespace
}  // namespace vantrace
