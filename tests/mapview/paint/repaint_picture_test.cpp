// Whole frames, with real text, compared with pictures that were looked at.
#include <cstdlib>

#include "mapview/tables/ground_track.h"
#include "mapview/tables/gsatroutine.h"
#include "mapview/tables/sun_moon.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_text_painter.h"
#include "tests/mapview/paint/painter_test.h"

namespace vantrace {
namespace {

/// Prints nothing.
class NoTextPainter final : public TextPainter {
  public:
    const TextCoverage& coverageOf(const Font&, std::string_view, double) override { return m_nothing; }

  private:
    TextCoverage m_nothing;
};

/// A square with a hole around it: of that colour in the middle, nothing at the rim.
std::pair<Surface, Surface> sprite(int size, int rim, Colour colour) {
    Surface picture(size, size);
    Surface mask = ofOneColour(size, size, 0xFFFFFF);
    const int inner = size - 2 * rim;
    picture.blit(rim, rim, inner, inner, ofOneColour(inner, inner, colour), 0, 0, RasterOperation::bitOr);
    mask.blit(rim, rim, inner, inner, Surface(inner, inner), 0, 0, RasterOperation::bitAnd);
    return {picture, mask};
}

/// Slopes of colour from west to east and from north to south, and lines every 45 degrees.
Surface slopes(int width, int height) {
    std::vector<std::uint32_t> words;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool isLine = x % (width / 8) == 0 || y % (height / 4) == 0;
            words.push_back(isLine ? 0xA0A0A0
                                   : static_cast<std::uint32_t>((60 + 120 * x / width) << 16 |
                                                                (40 + 140 * y / height) << 8 | 90));
        }
    }
    return {width, height, words};
}

/// With real pictures and print.
class GoldenMapTest : public MapTest {
  protected:
    GoldenMapTest() {
        addFavourite("ISS (ZARYA)");
        addFavourite("FUNCUBE-1 (AO-73)");
        addFavourite("INTELSAT 10-02");
        select(1);
        state.ObserverName = "Home";
        state.Locations[0] = {"Los Angeles", "34.05", "118.24", 90, "1"};
        surfaces.WorldNormal = slopes(720, 360);
        std::tie(surfaces.SunPic, surfaces.SunMask) = sprite(30, 6, 0x00FFFF);
        std::tie(surfaces.MoonPic, surfaces.MoonMask) = sprite(20, 4, 0xE0E0E0);
        for (std::size_t i = 0; i < satellitePictureCount; ++i) {
            std::tie(surfaces.SatPic[i], surfaces.SatMask[i]) =
                sprite(32, 8, 0x4000FF + 0x002000 * static_cast<Colour>(i));
        }
    }

    Surface painted(const char* view, int width, int height, TextPainter& text) {
        Services with = servicesWith(services, pictures, text);
        state.MainTag = view;
        CalcSunMoon(form, map, state, with);
        CalcGroundTrack(form, map, state, with);
        Gsatroutine(form, map, state, with);
        surfaces.Final.resize(width, height);
        RepaintMapScreen(surfaces, form, map, state, with);
        EXPECT_EQ(fakes.logLines(), Texts{});
        return surfaces.Final;
    }
    /// Text may differ a little between versions of the machine's faces: what it touches counts apart. With
    /// VANTRACE_WRITE_GOLDENS in the environment the pictures are written anew, to be looked at.
    void compare(const char* name, const char* view, int width, int height) {
        const std::string file = VANTRACE_GOLDEN_FOLDER "/" + std::string(name) + ".png";
        const Surface bare = painted(view, width, height, noText);
        const Surface frame = painted(view, width, height, painter);
        if (std::getenv("VANTRACE_WRITE_GOLDENS") != nullptr) pictures.save(frame, file);
        const Surface golden = pictures.load(file);
        ASSERT_EQ(golden.width(), width);
        ASSERT_EQ(golden.height(), height);
        int textPixels = 0;
        int textDifferences = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const bool isText = isNearText(bare, frame, x, y);
                const bool differs =
                    difference(wordAt(frame, x, y), wordAt(golden, x, y)) > (isText ? 48 : 2);
                textPixels += isText ? 1 : 0;
                textDifferences += isText && differs ? 1 : 0;
                if (!isText && differs) FAIL() << file << " at " << x << ", " << y;
            }
        }
        EXPECT_GT(textPixels, 1000);
        EXPECT_LT(textDifferences, textPixels / 5);
    }

  private:
    static int difference(std::uint32_t left, std::uint32_t right) {
        int most = 0;
        for (unsigned channel = 0; channel < 3; ++channel) {
            most = std::max(most, std::abs(static_cast<int>(channelOf(left, channel)) -
                                           static_cast<int>(channelOf(right, channel))));
        }
        return most;
    }
    static bool isNearText(const Surface& bare, const Surface& frame, int x, int y) {
        constexpr int reach = 2;
        for (int line = std::max(y - reach, 0); line <= std::min(y + reach, frame.height() - 1); ++line) {
            for (int at = std::max(x - reach, 0); at <= std::min(x + reach, frame.width() - 1); ++at) {
                if (wordAt(bare, at, line) != wordAt(frame, at, line)) return true;
            }
        }
        return false;
    }

    MapSurfaces surfaces;
    QtPictures pictures;
    QtTextPainter painter;
    NoTextPainter noText;
};

TEST_F(GoldenMapTest, TheWorldWithGreenwichOrTheDateLineInTheMiddleAndTheNorthLookAsTheyDid) {
    compare("map_worldnormal", "worldnormal", 480, 240);
    compare("map_worldalt", "worldalt", 351, 175);
    compare("map_ncq", "NCQ", 480, 240);
}

}  // namespace
}  // namespace vantrace
