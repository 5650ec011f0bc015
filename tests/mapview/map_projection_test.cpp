#include "mapview/map_projection.h"

#include "tests/mapview/map_test.h"

namespace vantrace {
namespace {

constexpr SurfaceSize odd{1013, 507};

double westOf(double eastDeg) {
    return std::fmod(720.0 - eastDeg, 360.0);
}

TEST(MapProjection, WhatAViewShowsLiesEvenlyFromEdgeToEdge) {
    for (const Shown& view : views) {
        for (double share = 0.001; share < 1.0; share += 0.0137) {
            const double west = westOf(view.leftEastDeg + share * view.widthDeg);
            const double latitude = view.topDeg - share * view.heightDeg;
            EXPECT_NEAR(LongitudeToMapX(odd, view.word, west), share * odd.width, 1e-9) << view.word << west;
            EXPECT_NEAR(LatitudeToMapY(odd, view.word, latitude), share * odd.height, 1e-9) << view.word;
            EXPECT_NEAR(LongitudeToAlphaX(view.word, west), share * 566, 1e-9) << view.word;
            EXPECT_NEAR(LatitudeToAlphaY(view.word, latitude), share * 370, 1e-9) << view.word;
        }
    }
}

TEST(MapProjection, WhatAViewDoesNotShowLiesOffTheSurface) {
    for (const Shown& view : views) {
        for (double east = -179.5; east < 180.0; east += 1.0) {
            const double behindLeft = std::fmod(east - view.leftEastDeg + 720.0, 360.0);
            const double x = LongitudeToMapX(odd, view.word, westOf(east));
            EXPECT_EQ(x >= 0 && x <= odd.width, behindLeft <= view.widthDeg) << view.word << " " << east;
        }
        for (double latitude = -89.5; latitude < 90.0; latitude += 1.0) {
            const double y = LatitudeToMapY(odd, view.word, latitude);
            EXPECT_EQ(y >= 0 && y <= odd.height,
                      latitude <= view.topDeg && latitude >= view.topDeg - view.heightDeg)
                << view.word << " " << latitude;
        }
    }
}

TEST(MapProjection, EdgesFallOnTheirSides) {
    constexpr SurfaceSize map{720, 360};
    // What lies beyond -10 and 370 degrees is not folded.
    for (const auto& [word, west, x] : {std::tuple("worldnormal", 0.0, 360.0),
                                        {"worldnormal", 360, 360},
                                        {"worldnormal", 180, 0},
                                        {"worldnormal", 180.5, 719},
                                        {"worldnormal", -10, 380},
                                        {"worldnormal", 370, 340},
                                        {"worldalt", 0, 0},
                                        {"worldalt", 180, 360},
                                        {"worldalt", 0.5, 719},
                                        {"NCQ", 90, 0},
                                        {"NCQ", 270, 720}}) {
        EXPECT_EQ(LongitudeToMapX(map, word, west), x) << word << " " << west;
    }
    for (const auto& [word, latitude, y] : {std::tuple("worldnormal", 90.0, 0.0),
                                            {"worldalt", -90, 360},
                                            {"worldnormal", 0, 180},
                                            {"NWQ", 0, 360},
                                            {"SWQ", 0, 0}}) {
        EXPECT_EQ(LatitudeToMapY(map, word, latitude), y) << word << " " << latitude;
    }
}

TEST(MapProjection, AWordThatNamesNoViewIsTheWholeWorld) {
    for (const char* word : {"", "menu", "nwq", "worldAlt", "3D"}) {
        EXPECT_EQ(mapViewOf(word), MapView::worldNormal) << word;
    }
    EXPECT_EQ(LongitudeToMapX({0, 0}, "NEQ", 77), 0) << "a surface without a pixel";
}

}  // namespace
}  // namespace vantrace
