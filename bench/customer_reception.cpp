#include "customers/reception.h"

#include <benchmark/benchmark.h>

#include <QProgressBar>
#include <fstream>
#include <vector>

#include "bench/comparison.h"
#include "bench/customer_archive.h"
#include "bench/customer_files.h"
#include "bench/plain_reception.h"
#include "controls/steady_progress.h"
#include "core/state.h"
#include "customers/customer_image.h"
#include "ecrlink/file_channel.h"
#include "ecrsim/simulator.h"

namespace {

using customers::cliente::kRecord;
using Issued = CustomerArchive::Issued;

constexpr auto kAddress = "127.31.7.3";
constexpr int kInvoices = customers::fattura::kRecord;
constexpr int kCustomers = kRecord;

ecrsim::Options tillOptions(Bench& bench) {
  ecrsim::Options options;
  options.address = kAddress;
  options.folder = bench.file("cassa");
  std::filesystem::create_directory(options.folder);
  return options;
}

/// The bench with a till that holds both files, and an archive with as many invoices as the row tells.
struct Office {
  Bench bench;
  ecrsim::Options options = tillOptions(bench);
  ecrsim::Simulator till{options};
  CustomerArchive archive;

  explicit Office(int held) : archive(bench, held > 0 ? kCustomers : 0, held, Issued::ToTheFirst) {
    commonForKora().IP_ECR = QString::fromLatin1(kAddress);
    lay(customers::kFileFatture, customer_files::invoices());
    lay(customers::kFileClienti, customer_files::customers());
  }

  void lay(const char* name, const std::string& bytes) const {
    std::ofstream(options.folder / name, std::ios::binary) << bytes;
  }
  /// The file from the till, as the program's own receptions fetch it: the same on both sides.
  std::vector<std::uint8_t> fetch(const char* name, std::size_t size) {
    std::vector<std::uint8_t> bytes(size);
    const auto came =
        ecrlink::RiceviFile(bytes, QLatin1String(name), ecrlink::Precedente::Rimosso, bench.contesto);
    if (came != static_cast<std::int64_t>(size)) bytes.clear();
    return bytes;
  }
};

/// Either reception of the program; the number of records that it wrote or passed over, 0 for a failed one.
int receiveInvoices(Office& office, QProgressBar& bar) {
  SteadyProgress progress(bar);
  const auto outcome = customers::RiceviFatture(office.bench.contesto, progress);
  return outcome.esito == customers::EsitoRicezione::Fatto ? outcome.nuove + outcome.giaPresenti : 0;
}

int receiveCustomers(Office& office, QProgressBar& bar) {
  SteadyProgress progress(bar);
  const auto outcome = customers::RiceviClienti(office.bench.contesto, progress);
  return outcome.esito == customers::EsitoRicezione::Fatto ? outcome.nuovi + outcome.cambiati : 0;
}

enum class Which { First, Again };

/// One measured reception on a fresh archive, behind an unmeasured one if the second is meant.
template <typename Receive>
void program(benchmark::State& state, int held, Which which, int expected, const Receive& receive) {
  Office office(held);
  QProgressBar bar;
  for (auto loop : state) {
    static_cast<void>(loop);
    office.archive.renew();
    office.archive.reopen();
    if (which == Which::Again) receive(office, bar);
    int records = 0;
    state.SetIterationTime(seconds([&] { records = receive(office, bar); }));
    if (records != expected) state.SkipWithError("not received");
  }
}

template <typename Receive>
void prepared(benchmark::State& state, int held, Which which, const char* name, std::size_t size,
              const Receive& receive) {
  Office office(held);
  for (auto loop : state) {
    static_cast<void>(loop);
    office.archive.renew();
    base::Sqlite sqlite(office.archive.path());
    if (which == Which::Again) receive(sqlite, office.fetch(name, size));
    double fetching = 0;
    int records = 0;
    state.SetIterationTime(seconds([&] {
      std::vector<std::uint8_t> bytes;
      fetching = seconds([&] { bytes = office.fetch(name, size); });
      if (!bytes.empty()) records = receive(sqlite, bytes);
    }));
    state.counters["fetch_ms"] = fetching * 1e3;
    if (records == 0) state.SkipWithError("not received");
  }
}

int held(const benchmark::State& state) {
  return static_cast<int>(state.range(0));
}

template <Which which>
void invoices_programma(benchmark::State& state) {
  program(state, held(state), which, kInvoices, receiveInvoices);
}

template <Which which>
void invoices_preparati(benchmark::State& state) {
  prepared(state, held(state), which, customers::kFileFatture, customers::kByteFatture,
           [](base::Sqlite& sqlite, std::span<const std::uint8_t> bytes) {
             const int inserted = plain_reception::invoices(sqlite, bytes);
             return which == Which::First ? inserted : kInvoices - inserted;
           });
}

template <Which which>
void customers_programma(benchmark::State& state) {
  program(state, 0, which, kCustomers, receiveCustomers);
}

template <Which which>
void customers_preparati(benchmark::State& state) {
  prepared(state, 0, which, customers::kFileClienti, customers::kByteClienti, plain_reception::customers);
}

/// Invoices that stand in the archive already, all of the customer whose invoices come.
const std::vector<int> kHeld{0, 10000, 20000};
const std::vector<int> kPlaces{kCustomers};

[[maybe_unused]] const bool kRegistered = [] {
  using comparison::registerFunction;
  registerFunction("invoice_reception/programma", invoices_programma<Which::First>, kHeld);
  registerFunction("invoice_reception/preparati", invoices_preparati<Which::First>, kHeld);
  registerFunction("invoice_again/programma", invoices_programma<Which::Again>, kHeld);
  registerFunction("invoice_again/preparati", invoices_preparati<Which::Again>, kHeld);
  registerFunction("customer_reception/programma", customers_programma<Which::First>, kPlaces);
  registerFunction("customer_reception/preparati", customers_preparati<Which::First>, kPlaces);
  registerFunction("customer_again/programma", customers_programma<Which::Again>, kPlaces);
  registerFunction("customer_again/preparati", customers_preparati<Which::Again>, kPlaces);
  return true;
}();

}  // namespace
