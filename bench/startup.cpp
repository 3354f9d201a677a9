#include <benchmark/benchmark.h>

#include <QProcess>

#include "bench/bench.h"

namespace {

/// Runs a program that ends by itself once its window has been painted.
void untilWindow(benchmark::State& state, const char* program) {
  for (auto loop : state) {
    static_cast<void>(loop);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    state.SetIterationTime(seconds([&] {
      process.start(QString::fromUtf8(program), QStringList());
      process.waitForFinished();
    }));
    if (process.exitCode() != 0) state.SkipWithError("the program failed");
  }
}

void program(benchmark::State& state) {
  untilWindow(state, GESTIONALE_STARTUP);
}
void text(benchmark::State& state) {
  untilWindow(state, GESTIONALE_WINDOW_TEXT);
}

constexpr int kRounds = 21;
BENCHMARK(program)
    ->Name("start/programma")
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(text)
    ->Name("start/window_with_text")
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);

}  // namespace
