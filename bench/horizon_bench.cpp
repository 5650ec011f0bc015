// A frame of the panorama on a screen of 1920 by 1080, over a landscape of the shipped one's size.
#include <benchmark/benchmark.h>

#include "bench/bench_elements.h"
#include "bench/bench_services.h"
#include "bench/bench_surfaces.h"
#include "core/program_state.h"
#include "horizon/horizon_form.h"
#include "horizon/horizon_surfaces.h"
#include "horizon/paint_screen.h"

namespace vantrace {
namespace {

void panorama(benchmark::State& state) {
    BenchServices bench;
    ProgramState program;
    program.OrbitEngine = shippedEngine();
    program.MainTag = "horizon";
    program.ObserverLatitude = 52;
    program.ObserverLongitude = 355;
    for (const std::string& name : shippedNames(static_cast<std::size_t>(state.range(0)))) {
        program.Favourites[++program.FavouriteCount].Name = name.substr(0, 15);
    }
    HorizonForm form;
    HorizonSurfaces surfaces;
    surfaces.BackDrop = noise(2880, 1800);
    surfaces.Final.resize(screenWidth, screenHeight);
    for (Surface& picture : surfaces.SatPic) picture = noise(32, 32);
    for (Surface& mask : surfaces.SatMask) mask = noise(32, 32);
    for (auto _ : state) {
        PaintScreen(surfaces, form, program, bench.services);
        benchmark::DoNotOptimize(surfaces.Final.words().data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(panorama)
    ->Name("horizon/painted")
    ->ArgName("favourites")
    ->Arg(10)
    ->Arg(500)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vantrace
