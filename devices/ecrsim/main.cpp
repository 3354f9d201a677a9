#include <csignal>
#include <cstdio>
#include <exception>
#include <memory>
#include <span>
#include <stdexcept>

#include "ecrcom/trama.h"
#include "ecrsim/riga_comando.h"
#include "ecrsim/seriale.h"

namespace {

constexpr int kUsoErrato = 2;

/// To be called before any thread starts, so that all of them leave the signals to aspettaFine().
sigset_t bloccaSegnali() {
  sigset_t segnali;
  sigemptyset(&segnali);
  sigaddset(&segnali, SIGINT);
  sigaddset(&segnali, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &segnali, nullptr);
  return segnali;
}

void aspettaFine(const sigset_t& segnali) {
  int quale = 0;
  sigwait(&segnali, &quale);
}

void esegui(const ecrsim::Richiesta& richiesta) {
  const sigset_t segnali = bloccaSegnali();
  ecrsim::Simulatore cassa(richiesta.opzioni);
  std::unique_ptr<ecrsim::Seriale> linea;
  if (!richiesta.seriale.empty())
    linea = std::make_unique<ecrsim::Seriale>(
        richiesta.seriale, [&](const std::string& sequenza) { return cassa.premi(sequenza); });
  if (richiesta.giornata > 0) {
    const long long incasso = cassa.giornata(richiesta.giornata, richiesta.seme);
    std::printf("ECRSIM giornata di %d scontrini, incasso %lld centesimi\n", richiesta.giornata, incasso);
  }
  std::printf("ECRSIM pronto su %s:%d\n", cassa.indirizzo().c_str(), int{ecrcom::kPorta});
  std::fflush(stdout);
  aspettaFine(segnali);
}

}  // namespace

int main(int argc, char** argv) try {
  const auto richiesta = ecrsim::leggiRigaComando(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
  if (richiesta.aiuto)
    std::fputs(ecrsim::testoAiuto(), stdout);
  else
    esegui(richiesta);
  return 0;
} catch (const std::invalid_argument& errore) {
  std::fprintf(stderr, "%s\n%s", errore.what(), ecrsim::testoAiuto());
  return kUsoErrato;
} catch (const std::exception& errore) {
  std::fprintf(stderr, "%s\n", errore.what());
  return 1;
}
