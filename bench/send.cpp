#include <benchmark/benchmark.h>

#include <fstream>

#include "bench/bench.h"
#include "bench/plain_socket.h"
#include "core/state.h"
#include "ecrlink/session.h"
#include "ecrsim/simulator.h"

namespace {

constexpr std::size_t kByte = 240000;

void program(benchmark::State& state) {
  Bench bench;
  std::filesystem::create_directory(bench.file("cassa"));
  ecrsim::Options options;
  options.address = "127.31.7.2";
  options.folder = bench.file("cassa");
  const ecrsim::Simulator till(options);
  commonForKora().IP_ECR = QStringLiteral("127.31.7.2");
  std::ofstream("plu.bin", std::ios::binary) << std::string(kByte, 'p');
  QString file = QStringLiteral("plu.bin");
  // As at the counter: who sends has connected before.
  if (ecrlink::avviaECR(file, ecrlink::Modo::EcrInfo, bench.contesto) != 0) state.SkipWithError("no till");
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      if (ecrlink::avviaECR(file, ecrlink::Modo::Invia, bench.contesto) != 0) state.SkipWithError("not sent");
    }));
  }
}

void connection(benchmark::State& state) {
  const Bench bench;
  const PlainSocket other("127.31.7.3", bench.file("."));
  const std::string archive(kByte, 'p');
  other.command();
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      other.command();
      other.send("cassa.bin", archive);
      other.command();
    }));
  }
}

constexpr int kRounds = 41;
BENCHMARK(program)
    ->Name("send/programma")
    ->Arg(5000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(connection)
    ->Name("send/socket")
    ->Arg(5000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);

}  // namespace
