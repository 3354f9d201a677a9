#include <benchmark/benchmark.h>

#include <QDate>
#include <QProgressBar>
#include <fstream>

#include "bench/bench.h"
#include "bench/sqlite_base.h"
#include "controls/steady_progress.h"
#include "core/state.h"
#include "ecrlink/session.h"
#include "ecrsim/simulator.h"
#include "sales/reception.h"

namespace {

constexpr int kSlot = sales::kSlot;

sales::VendutoSlot sales(int slot) {
  return {100 + 7 * slot, 1 + slot % 9, slot % 50};
}

/// Counters with every slot sold, laid into the till's memory.
void fillTill(const std::filesystem::path& memory) {
  std::string byte;
  const auto integer = [&](std::int32_t value) {
    for (int i = 0; i < 4; ++i)
      byte += static_cast<char>((static_cast<std::uint32_t>(value) >> (8 * i)) & 0xff);
  };
  for (int slot = 0; slot < kSlot; ++slot) integer(sales(slot).importo);
  for (int slot = 0; slot < kSlot; ++slot) integer(sales(slot).pezzi);
  for (int slot = 0; slot < kSlot; ++slot) integer(sales(slot).sconto);
  std::ofstream(memory / "venduto.bin", std::ios::binary) << byte;
}

/// The whole reception, fetch and clear included: ours carries more than its baselines do.
void program(benchmark::State& state) {
  Bench bench;
  std::filesystem::create_directory(bench.file("cassa"));
  ecrsim::Options options;
  options.address = "127.31.7.1";
  options.folder = bench.file("cassa");
  const ecrsim::Simulator till(options);
  commonForKora().IP_ECR = QStringLiteral("127.31.7.1");
  // As at the counter: who receives has connected before.
  if (ecrlink::avviaECR({}, ecrlink::Modo::EcrInfo, bench.contesto) != 0) state.SkipWithError("no till");
  QProgressBar bar;
  for (auto loop : state) {
    static_cast<void>(loop);
    fillTill(options.folder);
    bench.renew();
    bench.reopen();
    state.SetIterationTime(seconds([&] {
      SteadyProgress progress(bar);
      if (sales::RiceviVenduto(bench.contesto, progress).esito != sales::EsitoVenduto::Fatto)
        state.SkipWithError("not received");
    }));
  }
}

void prepared(benchmark::State& state) {
  Bench bench;
  const std::string today = QDate::currentDate().toString(QStringLiteral("yyyyMMdd")).toStdString();
  for (auto loop : state) {
    static_cast<void>(loop);
    bench.renew();
    base::Sqlite sqlite(bench.archive());
    sqlite3_stmt* sentence = sqlite.prepare(
        "insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
        "sconto_giornaliero,Tot_giorn_articoli_venduti) select "
        "?,?,codice_articolo,codice_ean,descrizione,?,?,? from "
        "tab_articoli where auto_id=?");
    state.SetIterationTime(seconds([&] {
      sqlite.run("BEGIN IMMEDIATE");
      for (int slot = 0; slot < kSlot; ++slot) {
        const sales::VendutoSlot one = sales(slot);
        sqlite3_bind_text(sentence, 1, today.data(), static_cast<int>(today.size()), SQLITE_STATIC);
        sqlite3_bind_int(sentence, 2, slot + 1);
        sqlite3_bind_int(sentence, 3, one.importo);
        sqlite3_bind_int(sentence, 4, one.sconto);
        sqlite3_bind_int(sentence, 5, one.pezzi);
        sqlite3_bind_int(sentence, 6, slot + 1);
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
  for (int slot = 0; slot < kSlot; ++slot) {
    const sales::VendutoSlot one = sales(slot);
    script
        << "insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
           "sconto_giornaliero,Tot_giorn_articoli_venduti) select strftime('%Y%m%d','now','localtime'),"
        << slot + 1 << ",codice_articolo,codice_ean,descrizione," << one.importo << "," << one.sconto << ","
        << one.pezzi << " from tab_articoli where auto_id=" << slot + 1 << ";\n";
  }
  script << "COMMIT;\n";
  script.close();
  for (auto loop : state) {
    static_cast<void>(loop);
    bench.renew();
    state.SetIterationTime(seconds([&] { base::shell(bench.archive(), bench.file("copione.sql")); }));
  }
}

constexpr int kRounds = 31;
BENCHMARK(program)
    ->Name("reception/programma")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(prepared)
    ->Name("reception/preparati")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(shell)
    ->Name("reception/shell")
    ->Arg(kSlot)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->Unit(benchmark::kMillisecond);

}  // namespace
