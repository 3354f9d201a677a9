#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

/// Figures beside their baselines. A benchmark is named "<work>/<variant>/<rows>"; the variant "programma" is
/// ours, every other one a baseline of the same work in the same run.
namespace confronto {

struct Limite {
  std::string lavoro;
  std::string base;
  /// Ours divided by the baseline, at most.
  double rapporto;
};

/// Makes a work known under "<work>/<variant>", once for each number of rows; it sets its own times, `giri`
/// rounds of it are run. Returns true, for a constant that is made before `main`.
bool registra(const char* nome, void (*lavoro)(benchmark::State&), const std::vector<int>& righe,
              int giri = 15);

/// Runs every registered benchmark, prints the table of ratios, and returns the number of ratios over their
/// limits or without figures.
int esegui(int argc, char** argv, const std::vector<Limite>& limiti);

}  // namespace confronto
