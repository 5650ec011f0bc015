// What the tests of the engine's door share: an engine over a folder of its own.
#pragma once

#include "orbit/elements/element_catalogue.h"
#include "orbit/engine_error.h"
#include "orbit/orbit_engine.h"
#include "tests/orbit/element_texts.h"
#include "tests/support/fake_clock.h"
#include "tests/support/temporary_folder.h"

namespace vantrace {

class EngineTest : public ::testing::Test {
  protected:
    EngineTest() : engine(&clock) {}

    void load(const std::string& text) {
        folder.write("elements.txt", text);
        engine.EngineSetKepPath(folder.appPath());
    }
    void loadShipped() { engine.EngineSetKepPath(shippedFolder().string() + "/"); }
    void setSite(double latitudeDeg, double longitudeDeg, double heightM) {
        engine.EngineSetLatitude(latitudeDeg);
        engine.EngineSetLongitude(longitudeDeg);
        engine.EngineSetHeight(heightM);
    }
    const ElementSet& elementsOf(std::string_view name) const { return *engine.catalogue().find(name)->set; }
    double elevationDeg(std::string_view name, const Instant& time) {
        return engine.track(name, time).elevationRad / radiansPerDegree;
    }
    void expectFailure(const std::function<void()>& call, std::string_view part = {}) {
        const std::string failure = failureOf(call);
        EXPECT_NE(failure, "");
        EXPECT_NE(failure.find(part), std::string::npos) << failure;
    }
    /// What an engine call says when it fails; empty when it doesn't.
    static std::string failureOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const EngineError& error) {
            return error.what();
        }
        return {};
    }

    const Instant noon = instantFromCalendar({2026, 8, 21, 12, 0, 0.0});
    TemporaryFolder folder;
    FakeClock clock;
    OrbitEngine engine;
};

}  // namespace vantrace
