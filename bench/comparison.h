#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

/// Figures beside their baselines. A benchmark is named "<work>/<variant>/<rows>"; the variant "programma" is
/// ours, every other one a baseline of the same work in the same run.
namespace comparison {

struct Limit {
  std::string work;
  std::string base;
  /// Ours divided by the baseline, at most.
  double ratio;
};

/// Makes a work known under "<work>/<variant>", once for each number of rows; it sets its own times, `rounds`
/// rounds of it are run. Returns true, for a constant that is made before `main`.
bool registerFunction(const char* name, void (*work)(benchmark::State&), const std::vector<int>& rows,
                      int rounds = 15);

/// Runs every registered benchmark, prints the table of ratios, and returns the number of ratios over their
/// limits or without figures.
int run(int argc, char** argv, const std::vector<Limit>& limits);

}  // namespace comparison
