#pragma once

#include <QString>

#include "articles/csv_import.h"
#include "controls/outcome_bar.h"

struct Contesto;

namespace workspace {

/// What the foot of the workspace tells of an import.
struct RaccontoImport {
  OutcomeBar::Kind genere = OutcomeBar::Kind::Plain;
  QString testo;
};

/// Ends the transaction that an import may have left open, which puts the rows that the screens show on the
/// disk, and tells what the import came to: how many rows stay, or that none does.
RaccontoImport ConcludiImport(const articles::EsitoImport& esito, Contesto& contesto);

}  // namespace workspace
