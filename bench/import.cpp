#include <benchmark/benchmark.h>

#include <fstream>

#include "articles/csv_import.h"
#include "bench/bench.h"
#include "bench/sqlite_base.h"
#include "demo/expectations.h"

namespace {

constexpr int kSlot = 5000;

/// Real articles; beyond the 5000th the same again under other EAN codes, over the same slots.
std::vector<expectations::Article> list(int rows) {
  const auto real = expectations::readList(std::string(GESTIONALE_APP) + "/articoli.csv");
  std::vector<expectations::Article> all;
  for (int i = 0; i < rows; ++i) {
    all.push_back(real[static_cast<std::size_t>(i % kSlot)]);
    if (i >= kSlot) all.back().ean = std::to_string(9000000000000 + i);
  }
  return all;
}

std::string price(std::int32_t cents) {
  const std::string decimals = std::to_string(100 + cents % 100).substr(1);
  return std::to_string(cents / 100) + "," + decimals;
}

void writeCsv(const std::filesystem::path& file, const std::vector<expectations::Article>& articles) {
  std::ofstream output(file, std::ios::binary);
  for (const auto& one : articles)
    output << one.slot << ';' << one.ean << ';' << one.code << ';' << one.description << ';'
           << price(one.price) << ';' << one.department << ";N;N; \r\n";
}

/// Single-byte text as SQLite wants it.
std::string utf8(const std::string& byte) {
  return QString::fromLatin1(byte.data(), static_cast<int>(byte.size())).toStdString();
}

void program(benchmark::State& state) {
  Bench bench;
  writeCsv(bench.file("elenco.csv"), list(static_cast<int>(state.range(0))));
  bench.user.toOpen_ = QString::fromStdString(bench.file("elenco.csv").string());
  for (auto loop : state) {
    static_cast<void>(loop);
    bench.renew();
    bench.reopen();
    state.SetIterationTime(seconds([&] { articles::ImportaArticoli(bench.contesto); }));
  }
}

void prepared(benchmark::State& state) {
  Bench bench;
  const auto articles = list(static_cast<int>(state.range(0)));
  for (auto loop : state) {
    static_cast<void>(loop);
    bench.renew();
    base::Sqlite sqlite(bench.archive());
    sqlite3_stmt* sentence = sqlite.prepare(
        "UPDATE TAB_ARTICOLI SET Codice_EAN=?,Codice_Articolo=?,Descrizione=?,Prezzo=?,Reparto=?,Filler=? "
        "WHERE auto_id=?");
    state.SetIterationTime(seconds([&] {
      sqlite.run("BEGIN IMMEDIATE");
      for (const auto& one : articles) {
        const std::string description = utf8(one.description);
        sqlite3_bind_text(sentence, 1, one.ean.data(), static_cast<int>(one.ean.size()), SQLITE_STATIC);
        sqlite3_bind_text(sentence, 2, one.code.data(), static_cast<int>(one.code.size()), SQLITE_STATIC);
        sqlite3_bind_text(sentence, 3, description.data(), static_cast<int>(description.size()),
                          SQLITE_STATIC);
        sqlite3_bind_int(sentence, 4, one.price);
        sqlite3_bind_int(sentence, 5, one.department);
        sqlite3_bind_text(sentence, 6, " ", 1, SQLITE_STATIC);
        sqlite3_bind_int(sentence, 7, one.slot);
        sqlite.step(sentence);
      }
      sqlite.run("COMMIT");
    }));
  }
}

void shell(benchmark::State& state) {
  Bench bench;
  std::ofstream script(bench.file("copione.sql"), std::ios::binary);
  script << base::kSettings << "\nBEGIN;\n";
  for (const auto& one : list(static_cast<int>(state.range(0))))
    script << "UPDATE TAB_ARTICOLI SET  Codice_ean ='" << one.ean << "', Codice_Articolo ='" << one.code
           << "',Descrizione ='" << utf8(one.description) << "',Prezzo =" << one.price
           << ",Reparto =" << one.department << ",Filler =' ' WHERE auto_id =" << one.slot << ";\n";
  script << "COMMIT;\n";
  script.close();
  for (auto loop : state) {
    static_cast<void>(loop);
    bench.renew();
    state.SetIterationTime(seconds([&] { base::shell(bench.archive(), bench.file("copione.sql")); }));
  }
}

constexpr int kRounds = 15;
BENCHMARK(program)
    ->Name("import/programma")
    ->Arg(5000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(prepared)
    ->Name("import/preparati")
    ->Arg(5000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(shell)
    ->Name("import/shell")
    ->Arg(5000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);

}  // namespace
