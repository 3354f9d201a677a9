#pragma once

#include <QString>
#include <filesystem>
#include <optional>

#include "bench/bench.h"
#include "bench/bench_screen.h"

/// The console of the auxiliary commands on the bench, which asks for the whole journal.
class BenchConsole {
 public:
  BenchConsole();
  BenchConsole(const BenchConsole&) = delete;
  BenchConsole& operator=(const BenchConsole&) = delete;

  /// Shows it; the ports that it offers are those there are by now.
  void show();
  /// Connects it with the till at an address.
  void connect(const QString& address);
  /// Picks port 1, which leads to `device`, and a speed.
  void plug(const QString& device, int speed);
  /// "Avvia", until the dump is over. The file that it went into.
  std::filesystem::path dump();

  Bench bench;

 private:
  std::optional<BenchScreen> screen_;
};
