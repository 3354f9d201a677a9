#include "demo/reread_customers.h"

#include <algorithm>
#include <stdexcept>

#include "demo/database_reader.h"

namespace {

/// "2026-11-22 20:00:05", as the store keeps a moment, in the order of the screens.
std::string momentOf(const std::string& stored) {
  if (stored.size() != 19) throw std::runtime_error("no moment: " + stored);
  return stored.substr(8, 2) + '/' + stored.substr(5, 2) + '/' + stored.substr(0, 4) + stored.substr(10);
}

expectations::Invoice invoiceOf(const DatabaseReader::Row& row) {
  const std::string number = row.text(1);
  expectations::Invoice invoice{std::stoi(number.substr(number.find('/') + 1)),
                                std::stoi(row.text(2)),
                                row.integer(0),
                                row.text(8),
                                momentOf(row.text(3)),
                                row.integer(4),
                                row.integer(5),
                                row.integer(6),
                                row.integer(7)};
  if (expectations::numberOf(invoice) != number) throw std::runtime_error("no number: " + number);
  if (row.text(2) != ' ' + std::to_string(invoice.type)) throw std::runtime_error("no type: " + row.text(2));
  return invoice;
}

}  // namespace

RereadCustomers rereadCustomers(const std::filesystem::path& file) {
  const DatabaseReader database(file);
  RereadCustomers archive;
  database.read(
      "select ID_Cliente, Ragione_Sociale, Indirizzo, Citta, Partita_IVA, Nota, Stato from TAB_ANAG_CLIENTI "
      "order by ID_Cliente",
      [&](const DatabaseReader::Row& row) {
        archive.customers.push_back({row.integer(0), row.text(1), row.text(2), row.text(3), row.text(4),
                                     row.text(5), row.integer(6)});
      });
  database.read(
      "select ID_Cliente, NumFattura, Tipo_Fattura, DataFattura, Importo_Fattura, Imponibile, Imposta, "
      "Corr_Non_Pagato, Nota from TAB_FATTURE",
      [&](const DatabaseReader::Row& row) { archive.invoices.push_back(invoiceOf(row)); });
  std::ranges::sort(archive.invoices, {}, &expectations::Invoice::place);
  return archive;
}
