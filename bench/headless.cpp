// Measures a whole practice of 15 targets on the headless machine, on the default range of each sight.
#include <benchmark/benchmark.h>

#include "flow/intro.h"
#include "gunnery/screen.h"
#include "platform/headless/headless_machine.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace {

using namespace vorn;

// Runs the program from its start to the score. Returns the virtual time in seconds.
double play(sight_kind kind)
{
    headless_machine pc;
    pc.default_directory = VORN_SOURCE_DIR "/data";
    trainer t(pc);
    gunnery_screen& s = kind == sight_kind::visual ? t.simulator : t.thermal;
    pc.event([&] { start_program(t); });
    pc.click(t.intro.lblstart);
    if (kind == sight_kind::thermal) pc.click(t.startsim.Optmode2);
    pc.click(t.startsim.Optcon2);
    t.shared.targetblocks = 5;
    pc.answers = {{true}};
    pc.click(t.startsim.Cmdstart);
    pc.click(s.Cmdstartsim);
    while (s.simrunning) pc.advance(1);
    return pc.now();
}

void practice(benchmark::State& state, sight_kind kind)
{
    double played = 0;
    for (auto _ : state) played += play(kind);
    state.counters["times_real_time"] = benchmark::Counter(played, benchmark::Counter::kIsRate);
}

BENCHMARK_CAPTURE(practice, visual, sight_kind::visual)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(practice, thermal, sight_kind::thermal)->Unit(benchmark::kMillisecond);

}   // namespace

BENCHMARK_MAIN();
