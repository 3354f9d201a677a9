#include <benchmark/benchmark.h>

#include <fstream>

#include "bench/banco.h"
#include "bench/presa_semplice.h"
#include "core/stato.h"
#include "ecrlink/session.h"
#include "ecrsim/simulatore.h"

namespace {

constexpr std::size_t kByte = 240000;

void programma(benchmark::State& stato) {
  Banco banco;
  std::filesystem::create_directory(banco.file("cassa"));
  ecrsim::Opzioni opzioni;
  opzioni.indirizzo = "127.31.7.2";
  opzioni.cartella = banco.file("cassa");
  const ecrsim::Simulatore cassa(opzioni);
  commonForKora().IP_ECR = QStringLiteral("127.31.7.2");
  std::ofstream("plu.bin", std::ios::binary) << std::string(kByte, 'p');
  QString file = QStringLiteral("plu.bin");
  for (auto giro : stato) {
    static_cast<void>(giro);
    stato.SetIterationTime(secondi([&] {
      if (ecrlink::avviaECR(file, ecrlink::Modo::Invia, banco.contesto) != 0) stato.SkipWithError("not sent");
    }));
  }
}

void presa(benchmark::State& stato) {
  const PresaSemplice altra("127.31.7.3");
  const std::string corto(48, 'c');
  const std::string archivio(kByte, 'p');
  for (auto giro : stato) {
    static_cast<void>(giro);
    stato.SetIterationTime(secondi([&] {
      altra.scambia(corto);
      altra.scambia(archivio);
      altra.scambia(corto);
    }));
  }
}

constexpr int kGiri = 41;
BENCHMARK(programma)
    ->Name("send/programma")
    ->Arg(5000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(presa)
    ->Name("send/socket")
    ->Arg(5000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kGiri)
    ->Unit(benchmark::kMillisecond);

}  // namespace
