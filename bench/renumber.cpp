#include <benchmark/benchmark.h>

#include "articles/ean_index.h"
#include "bench/filled_archives.h"
#include "bench/sqlite_base.h"

namespace {

constexpr int kSlot = 5000;

/// An archive with its checksum table built.
void prepare(Bench& bench, bool nearlyWithoutEan) {
  filled::articles(bench, kSlot, nearlyWithoutEan);
  bench.reopen();
  store::Transaction transaction(bench.workspace);
  articles::UpdateEanNumAndIndex(bench.user);
  transaction.Commit();
}

/// What a deletion costs: every article numbered anew and its checksum row with it.
void program(benchmark::State& state, bool nearlyWithoutEan) {
  Bench bench;
  prepare(bench, nearlyWithoutEan);
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      store::Transaction transaction(bench.workspace);
      articles::CalcolaID_Position(bench.user);
      articles::UpdateALLIndex(bench.user);
      transaction.Commit();
    }));
  }
}

/// The same end by hand: one statement for each EAN, with the position of its last article.
void prepared(benchmark::State& state, bool nearlyWithoutEan) {
  Bench bench;
  prepare(bench, nearlyWithoutEan);
  bench.close();
  base::Sqlite sqlite(bench.archive());
  sqlite3_stmt* read = sqlite.prepare(
      "SELECT a.Codice_EAN, max(a.auto_id) - 1, n.Codice_EAN_Num FROM TAB_ARTICOLI a JOIN (SELECT DISTINCT "
      "Codice_EAN, Codice_EAN_Num FROM TAB_EAN_NUMERICI) n ON n.Codice_EAN = a.Codice_EAN GROUP BY 1");
  struct One {
    std::string ean;
    int position;
    double sum;
  };
  std::vector<One> all;
  while (sqlite3_step(read) == SQLITE_ROW)
    all.push_back({reinterpret_cast<const char*>(sqlite3_column_text(read, 0)), sqlite3_column_int(read, 1),
                   sqlite3_column_double(read, 2)});
  sqlite3_reset(read);
  sqlite3_stmt* number = sqlite.prepare("UPDATE TAB_ARTICOLI SET ID_Position=? WHERE Codice_EAN=?");
  sqlite3_stmt* report = sqlite.prepare("UPDATE TAB_EAN_NUMERICI SET \"Index\"=? WHERE Codice_EAN_Num=?");
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      sqlite.run("BEGIN IMMEDIATE");
      for (const One& one : all) {
        sqlite3_bind_int(number, 1, one.position);
        sqlite3_bind_text(number, 2, one.ean.data(), static_cast<int>(one.ean.size()), SQLITE_STATIC);
        sqlite.step(number);
      }
      for (const One& one : all) {
        sqlite3_bind_int(report, 1, one.position);
        sqlite3_bind_double(report, 2, one.sum);
        sqlite.step(report);
      }
      sqlite.run("COMMIT");
    }));
  }
}

constexpr int kRounds = 15;
void registerFunction(const char* name, void (*work)(benchmark::State&, bool), bool nearlyWithoutEan) {
  benchmark::RegisterBenchmark(
      name, [work, nearlyWithoutEan](benchmark::State& state) { work(state, nearlyWithoutEan); })
      ->Arg(kSlot)
      ->UseManualTime()
      ->Iterations(1)
      ->Repetitions(kRounds)
      ->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] const bool kRegistered = [] {
  registerFunction("renumber/programma", program, false);
  registerFunction("renumber/preparati", prepared, false);
  registerFunction("renumber_no_ean/programma", program, true);
  registerFunction("renumber_no_ean/preparati", prepared, true);
  return true;
}();

}  // namespace
