#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "articles/back_room.h"

/// One row of TAB_VENDUTO as a test writes it; nothing is a null.
struct LedgerRow {
  std::optional<QString> date = QStringLiteral("20261120");
  std::optional<QString> ean = QStringLiteral("A1");
  std::optional<QString> article = QStringLiteral("8001120000016");
  std::optional<QString> description = QStringLiteral("PANE");
  std::optional<int> amount = 250;
  std::optional<int> pieces = 2;
  std::optional<int> discount = 0;
};

/// Adds the rows to the open archive, in one transaction.
void enter(BackRoom& room, const std::vector<LedgerRow>& rows);
/// `count` rows over several days, with every kind of amount.
std::vector<LedgerRow> testLedger(int count);
