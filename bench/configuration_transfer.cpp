#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bench.h"
#include "bench/comparison.h"
#include "bench/plain_socket.h"
#include "config/configuration_file.h"
#include "config/configuration_transfer.h"
#include "core/state.h"
#include "ecrlink/session.h"
#include "ecrsim/simulator.h"

// The nine files alone, without the archive beside the configuration: what that costs is measured under
// fill_plu and save_plu.

namespace {

/// A till with a whole programme, and the program connected to it.
class Connected {
 public:
  Connected(benchmark::State& state, const char* address) {
    ecrsim::Options options;
    options.address = address;
    options.folder = bench.file("cassa");
    till = std::make_unique<ecrsim::Simulator>(options);
    config::azzeraConfigurazione();
    std::ranges::fill(config::immagineProgrammazione().byte(), std::uint8_t{'p'});
    commonForKora().IP_ECR = QString::fromLatin1(address);
    commonForKora().ECR_INFO.InfoTipoBitmap = QStringLiteral("L");
    // As at the counter: who exchanges has connected before.
    if (ecrlink::avviaECR({}, ecrlink::Modo::EcrInfo, bench.contesto) != 0) state.SkipWithError("no till");
  }

  Bench bench;
  std::unique_ptr<ecrsim::Simulator> till;
};

void sending(benchmark::State& state) {
  Connected connected(state, "127.31.7.4");
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      if (!config::InviaConfigurazione(connected.bench.contesto, [](int) {}).riuscito)
        state.SkipWithError("not sent");
    }));
  }
}

void reception(benchmark::State& state) {
  Connected connected(state, "127.31.7.5");
  if (!config::InviaConfigurazione(connected.bench.contesto, [](int) {}).riuscito)
    state.SkipWithError("not sent");
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      if (config::RiceviConfigurazione(connected.bench.contesto, [](int) {}).file !=
          config::kFileConfigurazione)
        state.SkipWithError("not received");
    }));
  }
}

/// The folder taken and given back, as a lock file does it.
void lock() {
  WriteRenamed("serratura", "1", false);
  const int descriptor = open("serratura", O_RDONLY);
  fdatasync(descriptor);
  close(descriptor);
  unlink("serratura");
}

/// Three exchanges a file, the middle one with its bytes, and the file in the folders of both sides.
void connection(benchmark::State& state, const char* address, bool received) {
  const Bench bench;
  std::filesystem::create_directory(bench.file("cassa"));
  const PlainSocket other(address, bench.file("cassa"));
  for (const config::Famiglia* family : config::famiglie())
    other.send(family->file, std::string(family->totale() + 1, 'p'));
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      lock();
      for (const config::Famiglia* family : config::famiglie()) {
        const std::string bytes(family->totale() + 1, 'p');
        if (!received) WriteRenamed(family->file, bytes, false);
        other.command();
        if (received)
          WriteRenamed(family->file, other.receive(family->file), true);
        else
          other.send(family->file, bytes);
        other.command();
      }
    }));
  }
}
void connectionForSending(benchmark::State& state) {
  connection(state, "127.31.7.6", false);
}
void connectionForReception(benchmark::State& state) {
  connection(state, "127.31.7.7", true);
}

const std::vector<int> kRows{5000};
constexpr int kRounds = 41;
const bool kRegistered[]{
    comparison::registerFunction("configuration_send/programma", sending, kRows, kRounds),
    comparison::registerFunction("configuration_send/socket", connectionForSending, kRows, kRounds),
    comparison::registerFunction("configuration_reception/programma", reception, kRows, kRounds),
    comparison::registerFunction("configuration_reception/socket", connectionForReception, kRows, kRounds),
};

}  // namespace
