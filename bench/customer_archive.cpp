#include "bench/customer_archive.h"

#include <QString>
#include <string>

#include "bench/sqlite_base.h"
#include "customers/customer_database.h"

namespace fs = std::filesystem;

namespace {

constexpr auto kFilled = "clienti_pieno.mdb";

void fill(const fs::path& file, int customers, int invoices, CustomerArchive::Issued issued) {
  base::Sqlite sqlite(file);
  const auto rows = [](int last) {
    return "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
           std::to_string(last) + ") ";
  };
  const std::string code = issued == CustomerArchive::Issued::ToTheFirst
                               ? std::string("1")
                               : "1 + i % " + std::to_string(customers);
  sqlite.run("BEGIN");
  if (customers > 0)
    sqlite.run(("INSERT INTO TAB_ANAG_CLIENTI " + rows(customers) +
                "SELECT i, CASE i % 5 WHEN 0 THEN 'BAR ' WHEN 1 THEN 'FORNO ' WHEN 2 THEN 'SARTORIA ' "
                "WHEN 3 THEN 'CAFFÈ ' ELSE 'LIBRERIA ' END || printf('%04d', i), 'VIA GARIBALDI ' || i, "
                "CASE i % 3 WHEN 0 THEN 'FORLÌ' WHEN 1 THEN 'LODI' ELSE 'REGGIO EMILIA' END, "
                "printf('%011d', 700000000 + i), 'PAGA A 30 GG', 1 FROM n")
                   .c_str());
  if (invoices > 0)
    sqlite.run(("INSERT INTO TAB_FATTURE " + rows(invoices) + "SELECT " + code +
                ", printf('2024/%d', 1 + i % 1000), ' 1', datetime('" + CustomerArchive::kFirstDay +
                "', (15 * i) || ' minutes'), 0, 122 * (i % 900), 100 * (i % 900), 22 * (i % 900), "
                "'INTESTATARIO ' || i % 250 FROM n")
                   .c_str());
  sqlite.run("COMMIT");
}

}  // namespace

CustomerArchive::CustomerArchive(Bench& bench, int customers, int invoices, Issued issued) : bench_(bench) {
  fs::copy_file(fs::path(GESTIONALE_APP) / customers::kModello, bench_.file(kFilled),
                fs::copy_options::overwrite_existing);
  fill(bench_.file(kFilled), customers, invoices, issued);
  renew();
}

CustomerArchive::~CustomerArchive() {
  close();
}

void CustomerArchive::renew() {
  close();
  fs::copy_file(bench_.file(kFilled), path(), fs::copy_options::overwrite_existing);
}

void CustomerArchive::reopen() {
  customers::ApriDatabase(QString::fromStdString(path().string()), bench_.contesto);
}

void CustomerArchive::close() {
  customers::ChiudiDatabase();
}

fs::path CustomerArchive::path() const {
  return bench_.file("clienti.mdb");
}
