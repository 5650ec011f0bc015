// A prediction job as the window runs it, without painting: 50 satellites over 10 days, and the sort of what
// it gives.
#include <benchmark/benchmark.h>

#include "bench/bench_elements.h"
#include "bench/bench_services.h"
#include "core/program_state.h"
#include "orbit/engine_error.h"
#include "passes/job_run.h"
#include "passes/pass_prediction_form.h"
#include "passes/sort_results.h"
#include "passes/window_stand_in.h"

namespace vantrace {
namespace {

struct Job {
    Job() {
        WindowStandIn::putUp(bench.windows);
        program.OrbitEngine = shippedEngine();
        program.MainTag = "passprediction";
        form.Calendar = {22, 8, 2026};
        for (const std::string& name : shippedNames(50)) job.satellites[++job.satelliteCount] = name;
    }
    void run() {
        form.LISTpasses.clear();
        const Guard guard = [](const std::function<void()>& work) {
            try {
                work();
                return true;
            } catch (const EngineError&) {
                // One that comes down within the days.
                return false;
            }
        };
        calculateJob(job, form, program, bench.services, guard);
    }

    BenchServices bench;
    ProgramState program;
    PassPredictionForm form;
    JobToRun job;
};

void jobOfDays(benchmark::State& state) {
    Job job;
    job.job.days = static_cast<std::int16_t>(state.range(0));
    for (auto _ : state) {
        job.run();
        benchmark::DoNotOptimize(job.form);
    }
    state.counters["rows"] = static_cast<double>(job.form.LISTpasses.size());
}
BENCHMARK(jobOfDays)
    ->Name("passes/job of 50 satellites, days")
    ->Arg(1)
    ->Arg(10)
    ->Unit(benchmark::kMillisecond);

void sortOfJob(benchmark::State& state) {
    Job job;
    job.job.days = 3;
    for (auto _ : state) {
        state.PauseTiming();
        job.run();
        state.ResumeTiming();
        BUTsortChron_Click(job.form, job.program, job.bench.services);
    }
    state.counters["rows"] = static_cast<double>(job.form.LISTpasses.size());
}
BENCHMARK(sortOfJob)->Name("passes/sort")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vantrace
