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

/// A file written plainly under another name and renamed, forced to the disk or not.
void file(const std::string& name, const std::string& bytes, bool forced) {
  const std::string passing = name + ".nuovo";
  const int descriptor = open(passing.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  if (write(descriptor, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
    throw std::runtime_error("not written");
  if (forced) fsync(descriptor);
  close(descriptor);
  if (rename(passing.c_str(), name.c_str()) != 0) throw std::runtime_error("not renamed");
  if (!forced) return;
  const int folder = open(".", O_RDONLY | O_DIRECTORY);
  fsync(folder);
  close(folder);
}

/// The folder taken and given back, as a lock file does it.
void lock() {
  file("serratura", "1", false);
  const int descriptor = open("serratura", O_RDONLY);
  fdatasync(descriptor);
  close(descriptor);
  unlink("serratura");
}

/// Three exchanges a file, the middle one with its bytes, and the file in the folder. The barest exchange has
/// one direction: the other way the same bytes go the same road.
void connection(benchmark::State& state, const char* address, bool received) {
  const Bench folder;
  const PlainSocket other(address);
  const std::string small(48, 'c');
  other.exchange(small);
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      lock();
      for (const config::Famiglia* family : config::famiglie()) {
        const std::string bytes(family->totale() + 1, 'p');
        if (!received) file(family->file, bytes, false);
        other.exchange(small);
        other.exchange(bytes);
        if (received) file(family->file, bytes, true);
        other.exchange(small);
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
