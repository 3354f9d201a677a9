#pragma once

#include <QString>

/// What the screens of the customers hand to each other, from process start to process end.
namespace customers {

/// Whose invoices the invoice archive shows while it was opened from the registry.
struct FiltroFatture {
  bool acceso = false;
  QString partitaIVA;
  QString ragioneSociale;
  QString codice;
};

struct StatoClienti {
  FiltroFatture filtro;
  /// Whether the reception stands on the customers. Its choice outlives the screen: who has just taken the
  /// till's customers is not told twice of a VAT number that is there already.
  bool ricezioneClienti = false;
};

/// The one instance. A test makes it fresh: `statoClienti() = {}`.
StatoClienti& statoClienti();

}  // namespace customers
