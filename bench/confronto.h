#pragma once

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

/// Runs every registered benchmark, prints the table of ratios, and returns the number of ratios over their
/// limits or without figures.
int esegui(int argc, char** argv, const std::vector<Limite>& limiti);

}  // namespace confronto
