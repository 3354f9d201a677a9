#pragma once

#include <optional>
#include <vector>

#include "ecrsim/counters.h"
#include "ecrsim/fiscal_memory.h"
#include "ecrsim/invoice_archive.h"
#include "ecrsim/journal.h"
#include "ecrsim/memory.h"
#include "ecrsim/sales_counters.h"

namespace ecrsim {

/// What one document changes in what the till keeps.
struct Entry {
  Document document{};
  Counters counters{};
  std::vector<SlotMove> sales{};
  std::optional<Closure> closure{};
  std::optional<Invoice> invoice{};
};

/// What the till keeps for good: counters, sales of the articles, invoices, journal, fiscal memory. All of a
/// document goes in, or nothing.
class Books {
 public:
  explicit Books(const Memory& memory);

  /// Whether all of it can be read: no document begins otherwise.
  bool sound();
  const Counters& counters() const { return counters_; }
  /// Closures so far; nothing if the fiscal memory is damaged.
  std::optional<int> closures() const;
  std::optional<std::vector<Closure>> fiscalMemory() const { return fiscalMemory_.closures(); }
  Journal& journal() { return journal_; }
  /// The invoices, loaded; null if they cannot be read. Only a document with an invoice needs them.
  const InvoiceArchive* invoices();
  /// False if the memory could not be written; everything is as before then.
  bool enter(const Entry& entry);
  /// From here to endBatch() nothing is written: many documents at once, no closure among them.
  bool beginBatch();
  bool endBatch();

 private:
  bool write(const Counters& before, bool sold, const std::optional<Closure>& closure);
  bool storeCounters() const;
  bool store(const std::optional<Closure>& closure) const;
  bool loadCounters();

  const Memory& memory_;
  Counters counters_{};
  Counters beforeBatch_{};
  bool countersSound_ = true;
  SalesCounters sales_;
  InvoiceArchive invoices_;
  Journal journal_;
  FiscalMemory fiscalMemory_;
  bool batch_ = false;
};

}  // namespace ecrsim
