#include <queue>

#include "platform/surface.h"
#include "tests/support/surface_pictures.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr Colour wall = 0x00FF00;
constexpr std::uint32_t wallWord = 0xFF00FF00;

/// Step by step to all four sides.
std::vector<std::uint32_t> referenceFill(const Surface& surface, int x, int y, std::uint32_t fill) {
    std::vector<std::uint32_t> words = wordsOf(surface);
    std::vector<bool> seen(words.size());
    std::queue<std::pair<int, int>> open;
    open.emplace(x, y);
    while (!open.empty()) {
        const auto [column, line] = open.front();
        open.pop();
        if (column < 0 || column >= surface.width() || line < 0 || line >= surface.height()) continue;
        const auto at = static_cast<std::size_t>(line * surface.width() + column);
        if (seen[at] || words[at] == wallWord) continue;
        seen[at] = true;
        words[at] = fill;
        for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
            open.emplace(column + dx, line + dy);
    }
    return words;
}

/// Walls at random, so many in ten; the rest has three colours, of which one is that of the fill.
Surface maze(int width, int height, int walls, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<std::uint32_t> words;
    for (int i = 0; i < width * height; ++i) {
        const std::uint32_t others[]{0xFF000000, 0xFFFF0000, 0xFF123456};
        words.push_back(static_cast<int>(random() % 10) < walls ? wallWord : others[random() % 3]);
    }
    return {width, height, words};
}

TEST(FloodFill, ReachesWhatStepsReachInAnyMaze) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        const int width = 1 + static_cast<int>(seed % 37);
        const int height = 1 + static_cast<int>(seed * 7 % 29);
        Surface surface = maze(width, height, static_cast<int>(seed % 7), seed);
        // Red is among the maze's own colours; the wall's colour is how the map's shade is filled.
        const bool likeTheWall = seed % 2 == 0;
        surface.setFillColour(likeTheWall ? wall : 0x0000FF);
        const int x = static_cast<int>(seed * 13) % width;
        const int y = static_cast<int>(seed * 5) % height;
        const auto expected = referenceFill(surface, x, y, likeTheWall ? wallWord : 0xFFFF0000);
        surface.floodFill(x, y, wall);
        ASSERT_EQ(wordsOf(surface), expected) << "seed " << seed;
    }
}

TEST(FloodFill, DoesNothingFromTheBorderOrOffTheSurface) {
    Surface surface = maze(9, 9, 3, 1);
    surface.setPenColour(wall);
    surface.plot(4, 4);
    const std::vector<std::uint32_t> before = wordsOf(surface);
    constexpr int far = std::numeric_limits<int>::max();
    for (const auto& [x, y] :
         {std::pair{4, 4}, {-1, 4}, {9, 4}, {4, -1}, {4, 9}, {far, far}, {-far - 1, 0}, {0, -far - 1}})
        surface.floodFill(x, y, wall);
    EXPECT_EQ(wordsOf(surface), before);
    Surface none;
    none.floodFill(0, 0, wall);
}

TEST(FloodFill, WindsThroughALongSpiral) {
    constexpr int size = 501;
    Surface surface(size, size);
    surface.setPenColour(wall);
    surface.setFillColour(0xFFFFFF);
    // Walls two apart, wound inwards.
    int left = 0;
    int right = size - 1;
    surface.movePen(0, 1);
    for (int y = 1; y < size / 2; y += 2, left += 2, right -= 2) {
        const int bottom = size - 1 - y;
        surface.lineTo(right - 1, y);
        surface.lineTo(right - 1, bottom);
        surface.lineTo(left + 1, bottom);
        surface.lineTo(left + 1, y + 2);
    }
    const auto expected = referenceFill(surface, 0, 0, 0xFFFFFFFF);
    surface.floodFill(0, 0, wall);
    EXPECT_EQ(wordsOf(surface), expected);
    EXPECT_GT(std::count(expected.begin(), expected.end(), 0xFFFFFFFF), size * size / 3);
}

TEST(FloodFill, DoesNotLeakThroughAThinOutline) {
    std::mt19937 random(5);
    for (int round = 0; round < 100; ++round) {
        Surface surface(80, 60, round % 2 == 0 ? 1 : 1.5);
        surface.setPenColour(wall);
        surface.setFillColour(wall);
        // A star-shaped outline around the middle, with one end of each line at a place between pixels.
        std::uniform_real_distribution<double> reach(8, 28);
        const double first = reach(random);
        surface.movePen(40 + first, 30);
        for (int corner = 1; corner < 24; ++corner) {
            const double angle = corner * 3.14159265 / 12;
            const double distance = reach(random);
            surface.lineTo(40 + distance * std::cos(angle), 30 + distance * std::sin(angle));
        }
        surface.lineTo(40 + first, 30);
        surface.floodFill(0, 0, wall);
        ASSERT_EQ(surface.pixel(40, 30), 0U) << round;
        ASSERT_EQ(surface.pixel(79, 59), wall) << round;
    }
}

}  // namespace
}  // namespace vantrace
