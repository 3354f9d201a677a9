#include <benchmark/benchmark.h>

#include <QProcess>

#include "bench/banco.h"

namespace {

/// Runs a program that ends by itself once its window has been painted.
void finoAllaFinestra(benchmark::State& stato, const char* programma) {
  for (auto giro : stato) {
    static_cast<void>(giro);
    QProcess processo;
    processo.setProcessChannelMode(QProcess::ForwardedChannels);
    stato.SetIterationTime(secondi([&] {
      processo.start(QString::fromUtf8(programma), QStringList());
      processo.waitForFinished();
    }));
    if (processo.exitCode() != 0) stato.SkipWithError("the program failed");
  }
}

void programma(benchmark::State& stato) {
  finoAllaFinestra(stato, GESTIONALE_AVVIO);
}
void testo(benchmark::State& stato) {
  finoAllaFinestra(stato, GESTIONALE_FINESTRA_TESTO);
}
void vuota(benchmark::State& stato) {
  finoAllaFinestra(stato, GESTIONALE_FINESTRA_VUOTA);
}

constexpr int kGiri = 21;
BENCHMARK(programma)
    ->Name("start/programma")
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(testo)
    ->Name("start/window_with_text")
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(vuota)
    ->Name("start/empty_window")
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);

}  // namespace
