#pragma once

#include <QString>
#include <cstdint>
#include <optional>

#include "platform/store/statement.h"

class Clock;
struct Contesto;

/// What the invoice archive asks its archive for, and the check of the dates that go into it.
namespace customers {

struct FiltroFatture;

/// Every customer with his invoices, by name and number of invoice. One without invoices has a row of nulls.
store::Statement StatementFatture();

/// A day as three lists hold it: two digits, two, four.
struct Giorno {
  QString giorno;
  QString mese;
  QString anno;
  /// dd/mm/yyyy
  QString scritto() const;
};

/// What the person looks for. `*` and `?` are wild cards; an apostrophe, and a day that is no digits, break
/// the statement. An empty text does not filter. Both days are included whole.
struct RicercaFatture {
  Giorno inizio;
  Giorno fine;
  std::optional<std::int64_t> cliente;
  /// In any letter case.
  QString ragioneSociale;
  QString partitaIVA;
  QString numero;
};
/// The invoices found, in the order of the whole list. Customers without invoices are not among them: they
/// have no date.
store::Statement StatementCercaFatture(const RicercaFatture& ricerca);

/// The customer of a filter: a code of 0 or above.
std::optional<std::int64_t> ClienteDelFiltro(const FiltroFatture& filtro);

/// "Cliente: 2 ROSSI", for the head of a list that shows him alone.
QString ChiMostra(const FiltroFatture& filtro);

/// Results of CheckData.
inline constexpr std::int16_t kDataValida = 0;
inline constexpr std::int16_t kDataRifiutata = 1;
/// Whether a text is a date, dd/mm/yyyy, of the years 1800 to the present one. Every fourth year is a leap
/// year.
std::int16_t CheckData(const QString& data, const Clock& orologio);

enum class EsitoPeriodo { Valido, InizioRifiutato, FineRifiutata };
/// Checks both days; the first that is refused is told, with the words of the start whichever it is.
EsitoPeriodo ControllaPeriodo(const Giorno& inizio, const Giorno& fine, Contesto& contesto);

}  // namespace customers
