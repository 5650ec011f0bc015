// One tick of the live table, without painting: every favourite tracked and put into words.
#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>

#include "bench/bench_elements.h"
#include "core/config.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/shell/tabular.h"
#include "platform/file_settings_store.h"
#include "platform/system_clock.h"

namespace vantrace {
namespace {

/// The machine's own clock and a settings store that holds what it is told.
struct BenchServices {
    SystemClock clock;
    IdleEventQueue events;
    FileSettingsStore settings{"/dev/null/none"};
    SilentSpeech speech;
    std::ostringstream told;
    StreamDialogs dialogs{told};
    NoDesktop desktop;
    FixedDisplayMode displayMode;
    SystemProcess process{"", {}};
    ErrorLog errorLog{clock, {}};
    WindowRegistry windows;
    Services services{clock,       events,  settings, speech,  dialogs, desktop,
                      displayMode, process, errorLog, windows, {}};
};

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
