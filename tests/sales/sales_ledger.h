#pragma once

#include <QString>
#include <optional>

#include "articles/back_room.h"

/// One row of TAB_VENDUTO as a test writes it; nothing is a null.
struct RigaRegistrata {
  std::optional<QString> data = QStringLiteral("20261120");
  std::optional<QString> ean = QStringLiteral("A1");
  std::optional<QString> articolo = QStringLiteral("8001120000016");
  std::optional<QString> descrizione = QStringLiteral("PANE");
  std::optional<int> importo = 250;
  std::optional<int> pezzi = 2;
  std::optional<int> sconto = 0;
};

/// Adds the rows to the open archive, in one transaction.
void registra(Bottega& bottega, const std::vector<RigaRegistrata>& righe);
/// `quante` rows over several days, with every kind of amount.
std::vector<RigaRegistrata> vendutoDiProva(int quante);
