// The ground of the map, and where the pictures come from.
#include "tests/mapview/paint/painter_test.h"

namespace vantrace {
namespace {

class GroundTest : public PainterTest {
  protected:
    /// The map has 16 by 8 pixels, all different.
    GroundTest() { surfaces.WorldNormal = noise(16, 8, 1); }

    /// What a view makes of it.
    std::vector<std::uint32_t> painted(const char* view, int width, int height) {
        state.MainTag = view;
        surfaces.Final.resize(width, height);
        paintBackground(frame());
        return wordsOf(surfaces.Final);
    }
    int stretchErrors() const { return fakes.logged(labels::stretchBltError); }
};

TEST_F(GroundTest, EachViewHasItsPartOfTheWorld) {
    for (const auto& [view, x, y] : {std::tuple("NWQ", 0, 0),
                                     {"NCQ", 4, 0},
                                     {"NEQ", 8, 0},
                                     {"SWQ", 0, 4},
                                     {"SCQ", 4, 4},
                                     {"SEQ", 8, 4}}) {
        EXPECT_EQ(painted(view, 8, 4), cut(surfaces.WorldNormal, x, y, 8, 4)) << view;
    }
    for (const char* view : {"worldnormal", "nonsense"}) {
        EXPECT_EQ(painted(view, 16, 8), wordsOf(surfaces.WorldNormal)) << view;
    }
    painted("worldalt", 16, 8);
    EXPECT_EQ(cut(surfaces.Final, 0, 0, 8, 8), cut(surfaces.WorldNormal, 8, 0, 8, 8));
    EXPECT_EQ(cut(surfaces.Final, 8, 0, 8, 8), cut(surfaces.WorldNormal, 0, 0, 8, 8));
}

TEST_F(GroundTest, NothingOfTheLastFrameIsLeft) {
    for (const auto& [worldWidth, worldHeight] : {std::pair{40, 20}, {41, 21}, {43, 23}}) {
        surfaces.WorldNormal = ofOneColour(worldWidth, worldHeight, ground);
        for (const Shown& view : views) {
            state.MainTag = view.word;
            for (const auto& [width, height] : {std::pair{1, 1}, {7, 5}, {701, 3}, {30, 31}}) {
                surfaces.Final = noise(width, height, 3);
                paintBackground(frame());
                EXPECT_EQ(wordsOf(surfaces.Final), wordsOf(ofOneColour(width, height, ground)))
                    << view.word << " " << width << "x" << height << " of " << worldWidth;
            }
        }
    }
    EXPECT_EQ(stretchErrors(), 0);
}

TEST_F(GroundTest, WithoutAMapItIsBlackAndTheWholeWorldLogsIt) {
    surfaces.WorldNormal = Surface();
    const auto errors = [&](const char* view) {
        const int before = stretchErrors();
        state.MainTag = view;
        surfaces.Final = noise(20, 10, 1);
        paintBackground(frame());
        EXPECT_EQ(wordsOf(surfaces.Final), wordsOf(Surface(20, 10))) << view;
        return stretchErrors() - before;
    };
    EXPECT_EQ(errors("worldnormal"), 1);
    EXPECT_NE(fakes.logLines().front().find(" - World Normal BLiTter - StretchBlt error"), std::string::npos);
    EXPECT_EQ(errors("nonsense"), 1);
    for (const char* view : {"worldalt", "NWQ", "SCQ"}) EXPECT_EQ(errors(view), 0) << view;
    EXPECT_EQ(logged(), 0);
}

TEST_F(GroundTest, TheMapIsThePictureThatTheSettingNames) {
    loadMapPicture(surfaces, state, services);
    EXPECT_EQ(surfaces.WorldNormal.width(), 0) << "there is none";
    EXPECT_EQ(fakes.logLines().size(), 0U);

    fakes.folder.write("Default.jpg", "a picture");
    fakes.pictures.files.emplace(state.AppPath + "Default.jpg", noise(30, 15, 1));
    loadMapPicture(surfaces, state, services);
    EXPECT_EQ(surfaces.WorldNormal.width(), 30);

    fakes.folder.write("Moon.jpg", "no picture");
    SaveConfig(services, settings::mapFile, "Moon");
    loadMapPicture(surfaces, state, services);
    EXPECT_EQ(surfaces.WorldNormal.width(), 0) << "not the one before";
    EXPECT_EQ(fakes.logged(labels::mapFormLoad), 1);
}

/// Has no moon.
class MoonlessPictures final : public Pictures {
  public:
    Surface load(const std::filesystem::path& file) override { return m_pictures.load(file); }
    Surface builtIn(std::string_view name, double devicePixelsPerPixel) override {
        if (name == "moon") throw std::invalid_argument("no moon");
        names.emplace_back(name);
        return m_pictures.builtIn(name, devicePixelsPerPixel);
    }
    void save(const Surface&, const std::filesystem::path&) override {}

    Texts names;

  private:
    FakePictures m_pictures;
};

TEST_F(GroundTest, ASpriteThatIsMissingCostsItselfAlone) {
    MoonlessPictures pictures;
    Services with = servicesWith(services, pictures, services.textPainter);
    loadSprites(surfaces, with, 2);
    EXPECT_EQ(fakes.logged(labels::mapFormLoad), 1);
    EXPECT_EQ(surfaces.MoonPic.width(), 0);
    for (const Surface* surface :
         {&surfaces.MoonMask, &surfaces.SunPic, &surfaces.SatPic[5], &surfaces.SatMask[0]}) {
        EXPECT_EQ(surface->devicePixelsPerPixel(), 2);
        EXPECT_EQ(surface->width(), 32);
    }
    EXPECT_EQ(pictures.names.size(), 15U);
    EXPECT_EQ(pictures.names.back(), "satellite_5_mask");
    repaint();
    EXPECT_EQ(logged(), 0);
}

}  // namespace
}  // namespace vantrace
