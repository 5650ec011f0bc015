// Passes of seconds: the site is moved until the satellite barely looks over its horizon.

#include "orbit/passes/pass_list_text.h"
#include "orbit/passes/pass_search.h"
#include "tests/orbit/element_texts.h"
#include "tests/orbit/passes/dense_path.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

struct Orbit {
    const char* label;
    const char* file;
    const char* name;
    double longitudeDeg;
    int direction;  ///< 1: the site goes north until it loses the satellite, -1: south
};

class GrazingPass : public ::testing::TestWithParam<Orbit> {};

/// Greatest sine of the elevation within the span, seen from a latitude.
struct Glimpse {
    double sine = -1.0;
    std::vector<DenseCrossing> crossings;
};

Glimpse glimpse(DensePath& path, const GeodeticPoint& site) {
    return {path.greatestSine(site, 0.0, path.spanS()), path.crossings(site)};
}

TEST_P(GrazingPass, IsFoundAndNoneIsInvented) {
    const Orbit orbit = GetParam();
    const ElementSet elements = shippedSet(orbit.file, orbit.name);
    const Instant from = plusSeconds(elements.epoch, 3000.0);
    DensePath path(elements, from, 1.0);
    Satellite satellite(elements);
    const auto siteAt = [&](double latitudeDeg) {
        return GeodeticPoint{latitudeDeg * radiansPerDegree, orbit.longitudeDeg * radiansPerDegree, 0.0};
    };
    const auto search = [&](const GeodeticPoint& site) {
        SatelliteMover mover(satellite, from);
        return findPasses(mover, Observer(site), from, 1.0);
    };
    // The latitude where the last pass of the day vanishes.
    double seen = 0.0;
    double unseen = 90.0 * orbit.direction;
    ASSERT_GT(glimpse(path, siteAt(seen)).sine, 0.0);
    ASSERT_LT(glimpse(path, siteAt(unseen)).sine, 0.0);
    int shortPasses = 0;
    while (std::abs(unseen - seen) > 1e-10) {
        const double middle = 0.5 * (seen + unseen);
        const GeodeticPoint site = siteAt(middle);
        const Glimpse truth = glimpse(path, site);
        (truth.sine > 0.0 ? seen : unseen) = middle;
        if (std::abs(truth.sine) < 1e-10) break;  // closer than a millimetre: either answer is right
        const PassSearchResult found = search(site);
        ASSERT_EQ(found.passes.size() * 2, truth.crossings.size()) << middle << " sine " << truth.sine;
        for (std::size_t i = 0; i < found.passes.size(); ++i) {
            const Pass& pass = found.passes[i];
            const double wanted = truth.crossings[2 * i + 1].seconds - truth.crossings[2 * i].seconds;
            if (wanted < 30.0) {
                ++shortPasses;
                EXPECT_NEAR(pass.durationS(), wanted, 0.05 + 0.01 / wanted);
                EXPECT_GE(pass.culmination.elevationRad, 0.0);
                EXPECT_EQ(passListText(found, from, 1.0, 0.0).find('-'), std::string::npos);
            }
        }
    }
    EXPECT_GE(shortPasses, 2);
}

INSTANTIATE_TEST_SUITE_P(Orbits, GrazingPass,
                         ::testing::Values(Orbit{"HstNorth", "science.txt", "HST", 5.0, 1},
                                           Orbit{"HstSouth", "science.txt", "HST", 5.0, -1},
                                           Orbit{"SwiftNorth", "science.txt", "SWIFT", 120.0, 1},
                                           Orbit{"IssNorth", "stations.txt", "ISS (ZARYA)", -60.0, 1},
                                           Orbit{"IssSouth", "stations.txt", "ISS (ZARYA)", 100.0, -1},
                                           Orbit{"OfeqRetrograde", "classfd.txt", "Ofeq 16", 30.0, 1},
                                           Orbit{"EccentricNorth", "visual.txt", "ATLAS CENTAUR 2", 0.0, 1},
                                           Orbit{"EccentricSouth", "visual.txt", "ATLAS CENTAUR 2", 200.0,
                                                 -1},
                                           Orbit{"FregatNorth", "stations.txt", "FREGAT DEB", 0.0, 1},
                                           Orbit{"ElectronSouth", "alpha5.txt", "ELECTRON R/B", 0.0, -1}),
                         [](const auto& one) { return one.param.label; });

}  // namespace
}  // namespace vantrace
