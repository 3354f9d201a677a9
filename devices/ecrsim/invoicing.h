#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ecrsim/desk.h"
#include "ecrsim/invoice.h"
#include "ecrsim/receipt.h"

namespace ecrsim {

/// What an order makes of a receipt: the invoice, nothing for an archive without a free place, and what the
/// receipt prints of either.
struct Issue {
  std::optional<Invoice> invoice{};
  /// Its place in the archive, from 1.
  int number = 0;
  std::vector<std::string> lines{};
};

/// The invoice that the till has been asked for, until a receipt is closed with it.
class Invoicing {
 public:
  explicit Invoicing(Desk& desk) : desk_(desk) {}

  /// Refuses an order that no invoice can come of, and one whose archive cannot be read.
  void order(InvoiceOrder order);
  /// The receipt as it is paid; refuses if more is left to be paid than it comes to.
  Issue issue(const Receipt& paid) const;
  /// The receipt of that issue is closed.
  void done(const Issue& issue);
  /// Forgets the order, if it still waits.
  void drop() { order_.reset(); }
  /// Number of the invoice that the last order came to; 0 if none did.
  int last() const { return last_; }

 private:
  Invoice invoiceOf(const InvoiceOrder& order, const Receipt& paid) const;

  Desk& desk_;
  std::optional<InvoiceOrder> order_{};
  int last_ = 0;
};

}  // namespace ecrsim
