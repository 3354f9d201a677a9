#include <benchmark/benchmark.h>

#include <QLineEdit>

#include "bench/bench_screen.h"
#include "bench/comparison.h"
#include "bench/customer_archive.h"
#include "bench/plain_list.h"
#include "controls/FlexGrid.h"
#include "core/menu.h"
#include "customers/Form_AnagraficaClienti.h"
#include "customers/Form_ArchivioFattureClienti.h"

namespace {

constexpr auto kInvoices = "Form_ArchivioFattureClienti";
constexpr auto kInvoiceGrid = "MSFlexGridFatture";
constexpr auto kRegistry = "Form_AnagraficaClienti";
constexpr auto kRegistryGrid = "MSFlexGridClienti";
constexpr int kCustomers = 250;

// The moment as people read it, put together from the stored one.
#define MOMENT                                                                                  \
  "substr(f.DataFattura,9,2)||'/'||substr(f.DataFattura,6,2)||'/'||substr(f.DataFattura,1,4)||" \
  "substr(f.DataFattura,11)"
#define INVOICE_COLUMNS                                                                                   \
  "SELECT c.ID_Cliente,c.Ragione_Sociale,c.Partita_IVA,f.NumFattura," MOMENT                              \
  ",f.Importo_Fattura,f.Imponibile,f.Imposta,f.Corr_Non_Pagato,f.Nota FROM TAB_ANAG_CLIENTI c LEFT JOIN " \
  "TAB_FATTURE f ON c.ID_Cliente=f.ID_Cliente "
#define INVOICE_ORDER " ORDER BY c.Ragione_Sociale,f.NumFattura"
constexpr auto kAllInvoices = INVOICE_COLUMNS INVOICE_ORDER;
// One of the five trades that the archive's customers are named after.
constexpr auto kTrade = "FORNO";
constexpr auto kFoundInvoices = INVOICE_COLUMNS
    "WHERE f.DataFattura BETWEEN '2000-01-01 00:00:00' AND '2099-12-31 23:59:59' AND c.Ragione_Sociale LIKE "
    "'FORNO%'" INVOICE_ORDER;
const std::vector<int> kInvoiceAmounts{5, 6, 7, 8};
constexpr int kInvoiceRun = 0;

constexpr auto kAllCustomers =
    "SELECT ID_Cliente,Stato,Ragione_Sociale,Indirizzo,Citta,Partita_IVA,Nota FROM TAB_ANAG_CLIENTI ORDER BY "
    "ID_Cliente";
constexpr auto kFoundCustomers =
    "SELECT ID_Cliente,Stato,Ragione_Sociale,Indirizzo,Citta,Partita_IVA,Nota FROM TAB_ANAG_CLIENTI WHERE "
    "Ragione_Sociale LIKE 'FORNO%' ORDER BY ID_Cliente";

int rows(const benchmark::State& state) {
  return static_cast<int>(state.range(0));
}

/// An archive with the invoices or customers that the row tells, and the program's screens over it.
struct Office {
  Bench bench;
  CustomerArchive archive;

  Office(int customers, int invoices)
      : archive(bench, customers, invoices, CustomerArchive::Issued::ByTurns) {
    registraSchermateCore(bench.screens);
    bench.screens.registra<Form_ArchivioFattureClienti>();
    bench.screens.registra<Form_AnagraficaClienti>();
  }
};

void readInvoices(base::Sqlite& sqlite, PlainList& list, const char* sql) {
  list.fill(sqlite, sql, kInvoiceAmounts, kInvoiceRun);
}

/// Heading aside; the anonymous customer, who has no invoices, has a row of his own and one of sums.
int listedInvoices(int invoices) {
  return invoices + 1 + kCustomers + 1;
}

void open_programma(benchmark::State& state) {
  Office office(kCustomers, rows(state));
  for (auto loop : state) {
    static_cast<void>(loop);
    std::unique_ptr<BenchScreen> display;
    state.SetIterationTime(seconds([&] {
      office.archive.reopen();
      display = std::make_unique<BenchScreen>(office.bench, kInvoices);
    }));
    if (display->control<FlexGrid>(kInvoiceGrid).Rows() != listedInvoices(rows(state)) + 1)
      state.SkipWithError("rows are missing");
    display.reset();
    office.archive.close();
  }
}

void open_lettura(benchmark::State& state) {
  const Office office(kCustomers, rows(state));
  for (auto loop : state) {
    static_cast<void>(loop);
    std::unique_ptr<PlainList> list;
    state.SetIterationTime(seconds([&] {
      base::Sqlite sqlite(office.archive.path());
      list = std::make_unique<PlainList>();
      readInvoices(sqlite, *list, kAllInvoices);
      list->show();
    }));
    if (list->rows() != listedInvoices(rows(state))) state.SkipWithError("rows are missing");
  }
}

/// A command of an open screen. With a field the trade is typed there first, and fewer rows must be left.
void withScreen(benchmark::State& state, Office& office, const char* screen, const char* grid,
                const char* field, const char* command) {
  office.archive.reopen();
  BenchScreen display(office.bench, screen);
  const auto count = [&] { return display.control<FlexGrid>(grid).Rows(); };
  for (auto loop : state) {
    static_cast<void>(loop);
    const int before = count();
    if (field) display.control<QLineEdit>(field).setText(QLatin1String(kTrade));
    state.SetIterationTime(seconds([&] { display.press(command); }));
    if (count() < 3 || (field != nullptr) != (count() < before)) state.SkipWithError("not the rows meant");
  }
}

/// The same without the program, into a list that showed everything.
template <typename Read>
void withList(benchmark::State& state, const Office& office, const char* all, const char* wanted,
              const Read& read) {
  base::Sqlite sqlite(office.archive.path());
  PlainList list;
  read(sqlite, list, all);
  list.show();
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      read(sqlite, list, wanted);
      list.show();
    }));
    if (list.rows() < 2) state.SkipWithError("rows are missing");
  }
}

void refresh_programma(benchmark::State& state) {
  Office office(kCustomers, rows(state));
  withScreen(state, office, kInvoices, kInvoiceGrid, nullptr, "Cmd_Refresh");
}

void refresh_lettura(benchmark::State& state) {
  withList(state, Office(kCustomers, rows(state)), kAllInvoices, kAllInvoices, readInvoices);
}

void search_programma(benchmark::State& state) {
  Office office(kCustomers, rows(state));
  withScreen(state, office, kInvoices, kInvoiceGrid, "vkTextBoxRagioneSociale", "Cmd_Cerca");
}

void search_lettura(benchmark::State& state) {
  withList(state, Office(kCustomers, rows(state)), kAllInvoices, kFoundInvoices, readInvoices);
}

void customers_programma(benchmark::State& state) {
  Office office(rows(state), 0);
  withScreen(state, office, kRegistry, kRegistryGrid, "vkTextBoxRagioneSociale", "Vmd_Cerca");
}

void customers_lettura(benchmark::State& state) {
  withList(state, Office(rows(state), 0), kAllCustomers, kFoundCustomers,
           [](base::Sqlite& sqlite, PlainList& list, const char* sql) { list.fill(sqlite, sql, {}); });
}

const std::vector<int> kInvoiceRows{5000, 20000};
/// The till's whole table, and twenty of them.
const std::vector<int> kCustomerRows{kCustomers, 5000};

[[maybe_unused]] const bool kRegistered = [] {
  comparison::registerFunction("invoice_open/programma", open_programma, kInvoiceRows);
  comparison::registerFunction("invoice_open/lettura", open_lettura, kInvoiceRows);
  comparison::registerFunction("invoice_refresh/programma", refresh_programma, kInvoiceRows);
  comparison::registerFunction("invoice_refresh/lettura", refresh_lettura, kInvoiceRows);
  comparison::registerFunction("invoice_search/programma", search_programma, kInvoiceRows);
  comparison::registerFunction("invoice_search/lettura", search_lettura, kInvoiceRows);
  comparison::registerFunction("customer_search/programma", customers_programma, kCustomerRows);
  comparison::registerFunction("customer_search/lettura", customers_lettura, kCustomerRows);
  return true;
}();

}  // namespace
