// One tick of the live table, without painting: every favourite tracked and put into words.
#include <benchmark/benchmark.h>

#include <memory>

#include "bench/bench_elements.h"
#include "bench/bench_services.h"
#include "core/program_state.h"
#include "core/shell/tabular.h"

namespace vantrace {
namespace {

void tableTick(benchmark::State& state) {
    BenchServices bench;
    ProgramState program;
    program.OrbitEngine = shippedEngine();
    program.MainTag = "tabular";
    const auto count = static_cast<std::size_t>(state.range(0));
    for (const std::string& name : shippedNames(count))
        program.Favourites[++program.FavouriteCount].Name = name;
    TabularForm table;
    Form_Load(table, program, bench.services);
    for (auto _ : state) {
        MainLoop(table, program, bench.services);
        benchmark::DoNotOptimize(table);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(tableTick)->Name("table/tick")->Arg(10)->Arg(500)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vantrace
