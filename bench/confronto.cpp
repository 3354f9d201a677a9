#include "bench/confronto.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace confronto {

namespace {

/// Medians by name, in seconds.
class Raccolta : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& corse) override {
    for (const Run& corsa : corse) {
      if (corsa.error_occurred) ++falliti;
      if (corsa.run_type == Run::RT_Iteration && !corsa.error_occurred)
        tempi_[corsa.run_name.function_name + "/" + corsa.run_name.args].push_back(
            corsa.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(corsa.time_unit));
    }
    ConsoleReporter::ReportRuns(corse);
  }

  std::map<std::string, double> mediane() {
    std::map<std::string, double> risultato;
    for (auto& [nome, tempi] : tempi_) {
      std::sort(tempi.begin(), tempi.end());
      risultato[nome] = tempi[tempi.size() / 2];
    }
    return risultato;
  }

  int falliti = 0;

 private:
  std::map<std::string, std::vector<double>> tempi_;
};

/// "work/variant/rows" in its three pieces.
struct Nome {
  std::string lavoro, variante, righe;
};

Nome pezzi(const std::string& nome) {
  const std::size_t primo = nome.find('/');
  const std::size_t secondo = nome.find('/', primo + 1);
  return {nome.substr(0, primo), nome.substr(primo + 1, secondo - primo - 1),
          secondo == std::string::npos ? "" : nome.substr(secondo + 1)};
}

double multiplo(const std::map<std::string, double>& mediane, const std::string& base,
                const std::string& nostro) {
  const auto sotto = mediane.find(base);
  return sotto == mediane.end() || sotto->second <= 0 ? -1 : mediane.at(nostro) / sotto->second;
}

int tabella(const std::map<std::string, double>& mediane, const std::vector<Limite>& limiti) {
  int oltre = 0;
  std::printf("\n%-26s %8s %12s %12s %8s %8s\n", "work", "rows", "ours ms", "baseline", "ratio", "at most");
  for (const Limite& limite : limiti) {
    bool visto = false;
    for (const auto& [nome, secondi] : mediane) {
      const auto [lavoro, variante, righe] = pezzi(nome);
      if (lavoro != limite.lavoro || variante != "programma") continue;
      const double rapporto = multiplo(mediane, lavoro + "/" + limite.base + "/" + righe, nome);
      if (rapporto < 0) continue;
      visto = true;
      const bool supera = rapporto > limite.rapporto;
      oltre += supera ? 1 : 0;
      std::printf("%-26s %8s %12.3f %12s %8.2f %8.2f%s\n", lavoro.c_str(), righe.c_str(), secondi * 1e3,
                  limite.base.c_str(), rapporto, limite.rapporto, supera ? "  OVER" : "");
    }
    if (!visto) {
      ++oltre;
      std::printf("%-26s %8s %12s %12s   no figure\n", limite.lavoro.c_str(), "", "", limite.base.c_str());
    }
  }
  return oltre;
}

}  // namespace

bool registra(const char* nome, void (*lavoro)(benchmark::State&), const std::vector<int>& righe, int giri) {
  auto* voce = benchmark::RegisterBenchmark(nome, lavoro);
  for (const int quante : righe) voce->Arg(quante);
  voce->UseManualTime()->Iterations(1)->Repetitions(giri)->Unit(benchmark::kMillisecond);
  return true;
}

int esegui(int argc, char** argv, const std::vector<Limite>& limiti) {
  benchmark::Initialize(&argc, argv);
  Raccolta raccolta;
  benchmark::RunSpecifiedBenchmarks(&raccolta);
  return raccolta.falliti + tabella(raccolta.mediane(), limiti);
}

}  // namespace confronto
