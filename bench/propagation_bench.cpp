// One position and velocity of one satellite, at ever other times.
#include <benchmark/benchmark.h>

#include <cmath>

#include "bench/bench_elements.h"
#include "orbit/sgp4/propagator.h"

namespace vantrace {
namespace {

void propagation(benchmark::State& state, const char* name) {
    Propagator propagator(shippedSet(name));
    Propagated result;
    double minutes = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(propagator.propagate(minutes, result));
        benchmark::DoNotOptimize(result);
        minutes += 1.37;
        if (minutes > 4320.0) minutes = 0.0;
    }
}
BENCHMARK_CAPTURE(propagation, near_earth_iss, "ISS (ZARYA)");
BENCHMARK_CAPTURE(propagation, near_earth_hst, "HST");
BENCHMARK_CAPTURE(propagation, deep_space_gps, "GPS BIIR-5  (PRN 22)");
BENCHMARK_CAPTURE(propagation, deep_space_geo, "GOES 19");
BENCHMARK_CAPTURE(propagation, deep_space_molniya, "MERIDIAN 7");

void initialisation(benchmark::State& state, const char* name) {
    const ElementSet elements = shippedSet(name);
    for (auto _ : state) {
        Propagator propagator(elements);
        benchmark::DoNotOptimize(propagator);
    }
}
BENCHMARK_CAPTURE(initialisation, near_earth_iss, "ISS (ZARYA)");
BENCHMARK_CAPTURE(initialisation, deep_space_molniya, "MERIDIAN 7");

}  // namespace
}  // namespace vantrace
