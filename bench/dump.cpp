#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>

#include "auxcmd/dump_file.h"
#include "bench/bench_console.h"
#include "bench/comparison.h"
#include "bench/dump_till.h"
#include "bench/resident.h"

namespace {

constexpr std::size_t kBlocksOfMegabyte = 1024;
/// What a dump may take at its most beyond what the console holds before, in KiB, whatever its length.
constexpr long kPeak = 4096;

std::size_t blocks(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0)) * kBlocksOfMegabyte;
}

/// The head, the blocks, and the marker once more.
std::uintmax_t expectedSize(const benchmark::State& state) {
  const auto head =
      static_cast<std::size_t>(auxcmd::testaDump(auxcmd::Memoria::DGFE, systemClock().now()).size());
  return head + blocks(state) * DumpTill::kBlock + DumpTill::kMarker;
}

void programma(benchmark::State& state) {
  const DumpTill till("127.31.7.8", blocks(state));
  BenchConsole console;
  console.connect(QStringLiteral("127.31.7.8"));
  for (auto loop : state) {
    static_cast<void>(loop);
    std::filesystem::path file;
    resident::forgetPeak();
    const long before = resident::now();
    state.SetIterationTime(seconds([&] { file = console.dump(); }));
    const long taken = resident::peak() - before;
    state.counters["peak_KiB"] = static_cast<double>(taken);
    if (std::filesystem::file_size(file) != expectedSize(state)) state.SkipWithError("bytes are missing");
    if (taken > kPeak) state.SkipWithError("the dump stays in memory");
  }
}

void copy(benchmark::State& state) {
  const Bench bench;
  const DumpTill till("127.31.7.9", blocks(state));
  const std::filesystem::path file = bench.file("copia.txt");
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] { till.copyInto(file.string()); }));
    if (std::filesystem::file_size(file) != blocks(state) * DumpTill::kBlock)
      state.SkipWithError("bytes are missing");
  }
}

/// In MB.
const std::vector<int> kLengths{1, 10};
const std::vector<int> kLong{100};
constexpr int kRounds = 15;
constexpr int kLongRounds = 3;
const bool kRegistered[]{
    comparison::registerFunction("dump/programma", programma, kLengths, kRounds),
    comparison::registerFunction("dump/copia", copy, kLengths, kRounds),
    comparison::registerFunction("dump_long/programma", programma, kLong, kLongRounds),
    comparison::registerFunction("dump_long/copia", copy, kLong, kLongRounds),
};

}  // namespace
