#pragma once

#include "bench/bench.h"

/// Archives as full as the measured works need them, written straight through SQLite: how they came to be is
/// measured elsewhere.
namespace filled {

/// The bench's archive holds `rows` real articles, the same over again beyond the 5000th; the first 100 only
/// keep their EAN if `nearlyWithoutEan`. Closed behind it.
void articles(Bench& bench, int rows, bool nearlyWithoutEan = false);
/// As many rows of sales of the last thirty days. Closed behind it.
void sales(Bench& bench, int rows);

}  // namespace filled
