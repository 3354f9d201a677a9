#include "ecrsim/books.h"

#include <utility>

#include "ecrcom/codes.h"
#include "ecrsim/known_files.h"

namespace ecrsim {

Books::Books(const Memory& memory)
    : memory_(memory),
      sales_(memory),
      invoices_(memory),
      journal_(memory.folder() / kJournalFile),
      fiscalMemory_(memory) {
  countersSound_ = loadCounters();
}

bool Books::loadCounters() {
  if (!memory_.has(kCountersFile)) return true;
  std::vector<std::uint8_t> byte;
  if (memory_.read(kCountersFile, byte) != ecrcom::kDone) return false;
  const auto read = countersOf(std::string(byte.begin(), byte.end()));
  if (read) counters_ = *read;
  return read.has_value();
}

/// The PC fetches and clears sales and invoices between two documents: they are read anew for each.
bool Books::sound() {
  if (batch_) return true;
  sales_.forget();
  invoices_.forget();
  return countersSound_ && sales_.load() && journal_.sound() && fiscalMemory_.closures().has_value();
}

const InvoiceArchive* Books::invoices() {
  if (!batch_) invoices_.forget();
  return invoices_.load() ? &invoices_ : nullptr;
}

std::optional<int> Books::closures() const {
  const auto all = fiscalMemory_.closures();
  if (!all) return std::nullopt;
  return static_cast<int>(all->size());
}

bool Books::enter(const Entry& entry) {
  if (!sound() || !sales_.load()) return false;
  if (entry.invoice && !invoices_.load()) return false;
  if (entry.invoice) invoices_.add(*entry.invoice);
  for (const SlotMove& move : entry.sales) sales_.add(move);
  journal_.add(entry.document);
  const Counters before = std::exchange(counters_, entry.counters);
  return batch_ || write(before, !entry.sales.empty(), entry.closure);
}

bool Books::beginBatch() {
  if (!sound()) return false;
  beforeBatch_ = counters_;
  batch_ = true;
  return true;
}

bool Books::endBatch() {
  batch_ = false;
  const bool done = write(beforeBatch_, true, std::nullopt);
  sales_.forget();
  invoices_.forget();
  return done;
}

/// All of what the journal took in, and the counters; the fiscal memory last: what is in there never goes
/// again. What fails takes the rest back.
bool Books::write(const Counters& before, bool sold, const std::optional<Closure>& closure) {
  const bool printed = journal_.write();
  if (printed && (!sold || sales_.store()) && invoices_.store() && storeCounters() && store(closure))
    return true;
  if (printed) journal_.undo();
  if (sold) sales_.restore();
  invoices_.restore();
  counters_ = before;
  storeCounters();
  return false;
}

bool Books::storeCounters() const {
  return memory_.write(kCountersFile, ecrcom::byteOf(textOf(counters_))) == ecrcom::kDone;
}

bool Books::store(const std::optional<Closure>& closure) const {
  return !closure || fiscalMemory_.add(*closure);
}

}  // namespace ecrsim
