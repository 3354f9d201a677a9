#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "core/list_table.h"

/// The list of the invoice archive: customer by customer, with a row of sums behind each.
namespace customers {

/// Its columns, by position.
enum ColonnaFatture : int {
  kFatturaCliente,
  kFatturaRagioneSociale,
  kFatturaPartitaIVA,
  kFatturaNumero,
  kFatturaData,
  kFatturaImporto,
  kFatturaImponibile,
  kFatturaImposta,
  kFatturaNonPagato,
  kFatturaIntestatario,
};
elenco::Colonne ColonneFatture();

/// The exported form: no code, no rows of sums.
inline constexpr elenco::FormaCSV kFormaFatture{.chiusa = true, .colonnaSomme = kFatturaRagioneSociale};

/// Headings and widths over an empty list.
void GestGridCentral(FlexGrid& griglia);
/// Every customer with his invoices and sums. Sums of a customer are of 32 bits: beyond them the list fails
/// with Errore 6. A failure shows its message and ends the program.
elenco::EsitoElenco RiempiGridCentral(FlexGrid& griglia, Contesto& contesto);
/// The same for the invoices of a search. It passes no failure 20 over.
elenco::EsitoElenco CercaFatture(FlexGrid& griglia, const store::Statement& istruzione, Contesto& contesto);

/// The row of sums of a customer: total, taxable amount, tax and unpaid takings in red on the ground of
/// windows, a blank in the other columns.
void StampaRiga(FlexGrid& griglia, int riga, const std::vector<elenco::Totale>& totali);

/// Invoices of a list that has rows, what they come to, and the customers without any, in a line for the
/// foot.
QString RaccontoFatture(const elenco::EsitoElenco& esito);

}  // namespace customers
