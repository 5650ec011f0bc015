// Whole looks at the sky through the engine's door: by name, with all ten results.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/bench_elements.h"

namespace vantrace {
namespace {

void trackOne(benchmark::State& state, const std::string& name) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    const double start = benchTime().julianDate();
    double seconds = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine->EngineTrack(name, start + seconds / 86400.0, 0, 0));
        seconds += 1.0;
        if (seconds > 86400.0) seconds = 0.0;
    }
}
BENCHMARK_CAPTURE(trackOne, iss, "ISS (ZARYA)")->Name("track/iss");
BENCHMARK_CAPTURE(trackOne, gps, "GPS BIIR-5  (PRN 22)")->Name("track/gps");
BENCHMARK_CAPTURE(trackOne, geo, "GOES 19")->Name("track/geo");
BENCHMARK_CAPTURE(trackOne, molniya, "MERIDIAN 7")->Name("track/molniya");
BENCHMARK_CAPTURE(trackOne, sun, "sun")->Name("track/sun");
BENCHMARK_CAPTURE(trackOne, moon, "moon")->Name("track/moon");

void trackRoundRobin(benchmark::State& state) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    const std::vector<std::string> names = shippedNames(200);
    const double start = benchTime().julianDate();
    std::size_t i = 0;
    for (auto _ : state) {
        const double time = start + static_cast<double>(i / names.size() % 86400) / 86400.0;
        benchmark::DoNotOptimize(engine->EngineTrack(names[i % names.size()], time, 0, 0));
        ++i;
    }
    state.counters["names"] = static_cast<double>(names.size());
}
BENCHMARK(trackRoundRobin)->Name("track/round_robin");

void trackWithOrbitCount(benchmark::State& state) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    const double start = benchTime().julianDate();
    double seconds = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine->EngineTrack("ISS (ZARYA)", start + seconds / 86400.0, 0, 0));
        benchmark::DoNotOptimize(engine->EngineOrbitPhase());
        benchmark::DoNotOptimize(engine->EngineStateVector());
        seconds += 1.0;
        if (seconds > 86400.0) seconds = 0.0;
    }
}
BENCHMARK(trackWithOrbitCount)->Name("track/iss_with_orbit_count");

}  // namespace
}  // namespace vantrace
