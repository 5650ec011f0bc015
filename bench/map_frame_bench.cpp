// A whole frame of the map on a screen of 1920 by 1080, and each of its costly layers apart. The map is a
// picture of 2048 by 1024 or 4096 by 2048; the mask that is blended is that of the day of the benchmarks.
#include <benchmark/benchmark.h>

#include "bench/bench_elements.h"
#include "bench/bench_services.h"
#include "bench/bench_surfaces.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "mapview/map_state.h"
#include "mapview/paint/map_layers.h"
#include "mapview/paint/map_surfaces.h"
#include "mapview/paint/repaint_map_screen.h"
#include "mapview/paint/shade_painter.h"
#include "mapview/tables/ground_track.h"
#include "mapview/tables/gsatroutine.h"
#include "mapview/tables/sun_moon.h"
#include "mapview/world_view_form.h"

namespace vantrace {
namespace {

/// The map with so many favourites, its tables filled.
struct BenchFrame : BenchServices {
    explicit BenchFrame(int favourites, int mapWidth = 2048) {
        program.OrbitEngine = shippedEngine();
        program.MainTag = "worldnormal";
        program.ObserverName = "Utrecht";
        program.ObserverLatitude = 52;
        program.ObserverLongitude = 355;
        for (const std::string& name : shippedNames(static_cast<std::size_t>(favourites))) {
            program.Favourites[++program.FavouriteCount].Name = name.substr(0, 15);
        }
        program.PrimarySatIndex = 1;
        program.PrimarySatName = program.Favourites[1].Name;
        surfaces.Final.resize(screenWidth, screenHeight);
        surfaces.WorldNormal = noise(mapWidth, mapWidth / 2);
        loadSprites(surfaces, services, 1);
        for (Surface& picture : surfaces.SatPic) picture = noise(32, 32);
        for (Surface& mask : surfaces.SatMask) mask = noise(32, 32);
        CalcSunMoon(form, map, program, services);
        CalcGroundTrack(form, map, program, services);
        Gsatroutine(form, map, program, services);
    }

    MapFrame frame() { return {surfaces, form, map, program, services, label}; }

    ProgramState program;
    WorldViewForm form;
    MapState map;
    MapSurfaces surfaces;
    ErrorLabel label{services, labels::mapviewRepaintMapScreen};
};

template <class Paint>
void measure(benchmark::State& state, BenchFrame& bench, Paint paint) {
    for (auto _ : state) {
        paint();
        benchmark::DoNotOptimize(bench.surfaces.Final.words().data());
        benchmark::ClobberMemory();
    }
}

/// The arguments of a benchmark: favourites, and pixels of the map's width.
BenchFrame benchFrame(const benchmark::State& state) {
    return BenchFrame(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}

void wholeFrame(benchmark::State& state) {
    BenchFrame bench = benchFrame(state);
    measure(state, bench,
            [&] { RepaintMapScreen(bench.surfaces, bench.form, bench.map, bench.program, bench.services); });
}
BENCHMARK(wholeFrame)
    ->Name("map_frame/painted")
    ->ArgNames({"favourites", "map"})
    ->Args({10, 2048})
    ->Args({500, 2048})
    ->Args({10, 4096})
    ->Args({500, 4096})
    ->Unit(benchmark::kMillisecond);

void wholeTick(benchmark::State& state) {
    BenchFrame bench = benchFrame(state);
    measure(state, bench, [&] {
        Gsatroutine(bench.form, bench.map, bench.program, bench.services);
        RepaintMapScreen(bench.surfaces, bench.form, bench.map, bench.program, bench.services);
    });
}
BENCHMARK(wholeTick)
    ->Name("map_frame/tick")
    ->ArgNames({"favourites", "map"})
    ->Args({10, 2048})
    ->Args({500, 2048})
    ->Unit(benchmark::kMillisecond);

/// One layer over 500 favourites.
void layer(benchmark::State& state, void (*paint)(const MapFrame&), int mapWidth) {
    BenchFrame bench(500, mapWidth);
    const MapFrame frame = bench.frame();
    measure(state, bench, [&] { paint(frame); });
}
BENCHMARK_CAPTURE(layer, stretch2048, paintBackground, 2048)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(layer, stretch4096, paintBackground, 4096)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(layer, track, paintGroundTrack, 2048)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(layer, footprint, paintFootprint, 2048)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(layer, satellites500, paintSatellites, 2048)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(layer, locations, paintLocations, 2048)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(layer, status_line, paintStatusLine, 2048)->Unit(benchmark::kMicrosecond);

void shadeDrawn(benchmark::State& state) {
    BenchFrame bench(1);
    measure(state, bench, [&] { drawShade(bench.surfaces.Alpha, bench.map, bench.program.MainTag); });
}
BENCHMARK(shadeDrawn)->Name("layer/shade_drawn")->Unit(benchmark::kMicrosecond);

void shadeBlended(benchmark::State& state) {
    BenchFrame bench(1);
    drawShade(bench.surfaces.Alpha, bench.map, bench.program.MainTag);
    measure(state, bench, [&] { blendShade(bench.surfaces.Final, bench.surfaces.Alpha); });
}
BENCHMARK(shadeBlended)->Name("layer/shade_blended")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vantrace
