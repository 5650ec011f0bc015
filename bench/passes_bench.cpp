// Two days of passes of one satellite, and the text form that the program asks for.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/bench_elements.h"

namespace vantrace {
namespace {

void passes(benchmark::State& state, const std::string& name) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
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
BENCHMARK_CAPTURE(passes, iss, "ISS (ZARYA)")->Name("passes_two_days/iss")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(passes, hst, "HST")->Name("passes_two_days/hst")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(passes, polar, "NOAA 20 (JPSS-1)")
    ->Name("passes_two_days/polar")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(passes, geo, "GOES 19")->Name("passes_two_days/geo")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(passes, molniya, "MERIDIAN 7")
    ->Name("passes_two_days/molniya")
    ->Unit(benchmark::kMicrosecond);

void passList(benchmark::State& state) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    const double start = dayNumber(benchTime());
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine->EnginePassList("ISS (ZARYA)", start, 1, 3, 0, 0));
    }
}
BENCHMARK(passList)->Name("pass_list_three_days/iss")->Unit(benchmark::kMicrosecond);

void nextRise(benchmark::State& state) {
    const std::unique_ptr<OrbitEngine> engine = shippedEngine();
    const double start = dayNumber(benchTime());
    double hours = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine->EngineNextAOS("ISS (ZARYA)", start + hours / 24.0));
        hours = hours < 24.0 ? hours + 0.7 : 0.0;
    }
}
BENCHMARK(nextRise)->Name("next_rise/iss")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vantrace
