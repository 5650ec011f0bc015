#include "orbit/passes/pass_list_text.h"
#include "orbit/passes/pass_search.h"
#include "tests/orbit/element_texts.h"
#include "tests/orbit/passes/dense_path.h"

namespace vantrace {
namespace {

struct Orbit {
    const char* file;
    const char* name;
    double longitudeDeg = 0.0;
    int direction = 0;  ///< 1: the site goes north until it loses the satellite, -1: south
};

/// A test's name may hold letters and digits only.
std::string nameOf(const Orbit& orbit) {
    std::string name;
    for (const char c : std::string(orbit.name)) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
    }
    return name + (orbit.direction > 0 ? "North" : orbit.direction < 0 ? "South" : "");
}

// Low, high, inclined, retrograde, resonant and eccentric ones, up to an eccentricity of 0.91 and periods of
// days.
constexpr Orbit orbits[] = {
    {"stations.txt", "ISS (ZARYA)"},
    {"stations.txt", "FREGAT DEB"},
    {"science.txt", "HST"},
    {"science.txt", "SWIFT"},
    {"science.txt", "ODIN"},
    {"science.txt", "CASSIOPE"},
    {"science.txt", "POLAR"},
    {"science.txt", "CXO"},
    {"science.txt", "XMM-NEWTON"},
    {"science.txt", "CLUSTER II-FM7 (SAMBA)"},
    {"science.txt", "MMS 1"},
    {"science.txt", "SMILE"},
    {"visual.txt", "ISIS 1"},
    {"visual.txt", "ATLAS CENTAUR 2"},
    {"visual.txt", "INTERCOSMOS 25"},
    {"visual.txt", "AJISAI (EGS)"},
    {"amateur.txt", "JAS-2 (FO-29)"},
    {"alpha5.txt", "KZ-11 R/B"},
    {"classfd.txt", "Ofeq 16"},
    {"classfd.txt", "FIA Radar 2"},
    {"classfd.txt", "NOSS 2-3 (D)"},
    {"molniya.txt", "MERIDIAN 7"},
    {"molniya.txt", "TJS-13"},
    {"molniya.txt", "PHASE 3B (AO-10)"},
    {"gps-ops.txt", "GPS BIIR-5  (PRN 22)"},
    {"galileo.txt", "GSAT0201 (GALILEO 5)"},
    {"goes.txt", "GOES 16"},
    {"geo.txt", "QZS-2 (MICHIBIKI-2)"},
};

GeodeticPoint placeAt(double latitudeDeg, double longitudeDeg, double heightKm) {
    return {latitudeDeg * radiansPerDegree, longitudeDeg * radiansPerDegree, heightKm};
}

std::vector<GeodeticPoint> densePlaces() {
    return {placeAt(90.0, 0.0, 0.0),     placeAt(-90.0, 0.0, 2.8), placeAt(0.0, -78.5, 2.85),
            placeAt(-17.0, 180.0, 0.01), placeAt(52.0, 5.0, 0.01), placeAt(-33.9, 151.2, 0.05),
            placeAt(78.2, 15.4, 0.45),   placeAt(28.0, 86.9, 8.85)};
}

/// The crossings that the passes tell, within the span.
std::vector<DenseCrossing> toldCrossings(const PassSearchResult& result, const Instant& from, double spanS) {
    std::vector<DenseCrossing> told;
    const auto add = [&](const PassPoint& point, bool rise) {
        const double seconds = secondsBetween(from, point.time);
        if (seconds > 0.0 && seconds < spanS) told.push_back({seconds, rise, 0.0});
    };
    for (const Pass& pass : result.passes) {
        if (pass.riseKnown) add(pass.rise, true);
        if (pass.setKnown) add(pass.set, false);
    }
    return told;
}

void expectSamePasses(const ElementSet& elements, const std::vector<GeodeticPoint>& densePlaces,
                      double days) {
    const Instant from = plusSeconds(elements.epoch, 20000.0);
    DensePath path(elements, from, days);
    Satellite satellite(elements);
    for (const GeodeticPoint& site : densePlaces) {
        SCOPED_TRACE(elements.name + " from latitude " + std::to_string(site.latitudeRad / radiansPerDegree) +
                     ", longitude " + std::to_string(site.longitudeRad / radiansPerDegree));
        SatelliteMover mover(satellite, from);
        const PassSearchResult result = findPasses(mover, Observer(site), from, days);
        EXPECT_EQ(result.failureReason, "");
        const std::vector<DenseCrossing> wanted = path.crossings(site);
        const std::vector<DenseCrossing> told = toldCrossings(result, from, path.spanS());
        ASSERT_EQ(told.size(), wanted.size());
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            EXPECT_EQ(told[i].rise, wanted[i].rise) << "crossing " << i;
            // A tenth of a microradian more where the path all but touches the horizon.
            EXPECT_NEAR(told[i].seconds, wanted[i].seconds, 0.02 + 1e-7 / std::abs(wanted[i].ratePerS));
        }
        for (const Pass& pass : result.passes) {
            const double rise = std::max(0.0, secondsBetween(from, pass.rise.time));
            const double set = std::min(path.spanS(), secondsBetween(from, pass.set.time));
            const double culmination = secondsBetween(from, pass.culmination.time);
            if (culmination < 0.0 || culmination > path.spanS()) continue;
            const double greatest = std::asin(path.greatestSine(site, rise, set));
            EXPECT_NEAR(pass.culmination.elevationRad, greatest, 1e-3 * radiansPerDegree);
        }
    }
}

class DenseSearch : public ::testing::TestWithParam<Orbit> {};

TEST_P(DenseSearch, TellsTheSamePasses) {
    expectSamePasses(shippedSet(GetParam().file, GetParam().name), densePlaces(), 4.0);
}

// Low perigees, gone through in minutes, seen from all over the earth.
TEST(DenseSearchOfLowPerigees, TellsTheSamePasses) {
    std::mt19937 random(41);
    std::uniform_real_distribution<double> part(-1.0, 1.0);
    std::vector<GeodeticPoint> everywhere;
    for (int i = 0; i < 60; ++i) {
        everywhere.push_back({std::asin(part(random)), pi * part(random), 1.0 + part(random)});
    }
    for (const MadeSet& orbit :
         {MadeSet{.name = "TRANSFER", .inclinationDeg = 7.0, .eccentricity = 0.73, .turnsPerDay = 2.27},
          MadeSet{.name = "LOW MOLNIYA",
          .inclinationDeg = 63.4,
          .eccentricity = 0.74,
          .perigeeDeg = 280.0,
          .turnsPerDay = 2.006},
          MadeSet{.name = "THREE HOURS", .inclinationDeg = 97.0, .eccentricity = 0.38, .turnsPerDay = 8.0},
          MadeSet{.name = "TWO HOURS", .inclinationDeg = 51.0, .eccentricity = 0.2, .turnsPerDay = 11.6},
          MadeSet{.name = "BACKWARDS", .inclinationDeg = 140.0, .eccentricity = 0.14, .turnsPerDay = 13.0},
          MadeSet{
              .name = "JUST ROUND", .inclinationDeg = 70.0, .eccentricity = 0.049, .turnsPerDay = 15.0}}) {
        expectSamePasses(madeElements(orbit), everywhere, 3.0);
    }
}

INSTANTIATE_TEST_SUITE_P(Orbits, DenseSearch, ::testing::ValuesIn(orbits),
                         [](const auto& one) { return nameOf(one.param); });

// Passes of seconds: the site is moved until the satellite barely looks over its horizon.
class GrazingPass : public ::testing::TestWithParam<Orbit> {};

TEST_P(GrazingPass, IsFoundAndNoneIsInvented) {
    const Orbit orbit = GetParam();
    const ElementSet elements = shippedSet(orbit.file, orbit.name);
    const Instant from = plusSeconds(elements.epoch, 3000.0);
    DensePath path(elements, from, 1.0);
    Satellite satellite(elements);
    const auto siteAt = [&](double latitudeDeg) {
        return GeodeticPoint{latitudeDeg * radiansPerDegree, orbit.longitudeDeg * radiansPerDegree, 0.0};
    };
    // The latitude where the last pass of the day vanishes.
    double seen = 0.0;
    double unseen = 90.0 * orbit.direction;
    const auto greatestSine = [&](const GeodeticPoint& site) {
        return path.greatestSine(site, 0.0, path.spanS());
    };
    ASSERT_GT(greatestSine(siteAt(seen)), 0.0);
    ASSERT_LT(greatestSine(siteAt(unseen)), 0.0);
    int shortPasses = 0;
    while (std::abs(unseen - seen) > 1e-10) {
        const double middle = 0.5 * (seen + unseen);
        const GeodeticPoint site = siteAt(middle);
        const double sine = greatestSine(site);
        (sine > 0.0 ? seen : unseen) = middle;
        if (std::abs(sine) < 1e-10) break;  // closer than a millimetre: either answer is right
        const std::vector<DenseCrossing> truth = path.crossings(site);
        SatelliteMover mover(satellite, from);
        const PassSearchResult found = findPasses(mover, Observer(site), from, 1.0);
        ASSERT_EQ(found.passes.size() * 2, truth.size()) << middle << " sine " << sine;
        for (std::size_t i = 0; i < found.passes.size(); ++i) {
            const Pass& pass = found.passes[i];
            const double wanted = truth[2 * i + 1].seconds - truth[2 * i].seconds;
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
                         ::testing::Values(Orbit{"science.txt", "HST", 5.0, 1},
                                           Orbit{"science.txt", "HST", 5.0, -1},
                                           Orbit{"science.txt", "SWIFT", 120.0, 1},
                                           Orbit{"stations.txt", "ISS (ZARYA)", -60.0, 1},
                                           Orbit{"stations.txt", "ISS (ZARYA)", 100.0, -1},
                                           Orbit{"classfd.txt", "Ofeq 16", 30.0, 1},
                                           Orbit{"visual.txt", "ATLAS CENTAUR 2", 0.0, 1},
                                           Orbit{"visual.txt", "ATLAS CENTAUR 2", 200.0, -1},
                                           Orbit{"stations.txt", "FREGAT DEB", 0.0, 1},
                                           Orbit{"alpha5.txt", "ELECTRON R/B", 0.0, -1}),
                         [](const auto& one) { return nameOf(one.param); });

}  // namespace
}  // namespace vantrace
