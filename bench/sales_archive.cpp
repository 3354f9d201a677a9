#include <benchmark/benchmark.h>

#include <QFile>

#include "bench/bench_screen.h"
#include "bench/comparison.h"
#include "bench/filled_archives.h"
#include "bench/plain_list.h"
#include "controls/FlexGrid.h"
#include "core/menu.h"
#include "sales/Form_ArchivioVenduto.h"

namespace {

constexpr auto kScreen = "Form_ArchivioVenduto";
// The average price is worked out by the engine: the baseline shows as many columns as the screen.
constexpr auto kAll =
    "SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero / Tot_giorn_articoli_venduti,"
    "Tot_giorn_articoli_venduti,Importo_giornaliero,Sconto_giornaliero from TAB_VENDUTO ORDER BY DATA, "
    "Codice_EAN ASC";
constexpr int kAveragePrice = 4;
constexpr int kAmount = 6;
constexpr int kDiscount = 7;
/// Heading, blank row and totals.
constexpr int kExtraRows = 3;

int rows(const benchmark::State& state) {
  return static_cast<int>(state.range(0));
}

void prepare(Bench& bench, int rows) {
  registraSchermateCore(bench.screens);
  bench.screens.registra<Form_ArchivioVenduto>();
  filled::articles(bench, 5000);
  filled::sales(bench, rows);
}

void read(base::Sqlite& sqlite, PlainList& list) {
  list.fill(sqlite, kAll, {kAveragePrice, kAmount, kDiscount});
}

void open_programma(benchmark::State& state) {
  Bench bench;
  prepare(bench, rows(state));
  for (auto loop : state) {
    static_cast<void>(loop);
    std::unique_ptr<BenchScreen> display;
    state.SetIterationTime(seconds([&] {
      bench.reopen();
      display = std::make_unique<BenchScreen>(bench, kScreen);
    }));
    if (display->control<FlexGrid>("MSFlexGridVenduto").Rows() != rows(state) + kExtraRows)
      state.SkipWithError("rows are missing");
    display.reset();
    bench.close();
  }
}

void open_lettura(benchmark::State& state) {
  Bench bench;
  prepare(bench, rows(state));
  for (auto loop : state) {
    static_cast<void>(loop);
    std::unique_ptr<PlainList> list;
    state.SetIterationTime(seconds([&] {
      base::Sqlite sqlite(bench.archive());
      list = std::make_unique<PlainList>();
      read(sqlite, *list);
      list->show();
    }));
    if (list->rows() != rows(state)) state.SkipWithError("rows are missing");
  }
}

template <typename Work>
void withScreen(benchmark::State& state, const Work& work) {
  Bench bench;
  prepare(bench, rows(state));
  bench.reopen();
  BenchScreen display(bench, kScreen);
  for (auto loop : state) {
    static_cast<void>(loop);
    work(bench, display);
  }
}

template <typename Work>
void withList(benchmark::State& state, const Work& work) {
  Bench bench;
  prepare(bench, rows(state));
  base::Sqlite sqlite(bench.archive());
  PlainList list;
  read(sqlite, list);
  list.show();
  for (auto loop : state) {
    static_cast<void>(loop);
    work(bench, sqlite, list);
  }
}

void all_programma(benchmark::State& state) {
  withScreen(state, [&](Bench&, BenchScreen& display) {
    state.SetIterationTime(seconds([&] { display.press("Cmd_Refresh"); }));
  });
}

void all_lettura(benchmark::State& state) {
  withList(state, [&](Bench&, base::Sqlite& sqlite, PlainList& list) {
    state.SetIterationTime(seconds([&] {
      read(sqlite, list);
      list.show();
    }));
  });
}

void export_programma(benchmark::State& state) {
  withScreen(state, [&](Bench& bench, BenchScreen& display) {
    const QString file = QString::fromStdString(bench.file("venduto.csv").string());
    QFile::remove(file);
    bench.user.toSave_ = file;
    state.SetIterationTime(seconds([&] { display.press("Cmd_Export"); }));
    if (!QFile::exists(file)) state.SkipWithError("nothing was written");
  });
}

void export_lettura(benchmark::State& state) {
  withList(state, [&](Bench& bench, base::Sqlite& sqlite, PlainList& list) {
    state.SetIterationTime(seconds([&] {
      read(sqlite, list);
      list.write(bench.file("venduto.csv").string());
    }));
  });
}

const std::vector<int> kRows{5000, 50000};

[[maybe_unused]] const bool kRegistered = [] {
  comparison::registerFunction("sales_open/programma", open_programma, kRows);
  comparison::registerFunction("sales_open/lettura", open_lettura, kRows);
  comparison::registerFunction("sales_refresh/programma", all_programma, kRows);
  comparison::registerFunction("sales_refresh/lettura", all_lettura, kRows);
  comparison::registerFunction("sales_export/programma", export_programma, kRows);
  comparison::registerFunction("sales_export/lettura", export_lettura, kRows);
  return true;
}();

}  // namespace
