#pragma once

#include <QString>

namespace sales {

/// The whole list, by day and then by Codice_EAN.
QString StatementTutti();

/// What the person looks for. Texts go into the statement as typed: `*` and `?` are wild cards, an apostrophe
/// breaks the statement. An empty one does not filter.
struct FiltroVenduto {
  /// yyyymmdd, both days included.
  QString inizio;
  QString fine;
  QString ean;
  QString descrizione;
};
/// The filtered list in the same order, without the column of the discounts.
QString StatementCerca(const FiltroVenduto& filtro);

}  // namespace sales
