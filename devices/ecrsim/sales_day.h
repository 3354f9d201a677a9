#pragma once

#include <cstdint>

#include "ecrsim/machine.h"

namespace ecrsim {

/// Rings up `receipts` receipts over the articles of plu.bin that have a price or may have none, by pressing
/// the keys of the till. Their times begin at 8.30 of the till's date. The same articles, number and seed
/// give the same day everywhere. Returns what the amounts of venduto.bin have grown by, in hundredths; 0
/// without articles. Some receipts come with an invoice, which changes nothing in the sales. Throws
/// std::runtime_error if the memory cannot be read or written.
std::int64_t ringUp(Machine& machine, int receipts, std::uint32_t seed);
/// The same with an invoice for every receipt, from 20.00 on. Returns how many the archive took.
int ringUpInvoices(Machine& machine, int receipts, std::uint32_t seed);

}  // namespace ecrsim
