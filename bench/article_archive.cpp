#include <benchmark/benchmark.h>

#include <QFile>
#include <QLineEdit>

#include "articles/Form_ArchivioArticoli.h"
#include "bench/bench_screen.h"
#include "bench/comparison.h"
#include "bench/filled_archives.h"
#include "bench/plain_list.h"
#include "controls/FlexGrid.h"
#include "core/menu.h"

namespace {

constexpr auto kScreen = "Form_ArchivioArticoli";
constexpr auto kAll =
    "SELECT ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero "
    "from TAB_ARTICOLI";
// The beginning of a maker's codes: some of the articles, not most of them.
constexpr auto kEanStart = "8000";
constexpr auto kFound =
    "SELECT ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from TAB_ARTICOLI "
    "WHERE Codice_EAN LIKE '8000%' ORDER BY Codice_EAN ASC";
constexpr int kPrice = 4;

/// The archive of the bench and the screens that it needs.
void prepare(Bench& bench, int rows) {
  registraSchermateCore(bench.screens);
  bench.screens.registra<Form_ArchivioArticoli>();
  filled::articles(bench, rows);
}

int rows(const benchmark::State& state) {
  return static_cast<int>(state.range(0));
}

void open_programma(benchmark::State& state) {
  Bench bench(rows(state));
  prepare(bench, rows(state));
  for (auto loop : state) {
    static_cast<void>(loop);
    std::unique_ptr<BenchScreen> display;
    state.SetIterationTime(seconds([&] {
      bench.reopen();
      display = std::make_unique<BenchScreen>(bench, kScreen);
    }));
    if (display->control<FlexGrid>("MSFlexGridArticoli").Rows() != rows(state) + 1)
      state.SkipWithError("rows are missing");
    display.reset();
    bench.close();
  }
}

void open_lettura(benchmark::State& state) {
  Bench bench(rows(state));
  prepare(bench, rows(state));
  for (auto loop : state) {
    static_cast<void>(loop);
    std::unique_ptr<PlainList> list;
    state.SetIterationTime(seconds([&] {
      base::Sqlite sqlite(bench.archive());
      list = std::make_unique<PlainList>();
      list->fill(sqlite, kAll, {kPrice});
      list->show();
    }));
    if (list->rows() != rows(state)) state.SkipWithError("rows are missing");
  }
}

/// A work of the open screen, round after round.
template <typename Work>
void withScreen(benchmark::State& state, const Work& work) {
  Bench bench(rows(state));
  prepare(bench, rows(state));
  bench.reopen();
  BenchScreen display(bench, kScreen);
  for (auto loop : state) {
    static_cast<void>(loop);
    work(bench, display);
  }
}

/// The same without the program: rows read into a view that shows all of them already, as the screen does.
template <typename Work>
void withList(benchmark::State& state, const Work& work) {
  Bench bench(rows(state));
  prepare(bench, rows(state));
  base::Sqlite sqlite(bench.archive());
  PlainList list;
  list.fill(sqlite, kAll, {kPrice});
  list.show();
  for (auto loop : state) {
    static_cast<void>(loop);
    work(bench, sqlite, list);
  }
}

void search_programma(benchmark::State& state) {
  withScreen(state, [&](Bench&, BenchScreen& display) {
    display.control<QLineEdit>("vkTextBoxCodEan").setText(QLatin1String(kEanStart));
    state.SetIterationTime(seconds([&] { display.press("Vmd_Cerca"); }));
  });
}

void search_lettura(benchmark::State& state) {
  withList(state, [&](Bench&, base::Sqlite& sqlite, PlainList& list) {
    state.SetIterationTime(seconds([&] {
      list.fill(sqlite, kFound, {kPrice});
      list.show();
    }));
  });
}

void save_programma(benchmark::State& state) {
  withScreen(state, [&](Bench&, BenchScreen& display) {
    Q_EMIT display.control<FlexGrid>("MSFlexGridArticoli").cellClicked(7, 1);
    display.control<QLineEdit>("vkTextBoxDesc").setText(QStringLiteral("PANE DI SEGALE"));
    state.SetIterationTime(seconds([&] { display.press("Cmd_Modifica"); }));
  });
}

void save_lettura(benchmark::State& state) {
  withList(state, [&](Bench&, base::Sqlite& sqlite, PlainList& list) {
    sqlite3_stmt* sentence = sqlite.prepare(
        "UPDATE TAB_ARTICOLI SET Codice_Articolo=Codice_Articolo,Descrizione='PANE DI SEGALE',Prezzo=100,"
        "Codice_EAN=Codice_EAN,VarPrezzo=0,PrezzoZero=0,Reparto=1,Filler=' ' WHERE auto_id=7");
    state.SetIterationTime(seconds([&] {
      sqlite.run("BEGIN");
      sqlite.step(sentence);
      list.fill(sqlite, kAll, {kPrice});
      sqlite.run("COMMIT");
      list.show();
    }));
  });
}

void export_programma(benchmark::State& state) {
  withScreen(state, [&](Bench& bench, BenchScreen& display) {
    const QString file = QString::fromStdString(bench.file("elenco.csv").string());
    QFile::remove(file);
    bench.user.toSave_ = file;
    state.SetIterationTime(seconds([&] { display.press("Cmd_Export"); }));
    if (!QFile::exists(file)) state.SkipWithError("nothing was written");
  });
}

void export_lettura(benchmark::State& state) {
  withList(state, [&](Bench& bench, base::Sqlite& sqlite, PlainList& list) {
    state.SetIterationTime(seconds([&] {
      list.fill(sqlite, kAll, {kPrice});
      list.write(bench.file("elenco.csv").string());
    }));
  });
}

const std::vector<int> kRows{5000, 50000};

[[maybe_unused]] const bool kRegistered = [] {
  comparison::registerFunction("archive_open/programma", open_programma, kRows);
  comparison::registerFunction("archive_open/lettura", open_lettura, kRows);
  comparison::registerFunction("archive_search/programma", search_programma, kRows);
  comparison::registerFunction("archive_search/lettura", search_lettura, kRows);
  comparison::registerFunction("archive_save/programma", save_programma, kRows);
  comparison::registerFunction("archive_save/lettura", save_lettura, kRows);
  comparison::registerFunction("archive_export/programma", export_programma, kRows);
  comparison::registerFunction("archive_export/lettura", export_lettura, kRows);
  return true;
}();

}  // namespace
