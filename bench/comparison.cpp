#include "bench/comparison.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace comparison {

namespace {

/// Medians by name, in seconds.
class Collected : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) ++failed;
      if (run.run_type == Run::RT_Iteration && !run.error_occurred)
        times_[run.run_name.function_name + "/" + run.run_name.args].push_back(
            run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit));
    }
    ConsoleReporter::ReportRuns(runs);
  }

  std::map<std::string, double> medians() {
    std::map<std::string, double> result;
    for (auto& [name, times] : times_) {
      std::sort(times.begin(), times.end());
      result[name] = times[times.size() / 2];
    }
    return result;
  }

  int failed = 0;

 private:
  std::map<std::string, std::vector<double>> times_;
};

/// "work/variant/rows" in its three pieces.
struct Name {
  std::string work, variant, rows;
};

Name pieces(const std::string& name) {
  const std::size_t first = name.find('/');
  const std::size_t second = name.find('/', first + 1);
  return {name.substr(0, first), name.substr(first + 1, second - first - 1),
          second == std::string::npos ? "" : name.substr(second + 1)};
}

double multiple(const std::map<std::string, double>& medians, const std::string& base,
                const std::string& ours) {
  const auto below = medians.find(base);
  return below == medians.end() || below->second <= 0 ? -1 : medians.at(ours) / below->second;
}

int table(const std::map<std::string, double>& medians, const std::vector<Limit>& limits) {
  int beyond = 0;
  std::printf("\n%-26s %8s %12s %12s %8s %8s\n", "work", "rows", "ours ms", "baseline", "ratio", "at most");
  for (const Limit& limit : limits) {
    bool seen = false;
    for (const auto& [name, seconds] : medians) {
      const auto [work, variant, rows] = pieces(name);
      if (work != limit.work || variant != "programma") continue;
      std::string base = work;
      base.append("/").append(limit.base).append("/").append(rows);
      const double ratio = multiple(medians, base, name);
      if (ratio < 0) continue;
      seen = true;
      const bool exceeds = ratio > limit.ratio;
      beyond += exceeds ? 1 : 0;
      std::printf("%-26s %8s %12.3f %12s %8.2f %8.2f%s\n", work.c_str(), rows.c_str(), seconds * 1e3,
                  limit.base.c_str(), ratio, limit.ratio, exceeds ? "  OVER" : "");
    }
    if (!seen) {
      ++beyond;
      std::printf("%-26s %8s %12s %12s   no figure\n", limit.work.c_str(), "", "", limit.base.c_str());
    }
  }
  return beyond;
}

}  // namespace

bool registerFunction(const char* name, void (*work)(benchmark::State&), const std::vector<int>& rows,
                      int rounds) {
  auto* entry = benchmark::RegisterBenchmark(name, work);
  for (const int count : rows) entry->Arg(count);
  entry->UseManualTime()->Iterations(1)->Repetitions(rounds)->Unit(benchmark::kMillisecond);
  return true;
}

int run(int argc, char** argv, const std::vector<Limit>& limits) {
  // Rounds of ours and of the baselines by turns: a machine that changes its pace changes it for both.
  std::vector<char*> words(argv, argv + argc);
  std::string byTurns = "--benchmark_enable_random_interleaving=true";
  words.insert(words.begin() + 1, byTurns.data());
  int count = static_cast<int>(words.size());
  benchmark::Initialize(&count, words.data());
  Collected collected;
  benchmark::RunSpecifiedBenchmarks(&collected);
  return collected.failed + table(collected.medians(), limits);
}

}  // namespace comparison
