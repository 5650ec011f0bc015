// Painting on a surface of 1920 by 1080. Each time is told along with its ratio to a plain copy of the same
// pixels, measured in the same run: that survives a change of machine.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <vector>

#include "bench/bench_surfaces.h"
#include "platform/surface.h"

namespace vantrace {
namespace {

/// The day side of a map, as the shade has it: white within a slanting curve, black elsewhere.
Surface mask() {
    Surface mask(566, 370);
    mask.setPenColour(0xFFFFFF);
    mask.setPenWidth(2);
    mask.movePen(-10, 40);
    for (int x = 0; x <= 566; x += 4) mask.lineTo(x, 40 + x / 2.0);
    mask.lineTo(10000, 40);
    mask.floodFill(20, 360, 0xFFFFFF);
    return mask;
}

double secondsOfCopy(const Surface& surface) {
    using Clock = std::chrono::steady_clock;
    std::vector<std::uint32_t> copy(surface.words().size());
    constexpr int rounds = 20;
    const auto start = Clock::now();
    for (int round = 0; round < rounds; ++round) {
        std::memcpy(copy.data(), surface.words().data(), surface.words().size_bytes());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
    return std::chrono::duration<double>(Clock::now() - start).count() / rounds;
}

/// Times `paint` on a screen, and adds how many copies of the screen it is worth.
template <class Paint>
void measure(benchmark::State& state, Paint paint) {
    Surface screen = noise(screenWidth, screenHeight);
    const double copySeconds = secondsOfCopy(screen);
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (auto _ : state) {
        paint(screen);
        benchmark::DoNotOptimize(screen.words().data());
        benchmark::ClobberMemory();
    }
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    state.counters["copies"] = seconds / static_cast<double>(state.iterations()) / copySeconds;
}

const Area screenArea(0, 0, screenWidth, screenHeight);

void stretchMap(benchmark::State& state, const Area& part) {
    const Surface map = noise(2048, 1024);
    measure(state, [&](Surface& screen) { screen.stretch(screenArea, map, part); });
}
BENCHMARK_CAPTURE(stretchMap, world, Area(0, 0, 2048, 1024))
    ->Name("surface/stretch/world")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(stretchMap, region, Area(512, 0, 1024, 512))
    ->Name("surface/stretch/region")
    ->Unit(benchmark::kMicrosecond);

void blendMask(benchmark::State& state, Sampling sampling) {
    const Surface day = mask();
    measure(state,
            [&](Surface& screen) { screen.blend(screenArea, day, Area(0, 0, 566, 370), 40, sampling); });
}
BENCHMARK_CAPTURE(blendMask, linear, Sampling::linear)
    ->Name("surface/blend/linear")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(blendMask, nearest, Sampling::nearest)
    ->Name("surface/blend/nearest")
    ->Unit(benchmark::kMicrosecond);

void drawMask(benchmark::State& state) {
    measure(state, [](Surface&) { benchmark::DoNotOptimize(mask().words().data()); });
}
BENCHMARK(drawMask)->Name("surface/mask")->Unit(benchmark::kMicrosecond);

/// The sprites of 500 satellites, all over the screen and beyond it.
void sprites(benchmark::State& state) {
    const Surface sprite = noise(32, 32);
    measure(state, [&](Surface& screen) {
        for (int i = 0; i < 500; ++i) {
            const int x = i * 577 % (screenWidth + 64) - 32;
            const int y = i * 331 % (screenHeight + 64) - 32;
            screen.blit(x, y, 32, 32, sprite, 0, 0, RasterOperation::bitAnd);
            screen.blit(x, y, 32, 32, sprite, 0, 0, RasterOperation::bitOr);
        }
    });
}
BENCHMARK(sprites)->Name("surface/sprites/500")->Unit(benchmark::kMicrosecond);

/// Dots of a track, and lines whose ends are a long way off.
void pen(benchmark::State& state) {
    measure(state, [](Surface& screen) {
        screen.setPenWidth(2);
        for (int i = 0; i < 600; ++i) screen.plot(i * 3.1, 540 + i % 50);
        for (int i = 0; i < 10; ++i) {
            screen.movePen(-1e9, 1e9 + i * 100);
            screen.lineTo(1e9, -1e9);
        }
    });
}
BENCHMARK(pen)->Name("surface/pen")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vantrace
