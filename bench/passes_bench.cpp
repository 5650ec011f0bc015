// Two days of passes of one satellite, and the text form that the program asks for.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/bench_elements.h"

namespace vantrace {
namespace {

void passes(benchmark::State& state, const std::string& name, double latitudeDeg = 52.0) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    engine->EngineSetLatitude(latitudeDeg);
    std::size_t found = 0;
    double hours = 0.0;
    for (auto _ : state) {
        const PassSearchResult result = engine->passes(name, plusSeconds(benchTime(), hours * 3600.0), 2.0);
        benchmark::DoNotOptimize(result.passes.data());
        found = result.passes.size();
        hours = hours < 24.0 ? hours + 1.7 : 0.0;
    }
    state.counters["passes"] = static_cast<double>(found);
}
constexpr auto microseconds = benchmark::kMicrosecond;
BENCHMARK_CAPTURE(passes, iss, "ISS (ZARYA)")->Name("passes_two_days/iss")->Unit(microseconds);
BENCHMARK_CAPTURE(passes, hst, "HST", 30.0)->Name("passes_two_days/hst_from_30_north")->Unit(microseconds);
BENCHMARK_CAPTURE(passes, below, "HST")->Name("passes_two_days/hst_never_up")->Unit(microseconds);
BENCHMARK_CAPTURE(passes, polar, "NOAA 20 (JPSS-1)")->Name("passes_two_days/polar")->Unit(microseconds);
BENCHMARK_CAPTURE(passes, geo, "METEOSAT-12 (MTG-I1)")
    ->Name("passes_two_days/geo_always_up")
    ->Unit(microseconds);
BENCHMARK_CAPTURE(passes, far, "GOES 19")->Name("passes_two_days/geo_never_up")->Unit(microseconds);
BENCHMARK_CAPTURE(passes, molniya, "MERIDIAN 7")->Name("passes_two_days/molniya")->Unit(microseconds);

void passList(benchmark::State& state) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    const double start = dayNumber(benchTime());
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine->EnginePassList("ISS (ZARYA)", start, 1, 3, 0, 0));
    }
}
BENCHMARK(passList)->Name("pass_list_three_days/iss")->Unit(microseconds);

void nextRise(benchmark::State& state) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    const double start = dayNumber(benchTime());
    double hours = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine->EngineNextAOS("ISS (ZARYA)", start + hours / 24.0));
        hours = hours < 24.0 ? hours + 0.7 : 0.0;
    }
}
BENCHMARK(nextRise)->Name("next_rise/iss")->Unit(microseconds);

}  // namespace
}  // namespace vantrace
