#include "mapview/paint/shade.h"

#include <span>

#include "mapview/map_projection.h"
#include "mapview/paint/shade_painter.h"
#include "mapview/tables/sun_moon.h"
#include "tests/mapview/map_test.h"

namespace vantrace {
namespace {

using Kind = PenStep::Kind;

TEST(ShadeOutline, GoesOnFromTheOtherSideWhereItRunsOffTheMap) {
    MapState map;
    for (int i = 0; i <= 360; ++i) map.TerminatorPoints[i] = {0.0, 90.0};
    map.TerminatorPoints[2] = {10.0, 175.0};
    map.TerminatorPoints[3] = {20.0, 185.0};
    map.TerminatorPoints[4] = {30.0, 175.0};
    const auto x = [](double west) { return LongitudeToAlphaX("worldnormal", west); };
    const auto y = [](double latitude) { return LatitudeToAlphaY("worldnormal", latitude); };
    const std::vector<PenStep> steps = shadeOutline(map, "worldnormal");
    ASSERT_EQ(steps.size(), 361U + 4U);
    const std::vector<PenStep> expected{{Kind::plot, x(90), y(0)},     {Kind::lineTo, x(90), y(0)},
                                        {Kind::lineTo, x(175), y(10)}, {Kind::lineTo, -10, y(20)},
                                        {Kind::plot, 576, y(20)},      {Kind::lineTo, x(185), y(20)},
                                        {Kind::lineTo, 10000, y(30)},  {Kind::plot, -10, y(30)},
                                        {Kind::lineTo, x(175), y(30)}, {Kind::lineTo, x(90), y(0)}};
    EXPECT_EQ(std::vector<PenStep>(steps.begin(), steps.begin() + 10), expected);
}

TEST(ShadeOutline, FiveHundredPixelsAreTheMeasureInEveryView) {
    MapState map;
    // 160 degrees are 252 pixels of the world, but 503 of a region.
    for (int i = 0; i <= 360; ++i) map.TerminatorPoints[i] = {0.0, i % 2 == 0 ? 10.0 : 170.0};
    EXPECT_EQ(shadeOutline(map, "worldnormal").size(), 361U);
    EXPECT_EQ(shadeOutline(map, "NCQ").size(), 361U + 2U * 360U);
    // 159 degrees are 499.97.
    for (int i = 0; i <= 360; ++i) map.TerminatorPoints[i] = {0.0, i % 2 == 0 ? 10.0 : 169.0};
    EXPECT_EQ(shadeOutline(map, "NCQ").size(), 361U);
}

TEST(ShadeSeeds, AreWholePixelsAndMayLieOffTheSurface) {
    MapState map;
    map.SunSeedPoints[0] = {0.0, 0.0};
    map.SunSeedPoints[15] = {-45.0, 90.0};
    EXPECT_EQ(shadeSeeds(map, "worldnormal")[0], (SeedPixel{283, 185}));
    EXPECT_EQ(shadeSeeds(map, "worldnormal")[15], (SeedPixel{142, 278})) << "from 141.5 and 277.5, to even";
    EXPECT_EQ(shadeSeeds(map, "NEQ")[15], (SeedPixel{-283, 555}));
}

TEST(ShadeBlends, AreFourQuartersWithHalvesRoundedToEven) {
    const auto even = shadeBlends(1000, 600);
    EXPECT_EQ(even[0], (ShadeBlend{{0, 0, 500, 300}, {0, 0, 283, 185}}));
    EXPECT_EQ(even[1], (ShadeBlend{{500, 0, 500, 300}, {283, 0, 283, 185}}));
    EXPECT_EQ(even[2], (ShadeBlend{{0, 300, 500, 300}, {0, 185, 283, 185}}));
    EXPECT_EQ(even[3], (ShadeBlend{{500, 300, 500, 300}, {283, 185, 283, 185}}));
    EXPECT_EQ(shadeBlends(13, 15)[3].destination, (PixelArea{6, 8, 6, 8}));
    EXPECT_EQ(shadeBlends(1, 1)[3].destination, (PixelArea{0, 0, 0, 0}));
}

/// A view's mask against the truth, pixel by pixel. Three pixels at the line between day and night are free.
class Mask {
  public:
    Mask(const MapState& map, const Shown& view) : m_isDay(paddedSize), m_isReached(paddedSize) {
        drawShade(m_alpha, map, view.word);
        constexpr double perDegree = std::numbers::pi / 180.0;
        const double sine = std::sin(map.SunLatitude * perDegree);
        const double cosine = std::cos(map.SunLatitude * perDegree);
        std::vector<double> meridians;
        for (int x = -band; x < alphaSize.width + band; ++x) {
            const double west = -(view.leftEastDeg + (x + 0.5) / alphaSize.width * view.widthDeg);
            meridians.push_back(std::cos((west - map.SunLongitude) * perDegree));
        }
        for (int y = -band; y < alphaSize.height + band; ++y) {
            const double latitude = (view.topDeg - (y + 0.5) / alphaSize.height * view.heightDeg) * perDegree;
            const double up = sine * std::sin(latitude);
            const double across = cosine * std::cos(latitude);
            char* day = &m_isDay[index(-band, y)];
            for (const double meridian : meridians) *day++ = up + across * meridian > 0.0 ? 1 : 0;
        }
        for (const SeedPixel& seed : shadeSeeds(map, view.word)) reach(seed.x, seed.y);
    }

    struct Differences {
        int fromDay = 0;             ///< light is not where the sun is up
        int fromReachedDay = 0;      ///< light is not where the sun is up and a seed can reach
        int fromDayOffThePoles = 0;  ///< fromDay without the four rows at the upper and lower edge
    };
    Differences differences() const {
        Differences found;
        for (int y = 0; y < alphaSize.height; ++y) {
            for (int x = 0; x < alphaSize.width; ++x) {
                const bool isLit = isLight(x, y);
                const bool isWrong = isLit != isDay(x, y);
                const bool isUnreached = isLit != (m_isReached[index(x, y)] != 0);
                if ((!isWrong && !isUnreached) || isNearTheLine(x, y)) continue;
                const bool isPolar = y < 4 || y >= alphaSize.height - 4;
                found.fromDay += isWrong ? 1 : 0;
                found.fromDayOffThePoles += isWrong && !isPolar ? 1 : 0;
                found.fromReachedDay += isUnreached ? 1 : 0;
            }
        }
        return found;
    }

  private:
    static constexpr int band = 3;
    static constexpr int paddedWidth = alphaSize.width + 2 * band;
    static constexpr std::size_t paddedSize =
        static_cast<std::size_t>(paddedWidth) * static_cast<std::size_t>(alphaSize.height + 2 * band);
    static std::size_t index(int x, int y) {
        return static_cast<std::size_t>((y + band) * paddedWidth + x + band);
    }
    static bool isOnSurface(int x, int y) {
        return x >= 0 && y >= 0 && x < alphaSize.width && y < alphaSize.height;
    }
    bool isDay(int x, int y) const { return m_isDay[index(x, y)] != 0; }
    bool isLight(int x, int y) const {
        return (m_alpha.words()[static_cast<std::size_t>(y * alphaSize.width + x)] & 0xFFFFFFU) != 0;
    }
    bool isNearTheLine(int x, int y) const {
        for (int ny = y - band; ny <= y + band; ++ny) {
            for (int nx = x - band; nx <= x + band; ++nx) {
                if (isDay(nx, ny) != isDay(x, y)) return true;
            }
        }
        return false;
    }
    /// Marks the piece of day that a pixel belongs to.
    void reach(int startX, int startY) {
        std::vector<SeedPixel> open{{startX, startY}};
        while (!open.empty()) {
            const SeedPixel at = open.back();
            open.pop_back();
            if (!isOnSurface(at.x, at.y)) continue;
            char& isReached = m_isReached[index(at.x, at.y)];
            if (!isDay(at.x, at.y) || isReached != 0) continue;
            isReached = 1;
            for (const int step : {-1, 1}) {
                open.push_back({at.x + step, at.y});
                open.push_back({at.x, at.y + step});
            }
        }
    }

    Surface m_alpha{alphaSize.width, alphaSize.height};
    std::vector<char> m_isDay;
    std::vector<char> m_isReached;
};

class ShadeTest : public MapTest {
  protected:
    static constexpr int dates = 50;
    /// A week and some hours apart, so that all seasons and all hours come.
    void calculate(int number) {
        const DateParts utc =
            dateParts(packDateTime({2026, 1, 1 + number * 365 / dates, number * 7 % 24, 0, 0}));
        fakes.clock.setUtc(utc);
        CalcSunMoon(form, map, state, services);
    }
};

// Within a day or two of an equinox the line runs so close to the poles that two of its points may lie more
// than 42 degrees apart there. If the side of the map is between them their x differ by less than 500 pixels,
// and the line goes the wrong way round, in the outermost rows.
TEST_F(ShadeTest, TheWholeWorldIsLightWhereTheSunIsUpButForThePolesAtAnEquinox) {
    int withPolarRows = 0;
    for (int number = 0; number < dates; ++number) {
        calculate(number);
        for (const Shown& view : std::span(views).first(2)) {
            const Mask::Differences found = Mask(map, view).differences();
            EXPECT_EQ(found.fromDayOffThePoles, 0) << number << " " << view.word;
            if (std::abs(map.SunLatitude) > 1.2) {
                EXPECT_EQ(found.fromDay, 0) << number << " " << view.word;
            }
            withPolarRows += found.fromDay > 0 ? 1 : 0;
        }
    }
    EXPECT_LE(withPolarRows, 4);
}

// The seeds lie 24 degrees apart: a corner of a region can have a piece of day between two of them.
TEST_F(ShadeTest, RegionsAreLightInEveryPieceOfDayThatASeedReaches) {
    int withUnreachedDay = 0;
    int mostPixels = 0;
    for (int number = 0; number < dates; ++number) {
        calculate(number);
        for (const Shown& view : std::span(views).subspan(2)) {
            const Mask::Differences found = Mask(map, view).differences();
            EXPECT_EQ(found.fromReachedDay, 0) << number << " " << view.word;
            withUnreachedDay += found.fromDay > 0 ? 1 : 0;
            mostPixels = std::max(mostPixels, found.fromDay);
        }
    }
    EXPECT_LE(withUnreachedDay, 10) << "of 300";
    EXPECT_LE(mostPixels, 2600) << "of 209420";
}

TEST_F(ShadeTest, TheBlendLightensTheDayAndDarkensTheNight) {
    calculate(0);
    Surface alpha(alphaSize.width, alphaSize.height);
    drawShade(alpha, map, "worldnormal");
    Surface frame(720, 360);
    frame.setBackgroundColour(0x646464);
    frame.clear();
    blendShade(frame, alpha);
    const auto colourAt = [&](double latitude, double west) {
        return frame.pixel(static_cast<int>(LongitudeToMapX({720, 360}, "worldnormal", west)),
                           static_cast<int>(LatitudeToMapY({720, 360}, "worldnormal", latitude)));
    };
    // (40 x 255 + 215 x 100) / 255 is 124, and 215 x 100 / 255 is 84.
    EXPECT_EQ(colourAt(map.SunLatitude, map.SunLongitude), 0x7C7C7CU);
    EXPECT_EQ(colourAt(-map.SunLatitude, std::fmod(map.SunLongitude + 180.0, 360.0)), 0x545454U);
}

}  // namespace
}  // namespace vantrace
