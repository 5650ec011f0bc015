// Sines, cosines and arc tangents: the C library's as the yardstick of this machine, then the engine's own.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>

#include "orbit/arc_tangent.h"
#include "orbit/sin_cos.h"

namespace vantrace {
namespace {

constexpr std::size_t angleCount = 256;

/// Angles of several hundred turns, as propagation meets them.
std::array<double, angleCount> angles() {
    std::array<double, angleCount> result{};
    for (std::size_t i = 0; i < angleCount; ++i)
        result[i] = std::fmod(static_cast<double>(i) * 97.31, 3000.0);
    return result;
}

void libraryScalars(benchmark::State& state) {
    const auto inputs = angles();
    std::size_t i = 0;
    for (auto _ : state) {
        const double x = inputs[i++ % angleCount];
        benchmark::DoNotOptimize(std::sin(x));
        benchmark::DoNotOptimize(std::cos(x));
    }
}
BENCHMARK(libraryScalars)->Name("math/library_sin_and_cos");

void engineSinCos(benchmark::State& state) {
    const auto inputs = angles();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(sinCos(inputs[i++ % angleCount]));
    }
}
BENCHMARK(engineSinCos)->Name("math/engine_sin_cos");

void engineSinCosPair(benchmark::State& state) {
    const auto inputs = angles();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(sinCos(inputs[i % angleCount], inputs[(i + 1) % angleCount]));
        ++i;
    }
}
BENCHMARK(engineSinCosPair)->Name("math/engine_sin_cos_pair");

void libraryArcTangents(benchmark::State& state) {
    const auto inputs = angles();
    std::size_t i = 0;
    for (auto _ : state) {
        const double y = inputs[i % angleCount] - 1500.0;
        const double x = inputs[(i + 7) % angleCount] - 1500.0;
        benchmark::DoNotOptimize(std::atan2(y, x));
        benchmark::DoNotOptimize(std::atan2(x, y));
        ++i;
    }
}
BENCHMARK(libraryArcTangents)->Name("math/library_two_arc_tangents");

void engineArcTangents(benchmark::State& state) {
    const auto inputs = angles();
    std::size_t i = 0;
    for (auto _ : state) {
        const double y = inputs[i % angleCount] - 1500.0;
        const double x = inputs[(i + 7) % angleCount] - 1500.0;
        benchmark::DoNotOptimize(arcTangents(y, x, x, y));
        ++i;
    }
}
BENCHMARK(engineArcTangents)->Name("math/engine_arc_tangent_pair");

}  // namespace
}  // namespace vantrace
