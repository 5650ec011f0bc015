#include "mapview/map_projection.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

/// What each view shows: from its left edge (degrees EAST) and its top edge on.
struct Shown {
    const char* word;
    double leftEastDeg;
    double widthDeg;
    double topDeg;
    double heightDeg;
};
constexpr Shown views[] = {{"worldnormal", -180, 360, 90, 180},
                           {"worldalt", 0, 360, 90, 180},
                           {"NWQ", -180, 180, 90, 90},
                           {"NEQ", 0, 180, 90, 90},
                           {"NCQ", -90, 180, 90, 90},
                           {"SWQ", -180, 180, 0, 90},
                           {"SEQ", 0, 180, 0, 90},
                           {"SCQ", -90, 180, 0, 90}};

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
    EXPECT_EQ(LongitudeToMapX(map, "worldnormal", 0), 360);
    EXPECT_EQ(LongitudeToMapX(map, "worldnormal", 360), 360);
    EXPECT_EQ(LongitudeToMapX(map, "worldnormal", 180), 0);
    EXPECT_EQ(LongitudeToMapX(map, "worldnormal", 180.5), 719);
    EXPECT_EQ(LongitudeToMapX(map, "worldalt", 0), 0);
    EXPECT_EQ(LongitudeToMapX(map, "worldalt", 180), 360);
    EXPECT_EQ(LongitudeToMapX(map, "worldalt", 0.5), 719);
    EXPECT_EQ(LongitudeToMapX(map, "NCQ", 90), 0);
    EXPECT_EQ(LongitudeToMapX(map, "NCQ", 270), 720);
    EXPECT_EQ(LatitudeToMapY(map, "worldnormal", 90), 0);
    EXPECT_EQ(LatitudeToMapY(map, "worldalt", -90), 360);
    EXPECT_EQ(LatitudeToMapY(map, "worldnormal", 0), 180);
    EXPECT_EQ(LatitudeToMapY(map, "NWQ", 0), 360);
    EXPECT_EQ(LatitudeToMapY(map, "SWQ", 0), 0);
    EXPECT_EQ(LongitudeToMapX(map, "worldnormal", -10), 380) << "not folded";
    EXPECT_EQ(LongitudeToMapX(map, "worldnormal", 370), 340) << "not folded";
}

TEST(MapProjection, AWordThatNamesNoViewIsTheWholeWorld) {
    for (const char* word : {"", "menu", "nwq", "worldAlt", "3D"}) {
        EXPECT_EQ(mapViewOf(word), MapView::worldNormal) << word;
    }
    EXPECT_EQ(LongitudeToMapX({0, 0}, "NEQ", 77), 0) << "a surface without a pixel";
}

}  // namespace
}  // namespace vantrace
