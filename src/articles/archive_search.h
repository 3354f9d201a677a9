#pragma once

#include "articles/archive_fields.h"
#include "platform/store/statement.h"

namespace articles {

/// The statement of a search: a condition for each filled field, in the order EAN, article code, description,
/// price, department. Texts match by their beginning, "*" is the wild card, and an apostrophe breaks the
/// statement. The price is a lower bound read up to its first character that is no number, so 12,50 finds
/// from 12.00 on. With no field filled, every article in the table's order. The columns VarPrezzo and
/// PrezzoZero are not selected.
store::Statement IstruzioneRicerca(const CampiArticolo& campi);

}  // namespace articles
