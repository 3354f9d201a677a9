#pragma once

#include <cstdint>

#include "ecrsim/memory.h"

namespace ecrsim {

/// Rings up `receipts` receipts over the articles of plu.bin, a slot counting as an article if it has a
/// description or an EAN. Adds to the counters of venduto.bin (amounts are price times pieces, discounts
/// stand beside them) and writes the receipts behind giornale.txt. The same articles, number and seed give
/// the same day everywhere. Returns what the amounts have grown by, in hundredths; 0 without articles.
/// Throws std::runtime_error if the memory cannot be written.
std::int64_t ringUp(const Memory& memory, int receipts, std::uint32_t seed);

}  // namespace ecrsim
