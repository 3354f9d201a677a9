#pragma once

#include <QString>

#include "platform/store/statement.h"

namespace sales {

/// The whole list, by day and then by Codice_EAN.
store::Statement StatementTutti();

/// What the person looks for. `*` and `?` are wild cards, an apostrophe breaks the statement. An empty text
/// does not filter.
struct FiltroVenduto {
  /// yyyymmdd, both days included.
  QString inizio;
  QString fine;
  QString ean;
  QString descrizione;
};
/// The filtered list in the same order, without the column of the discounts.
store::Statement StatementCerca(const FiltroVenduto& filtro);

}  // namespace sales
