#include <benchmark/benchmark.h>

#include <QDir>

#include "auxcmd/dump_file.h"
#include "bench/bench_console.h"
#include "bench/comparison.h"
#include "bench/fed_line.h"

namespace {

/// How long a character may take from the line into the file, in seconds.
constexpr double kBehind = 0.25;

int speed(const benchmark::State& state) {
  return static_cast<int>(state.range(0));
}

/// Of the wall from the command to the marker, and on the processor from the first character on.
struct Taken {
  double wall = 0;
  double processor = 0;
};

Taken byTheProgram(benchmark::State& state) {
  BenchConsole console;
  FedLine line(speed(state), console.bench.contesto.cartella.toStdString());
  console.plug(QString::fromStdString(line.device()), speed(state));
  std::filesystem::path file;
  Taken taken;
  taken.wall = seconds([&] { file = console.dump(); });
  taken.processor = line.processor();
  const auto head =
      static_cast<std::uintmax_t>(auxcmd::testaDump(auxcmd::Memoria::DGFE, systemClock().now()).size());
  if (std::filesystem::file_size(file) != head + static_cast<std::uintmax_t>(line.length()))
    state.SkipWithError("characters are missing");
  state.counters["behind_ms"] = line.behind() * 1000;
  if (line.behind() < 0 || line.behind() > kBehind) state.SkipWithError("behind the line");
  return taken;
}

void pace(benchmark::State& state) {
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(byTheProgram(state).wall);
  }
}

void processor(benchmark::State& state) {
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(byTheProgram(state).processor);
  }
}

void plainLine(benchmark::State& state) {
  const Bench bench;
  for (auto loop : state) {
    static_cast<void>(loop);
    FedLine line(speed(state), QDir::currentPath().toStdString());
    state.SetIterationTime(seconds([&] { line.copyInto(bench.file("DGFE_linea.txt")); }));
    state.counters["behind_ms"] = line.behind() * 1000;
  }
}

/// All that the console offers.
const std::vector<int> kSpeeds{1200, 2400, 4800, 9600, 19200};
constexpr int kRounds = 3;
const bool kRegistered[]{
    comparison::registerFunction("serial_pace/programma", pace, kSpeeds, kRounds),
    comparison::registerFunction("serial_pace/linea", plainLine, kSpeeds, kRounds),
    comparison::registerFunction("serial_cpu/programma", processor, kSpeeds, kRounds),
    comparison::registerFunction("serial_cpu/linea", plainLine, kSpeeds, kRounds),
};

}  // namespace
