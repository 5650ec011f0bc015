// What the map works out, without painting: one tick over all favourites, the ground track, sun and moon.
#include <benchmark/benchmark.h>

#include <memory>

#include "bench/bench_elements.h"
#include "bench/bench_services.h"
#include "core/program_state.h"
#include "mapview/map_state.h"
#include "mapview/paint/shade.h"
#include "mapview/tables/ground_track.h"
#include "mapview/tables/gsatroutine.h"
#include "mapview/tables/sun_moon.h"
#include "mapview/world_view_form.h"

namespace vantrace {
namespace {

/// The map with so many favourites.
struct BenchMap : BenchServices {
    explicit BenchMap(std::size_t favourites) {
        program.OrbitEngine = shippedEngine();
        program.MainTag = "worldnormal";
        for (const std::string& name : shippedNames(favourites)) {
            program.Favourites[++program.FavouriteCount].Name = name;
        }
        program.PrimarySatIndex = 1;
        program.PrimarySatName = program.Favourites[1].Name;
    }

    ProgramState program;
    WorldViewForm form;
    MapState map;
};

void mapTick(benchmark::State& state) {
    BenchMap bench(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        Gsatroutine(bench.form, bench.map, bench.program, bench.services);
        benchmark::DoNotOptimize(bench.map);
    }
    state.SetItemsProcessed(state.iterations() * bench.program.FavouriteCount);
}
BENCHMARK(mapTick)->Name("map/gsatroutine")->Arg(10)->Arg(500)->Unit(benchmark::kMicrosecond);

void groundTrack(benchmark::State& state) {
    BenchMap bench(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        CalcGroundTrack(bench.form, bench.map, bench.program, bench.services);
        benchmark::DoNotOptimize(bench.map);
    }
}
BENCHMARK(groundTrack)->Name("map/ground_track")->Arg(10)->Arg(500)->Unit(benchmark::kMicrosecond);

void sunMoon(benchmark::State& state) {
    BenchMap bench(1);
    for (auto _ : state) {
        CalcSunMoon(bench.form, bench.map, bench.program, bench.services);
        benchmark::DoNotOptimize(shadeOutline(bench.map, bench.program.MainTag));
    }
}
BENCHMARK(sunMoon)->Name("map/sun_moon_and_outline")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vantrace
