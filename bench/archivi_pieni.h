#pragma once

#include "bench/banco.h"

/// Archives as full as the measured works need them, written straight through SQLite: how they came to be is
/// measured elsewhere.
namespace pieni {

/// The bench's archive holds `righe` real articles, the same over again beyond the 5000th; the first 100 only
/// keep their EAN if `quasiSenzaEan`. Closed behind it.
void articoli(Banco& banco, int righe, bool quasiSenzaEan = false);
/// As many rows of sales of the last thirty days. Closed behind it.
void venduto(Banco& banco, int righe);

}  // namespace pieni
