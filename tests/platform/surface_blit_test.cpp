#include <numeric>

#include "platform/surface.h"
#include "platform/surface_blend.h"
#include "platform/surface_kernels.h"
#include "platform/surface_stretch.h"
#include "tests/support/fake_text_painter.h"
#include "tests/support/surface_pictures.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr std::array samplings{Sampling::nearest, Sampling::linear, Sampling::cubic};

Area whole(const Surface& surface) {
    return {0, 0, double(surface.width()), double(surface.height())};
}

double mean(const Surface& surface, unsigned channel) {
    double sum = 0;
    for (const std::uint32_t word : surface.words()) sum += channelOf(word, channel);
    return sum / static_cast<double>(surface.words().size());
}

/// Pixel by pixel.
void referenceBlit(Surface& surface, std::array<int, 6> where, const Surface& source,
                   RasterOperation operation) {
    const auto [x, y, width, height, sourceX, sourceY] = where;
    std::vector<std::uint32_t> words = wordsOf(surface);
    const auto isOn = [](const Surface& on, int column, int line) {
        return column >= 0 && column < on.width() && line >= 0 && line < on.height();
    };
    for (int i = 0; i < width * height; ++i) {
        const int dx = i % width;
        const int dy = i / width;
        if (!isOn(surface, x + dx, y + dy) || !isOn(source, sourceX + dx, sourceY + dy)) continue;
        std::uint32_t& word = words[static_cast<std::size_t>((y + dy) * surface.width() + x + dx)];
        const std::uint32_t from = wordAt(source, sourceX + dx, sourceY + dy);
        word = operation == RasterOperation::bitAnd ? word & from : word | from;
    }
    surface = Surface(surface.width(), surface.height(), words);
}

TEST(Blit, CombinesBitsAndClipsOnAllSidesOfBothSurfaces) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> place(-25, 45);
    std::uniform_int_distribution<int> size(1, 30);
    const Surface other = noise(19, 23, 2);
    for (int round = 0; round < 300; ++round) {
        Surface surface = noise(31, 21, 3);
        const std::array<int, 6> where{place(random), place(random), size(random),
                                       size(random),  place(random), place(random)};
        const auto operation = round % 2 == 0 ? RasterOperation::bitAnd : RasterOperation::bitOr;
        // Every third is from the surface to itself, where the two may overlap.
        const Surface before = surface;
        const Surface& source = round % 3 == 0 ? surface : other;
        surface.blit(where[0], where[1], where[2], where[3], source, where[4], where[5], operation);
        Surface expected = before;
        referenceBlit(expected, where, round % 3 == 0 ? before : other, operation);
        ASSERT_EQ(wordsOf(surface), wordsOf(expected)) << testing::PrintToString(where);
    }
}

TEST(Blit, SpritesKeepTheirSizeOnADenseScreen) {
    const Surface sprite = noise(4, 3, 1);
    Surface dense(20, 20, 2);
    dense.blit(5, 6, 4, 3, sprite, 0, 0, RasterOperation::bitOr);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x)
            ASSERT_EQ(wordAt(dense, 10 + x, 12 + y), wordAt(sprite, x / 2, y / 2)) << x << ", " << y;

    // One that was made for such a screen is copied as it is, and one part of it as well.
    for (const double ratio : {1.25, 1.5, 2.0, 3.0}) {
        const auto size = static_cast<int>(std::lround(32 * ratio));
        const Surface fine = noise(size, size, 2, ratio);
        Surface screen(50, 50, ratio);
        screen.blit(8, 4, 32, 32, fine, 0, 0, RasterOperation::bitOr);
        EXPECT_EQ(cut(screen, static_cast<int>(8 * ratio), static_cast<int>(4 * ratio), size, size),
                  wordsOf(fine))
            << ratio;
    }
}

TEST(Blit, TakesTheNearestPixelBetweenUnlikeDensities) {
    const std::array<std::uint32_t, 8> twoRows{9, 9, 9, 9, 1, 2, 3, 4};
    const std::array<std::uint32_t, 4> across{1, 2, 3, 4};
    Surface plain(2, 1);
    plain.blit(0, 0, 2, 1, Surface(4, 2, twoRows, 2), 0, 0, RasterOperation::bitOr);
    EXPECT_EQ(wordsOf(plain), (std::vector<std::uint32_t>{0xFF000002, 0xFF000004}));
    Surface dense(4, 1, 1.25);
    dense.blit(0, 0, 4, 1, Surface(4, 1, across), 0, 0, RasterOperation::bitOr);
    EXPECT_EQ(wordsOf(dense),
              (std::vector<std::uint32_t>{0xFF000001, 0xFF000002, 0xFF000003, 0xFF000003, 0xFF000004}));
}

TEST(Stretch, ToTheSameSizeIsACopy) {
    const Surface picture = noise(37, 23, 1);
    for (const Sampling sampling : samplings) {
        Surface surface(37, 23);
        EXPECT_TRUE(surface.stretch(whole(surface), picture, whole(picture), sampling));
        EXPECT_EQ(wordsOf(surface), wordsOf(picture));
        Surface part(10, 9);
        EXPECT_TRUE(part.stretch({0, 0, 10, 9}, picture, {5, 7, 10, 9}, sampling));
        EXPECT_EQ(wordsOf(part), cut(picture, 5, 7, 10, 9));
    }
}

TEST(Stretch, OfOneColourIsThatColourAtEverySize) {
    for (const std::uint32_t word : {0xFFFFFFFFU, 0xFF000000U, 0xFF01FE80U}) {
        for (const auto& [width, height] : {std::pair{64, 40}, {1, 1}, {3, 500}, {1000, 1}}) {
            const Surface picture(width, height, std::vector<std::uint32_t>(areaOf(width, height), word));
            for (const auto& [toWidth, toHeight] : {std::pair{1, 1}, {7, 3}, {63, 41}, {200, 130}}) {
                for (const Sampling sampling : samplings) {
                    Surface surface(toWidth, toHeight);
                    EXPECT_TRUE(surface.stretch(whole(surface), picture,
                                                Area(0.3, 0.2, width - 0.5, height - 0.7), sampling));
                    EXPECT_EQ(wordsOf(surface), std::vector<std::uint32_t>(areaOf(toWidth, toHeight), word))
                        << width << "x" << height << " to " << toWidth << "x" << toHeight;
                }
            }
        }
    }
}

TEST(Stretch, ShrinkingAveragesOverTheArea) {
    const Surface picture = noise(60, 42, 4);
    Surface third(20, 14);
    third.stretch(whole(third), picture, whole(picture));
    for (int y = 0; y < 14; ++y) {
        for (int x = 0; x < 20; ++x) {
            for (unsigned channel = 0; channel < 3; ++channel) {
                double sum = 0;
                for (const std::uint32_t word : cut(picture, 3 * x, 3 * y, 3, 3))
                    sum += channelOf(word, channel);
                ASSERT_NEAR(channelOf(wordAt(third, x, y), channel), sum / 9, 0.5001) << x << ", " << y;
            }
        }
    }
    // So many rows that pairs of them begin anywhere.
    const Surface tall = noise(8, 37, 5);
    Surface flat(8, 8);
    flat.stretch(whole(flat), tall, whole(tall));
    for (int y = 0; y < 8; ++y) {
        const double from = y * 37 / 8.0;
        const double to = (y + 1) * 37 / 8.0;
        for (int x = 0; x < 8; ++x) {
            double sum = 0;
            for (int row = 0; row < 37; ++row) {
                const double share = std::min(to, row + 1.0) - std::max(from, double{1} * row);
                if (share > 0) sum += share * channelOf(wordAt(tall, x, row), 0);
            }
            ASSERT_NEAR(channelOf(wordAt(flat, x, y), 0), sum * 8 / 37, 0.6) << x << ", " << y;
        }
    }
    for (const auto& [width, height] : {std::pair{59, 41}, {37, 11}, {7, 42}, {60, 3}, {2, 1}}) {
        Surface smaller(width, height);
        smaller.stretch(whole(smaller), picture, whole(picture));
        // Rounding alone is left, and it averages out.
        const double tolerance = 0.02 + 0.6 / std::sqrt(width * height);
        for (unsigned channel = 0; channel < 3; ++channel)
            EXPECT_NEAR(mean(smaller, channel), mean(picture, channel), tolerance) << width << "x" << height;
    }
}

TEST(Stretch, GrowingShowsNoBlocks) {
    // A slope grows to a slope: each pixel lies where the picture's middle line puts it.
    std::vector<std::uint32_t> slope;
    for (std::uint32_t i = 0; i < 32 * 32; ++i) slope.push_back((i % 32) * 8 << 16 | (i / 32) * 8);
    const Surface picture(32, 32, slope);
    for (const Sampling sampling : {Sampling::linear, Sampling::cubic}) {
        Surface surface(173, 211);
        EXPECT_TRUE(surface.stretch(whole(surface), picture, whole(picture), sampling));
        for (int y = 14; y < 211 - 14; ++y) {
            for (int x = 12; x < 173 - 12; ++x) {
                ASSERT_NEAR(channelOf(wordAt(surface, x, y), 2), ((x + 0.5) * 32 / 173 - 0.5) * 8, 0.501);
                ASSERT_NEAR(channelOf(wordAt(surface, x, y), 0), ((y + 0.5) * 32 / 211 - 0.5) * 8, 0.501);
            }
        }
    }
    // Overshoot at an edge stops at black and white.
    const std::array<std::uint32_t, 6> edge{0, 0, 0, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF};
    Surface wide(60, 1);
    wide.stretch(whole(wide), Surface(6, 1, edge), {0, 0, 6, 1});
    for (int x = 1; x < 60; ++x) EXPECT_GE(wordAt(wide, x, 0), wordAt(wide, x - 1, 0)) << x;
}

TEST(Stretch, PiecesOfAPictureShowNoSeam) {
    const Surface picture = noise(40, 30, 5);
    for (const auto& [width, height] : {std::pair{20, 10}, {60, 62}, {300, 210}}) {
        for (const Sampling sampling : samplings) {
            Surface atOnce = noise(width, height, 6);
            Surface inQuarters = atOnce;
            EXPECT_TRUE(atOnce.blend(whole(atOnce), picture, whole(picture), 40, sampling));
            const double w = width / 2.0;
            const double h = height / 2.0;
            for (const auto& [x, y] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}})
                EXPECT_TRUE(inQuarters.blend({x * w, y * h, w, h}, picture, {x * 20.0, y * 15.0, 20, 15}, 40,
                                             sampling));
            EXPECT_EQ(wordsOf(inQuarters), wordsOf(atOnce)) << width << "x" << height;
        }
    }
}

TEST(Stretch, ClipsAtTheDestination) {
    const Surface picture = noise(21, 17, 7);
    Surface large(90, 80);
    large.stretch({10, 20, 60, 50}, picture, {1.5, 2, 18, 14.25});
    for (const auto& [x, y] : {std::pair{0, 0}, {30, 40}, {65, 5}, {5, 65}}) {
        Surface window(25, 15);
        EXPECT_TRUE(window.stretch({10.0 - x, 20.0 - y, 60, 50}, picture, {1.5, 2, 18, 14.25}));
        EXPECT_EQ(wordsOf(window), cut(large, x, y, 25, 15)) << x << ", " << y;
    }
    Surface untouched = noise(25, 15, 8);
    const std::vector<std::uint32_t> before = wordsOf(untouched);
    EXPECT_TRUE(untouched.stretch({25, 0, 60, 50}, picture, whole(picture)));
    EXPECT_TRUE(untouched.stretch({-1e9, -1e9, 1e8, 1e8}, picture, whole(picture)));
    EXPECT_EQ(wordsOf(untouched), before);

    Surface itself = noise(16, 16, 9);
    Surface expected = itself;
    expected.stretch({4, 4, 12, 12}, Surface(itself), {0, 0, 16, 16});
    EXPECT_TRUE(itself.stretch({4, 4, 12, 12}, itself, {0, 0, 16, 16}));
    EXPECT_EQ(wordsOf(itself), wordsOf(expected));
}

TEST(Stretch, RefusesAreasThatAreNotSound) {
    const Surface picture = noise(10, 10, 1);
    Surface surface = noise(8, 8, 2);
    const std::vector<std::uint32_t> before = wordsOf(surface);
    const Area sound(0, 0, 8, 8);
    for (const Area& bad :
         {Area(0, 0, 0, 8), Area(0, 0, 8, -8), Area(notANumber, 0, 8, 8), Area(0, infinity, 8, 8),
          Area(0, 0, infinity, 8), Area(0, 0, 8, notANumber), Area(1e10, 0, 8, 8)}) {
        EXPECT_FALSE(surface.stretch(bad, picture, sound));
        EXPECT_FALSE(surface.stretch(sound, picture, bad));
        EXPECT_FALSE(surface.blend(bad, picture, sound, 40));
    }
    for (const Area& outside : {Area(-2, 0, 8, 8), Area(0, 4, 8, 8), Area(20, 0, 1, 1)})
        EXPECT_FALSE(surface.stretch(sound, picture, outside));
    EXPECT_FALSE(surface.stretch(sound, Surface(), sound));
    EXPECT_FALSE(surface.blend(sound, picture, sound, -1));
    EXPECT_FALSE(surface.blend(sound, picture, sound, 256));
    EXPECT_EQ(wordsOf(surface), before);
    // Half of an odd width, rounded up at both ends, reaches one pixel too far.
    EXPECT_TRUE(surface.stretch(sound, picture, Area(6, 0, 5, 10)));
}

TEST(Blend, RoundsToTheNearestForEveryPairOfValues) {
    std::vector<std::uint32_t> across;
    std::vector<std::uint32_t> down;
    for (std::uint32_t i = 0; i < 65536; ++i) {
        across.push_back((i % 256) * 0x010101);
        down.push_back((i / 256) * 0x010101);
    }
    const Surface source(256, 256, across);
    for (const int alpha : {0, 1, 40, 127, 128, 200, 254, 255}) {
        for (const Sampling sampling : samplings) {
            Surface surface(256, 256, down);
            EXPECT_TRUE(surface.blend(whole(surface), source, whole(source), alpha, sampling));
            for (std::uint32_t i = 0; i < 65536; ++i) {
                const std::uint32_t over = i % 256;
                const std::uint32_t under = i / 256;
                const double exact = (alpha * double(over) + (255 - alpha) * double(under)) / 255;
                const std::uint32_t expected =
                    0xFF000000 + static_cast<std::uint32_t>(std::lround(exact)) * 0x010101;
                ASSERT_EQ(surface.words()[i], expected) << alpha << ": " << over << " over " << under;
                ASSERT_EQ(surface::blended(source.words()[i], down[i] | surface::opaque,
                                           static_cast<std::uint32_t>(alpha)),
                          expected);
            }
        }
    }
}

TEST(Blend, OfAMaskIsThatOfItsPixels) {
    // Long runs of one colour, some across the edges, and rows without any.
    Surface mask(97, 61);
    mask.setPenColour(0xFFFFFF);
    mask.setPenWidth(2);
    mask.movePen(-5, 20);
    for (int x = 0; x <= 110; x += 3) mask.lineTo(x, 20 + x * x / 300.0 - x % 5);
    mask.floodFill(50, 60, 0xFFFFFF);
    mask.blit(0, 30, 97, 3, noise(97, 3, 1), 0, 0, RasterOperation::bitAnd);
    for (const auto& [width, height] : {std::pair{97, 61}, {301, 200}, {98, 400}, {60, 50}, {20, 10}}) {
        for (const Sampling sampling : samplings) {
            Surface surface = noise(width, height, 2);
            Surface scaled(width, height);
            scaled.stretch(whole(scaled), mask, whole(mask), sampling);
            std::vector<std::uint32_t> expected = wordsOf(surface);
            for (std::size_t i = 0; i < expected.size(); ++i)
                expected[i] = surface::blended(scaled.words()[i], expected[i], 40);
            EXPECT_TRUE(surface.blend(whole(surface), mask, whole(mask), 40, sampling));
            EXPECT_EQ(wordsOf(surface), expected) << width << "x" << height;
        }
    }
}

TEST(Kernels, GiveTheSameBitsOnEveryProcessor) {
    using surface::StretchedRows;
    for (const auto& [width, toWidth] : {std::pair{50, 71}, {50, 49}, {50, 13}, {3, 6}, {50, 5}}) {
        const Surface picture = noise(width, 30, 1);
        for (const int toHeight : {37, 29, 16, 4}) {
            const auto table = [](int from, int to) {
                return surface::stretchTable({0.25, from - 0.5, from, to, 0, to}, Sampling::cubic);
            };
            StretchedRows best(picture.words(), width, table(width, toWidth), table(30, toHeight));
            StretchedRows plain(picture.words(), width, table(width, toWidth), table(30, toHeight),
                                surface::plainKernels());
            for (std::size_t line = 0; line < areaOf(toHeight, 1); ++line) {
                std::vector<std::uint32_t> byBest(areaOf(toWidth, 1));
                std::vector<std::uint32_t> byPlain = byBest;
                best.write(line, byBest.data());
                plain.write(line, byPlain.data());
                ASSERT_EQ(byBest, byPlain) << width << " to " << toWidth << ", " << toHeight;
            }
        }
    }
    std::vector<std::uint32_t> byPlain = wordsOf(noise(77, 1, 2));
    std::vector<std::uint32_t> byBest = byPlain;
    const Surface source = noise(77, 1, 3);
    surface::plainKernels().blendRow(source.words().data(), byPlain.data(), 77, 40);
    surface::bestKernels().blendRow(source.words().data(), byBest.data(), 77, 40);
    EXPECT_EQ(byBest, byPlain);
    surface::plainKernels().blendWord(0xFF123456, byPlain.data(), 77, 200);
    surface::bestKernels().blendWord(0xFF123456, byBest.data(), 77, 200);
    EXPECT_EQ(byBest, byPlain);
}

/// Numbers of every size, and those that are none.
class WildNumbers {
  public:
    explicit WildNumbers(unsigned seed) : m_random(seed) {}
    int whole() {
        constexpr int most = std::numeric_limits<int>::max();
        constexpr std::array extremes{most, -most - 1, most - 1, 0, -1, 1 << 20};
        if (m_random() % 4 == 0) return extremes[m_random() % extremes.size()];
        return static_cast<int>(m_random() % 120) - 40;
    }
    double real() {
        constexpr double most = std::numeric_limits<double>::max();
        constexpr std::array extremes{1e9,  -1e9,   1e300, -1e300,     1e18,    -2.5e9,
                                      most, 1e-300, 0.0,   notANumber, infinity};
        if (m_random() % 4 == 0) return extremes[m_random() % extremes.size()];
        return static_cast<double>(m_random() % 12000) / 100 - 40;
    }
    Area area() { return {real(), real(), real(), real()}; }

  private:
    std::mt19937 m_random;
};

TEST(Surface, SurvivesAnyCallWithAnyNumbers) {
    FakeTextPainter painter;
    for (unsigned seed = 0; seed < 20; ++seed) {
        WildNumbers wild(seed);
        constexpr std::array ratios{1.0, 1.25, 2.0, 2.75};
        Surface surface(static_cast<int>(seed % 5) * 17, 41, ratios[seed % 4]);
        const Surface source = noise(30, 20, seed, ratios[seed / 4 % 4]);
        for (int round = 0; round < 60; ++round) {
            surface.setPenWidth(wild.whole());
            surface.setPenColour(static_cast<Colour>(wild.whole()));
            surface.setFillColour(static_cast<Colour>(wild.whole()));
            surface.movePen(wild.real(), wild.real());
            surface.plot(wild.real(), wild.real());
            surface.lineTo(wild.real(), wild.real());
            surface.circle(wild.real(), wild.real(), wild.real());
            surface.print(painter, "text", round % 2 == 0 ? PenAfterText::stays : PenAfterText::goesToEnd);
            surface.floodFill(wild.whole(), wild.whole(), 0);
            const Surface& from = round % 5 == 0 ? surface : source;
            surface.blit(wild.whole(), wild.whole(), wild.whole(), wild.whole(), from, wild.whole(),
                         wild.whole(), round % 2 == 0 ? RasterOperation::bitAnd : RasterOperation::bitOr);
            const Sampling sampling = samplings[static_cast<std::size_t>(round % 3)];
            surface.stretch(wild.area(), from, wild.area(), sampling);
            surface.stretch(wild.area(), from, Area(1, 2, 13, 5.5), sampling);
            surface.blend(wild.area(), from, Area(0, 0, 9, 20), wild.whole(), sampling);
            ASSERT_TRUE(std::isfinite(surface.pen().x) && std::isfinite(surface.pen().y));
        }
        for (const std::uint32_t word : surface.words()) ASSERT_EQ(word >> 24, 0xFFU);
    }
}

}  // namespace
}  // namespace vantrace
