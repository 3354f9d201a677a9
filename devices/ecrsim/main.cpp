#include <csignal>
#include <cstdio>
#include <exception>
#include <span>
#include <stdexcept>

#include "ecrcom/frame.h"
#include "ecrsim/command_line.h"
#include "ecrsim/video.h"

namespace {

constexpr int kBadUsage = 2;

/// To be called before any thread starts, so that all of them leave the signals to awaitEnd().
sigset_t blockSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return signals;
}

void awaitEnd(const sigset_t& signals) {
  int which = 0;
  sigwait(&signals, &which);
}

void run(const ecrsim::Request& request) {
  const sigset_t signals = blockSignals();
  ecrsim::Options options = request.options;
  if (request.video) options.watcher = ecrsim::video(stdout);
  ecrsim::Simulator till(options);
  if (request.closeDay && !till.closeDay()) throw std::runtime_error("chiusura fiscale non riuscita");
  if (!request.serial.empty()) till.openSerial(request.serial);
  if (request.salesDay > 0) {
    const long long takings = till.salesDay(request.salesDay, request.seed);
    std::printf("ECRSIM giornata di %d scontrini, incasso %lld centesimi\n", request.salesDay, takings);
  }
  if (request.invoices > 0) {
    const int issued = till.invoices(request.invoices, request.seed);
    std::printf("ECRSIM fatture emesse: %d di %d\n", issued, request.invoices);
  }
  std::printf("ECRSIM pronto su %s:%d\n", till.address().c_str(), int{ecrcom::kPort});
  std::fflush(stdout);
  awaitEnd(signals);
}

}  // namespace

int main(int argc, char** argv) try {
  const auto request = ecrsim::readCommandLine(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
  if (request.help)
    std::fputs(ecrsim::helpText(), stdout);
  else
    run(request);
  return 0;
} catch (const std::invalid_argument& error) {
  std::fprintf(stderr, "%s\n%s", error.what(), ecrsim::helpText());
  return kBadUsage;
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
