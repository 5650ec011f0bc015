// A folder of 15,000 element sets: read for the first time, looked over again, and its list of names.
#include <benchmark/benchmark.h>

#include <memory>

#include "bench/bench_elements.h"

namespace vantrace {
namespace {

constexpr std::size_t setCount = 15000;

void readCold(benchmark::State& state) {
    const ElementFolder folder(setCount);
    std::int32_t count = 0;
    for (auto _ : state) {
        auto engine = std::make_unique<OrbitEngine>();
        engine->EngineSetKepPath(folder.path());
        count = engine->EngineSatelliteCount();
        state.PauseTiming();
        engine.reset();
        state.ResumeTiming();
    }
    state.counters["sets"] = count;
}
BENCHMARK(readCold)->Name("set_kep_path/cold")->Unit(benchmark::kMillisecond);

void readUnchanged(benchmark::State& state) {
    const ElementFolder folder(setCount);
    OrbitEngine engine;
    engine.EngineSetKepPath(folder.path());
    for (auto _ : state) {
        engine.EngineSetKepPath(folder.path());
    }
    state.counters["sets"] = engine.EngineSatelliteCount();
}
BENCHMARK(readUnchanged)->Name("set_kep_path/unchanged")->Unit(benchmark::kMillisecond);

void satelliteList(benchmark::State& state) {
    const ElementFolder folder(setCount);
    OrbitEngine engine;
    engine.EngineSetKepPath(folder.path());
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine.EngineSatelliteList().find("NO SUCH SATELLITE"));
    }
}
BENCHMARK(satelliteList)->Name("satellite_list/search_all")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vantrace
