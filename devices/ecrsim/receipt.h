#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "ecrsim/counters.h"
#include "ecrsim/money.h"
#include "ecrsim/sales_counters.h"

namespace ecrsim {

enum class LineKind { Sale, Void, Refund };

/// One line of a receipt. Voids and refunds have an amount below zero.
struct ReceiptLine {
  LineKind kind = LineKind::Sale;
  std::string description;
  /// From 1; plu 0: rung up on the department alone.
  int department = 0;
  int plu = 0;
  int vat = 0;
  /// Thousandths, above 0 whatever the kind.
  std::int64_t quantity = kOnePiece;
  Cents price = 0;
  Cents amount = 0;
  /// Discounts below zero, surcharges above, of this line alone.
  Cents discounts = 0;
  Cents surcharges = 0;

  Cents net() const { return amount + discounts + surcharges; }
  std::int64_t signedQuantity() const { return kind == LineKind::Sale ? quantity : -quantity; }
  bool sameArticle(const ReceiptLine& other) const {
    return department == other.department && plu == other.plu;
  }
};

/// A receipt while it is open: lines and what was paid, no paper and no memory.
class Receipt {
 public:
  /// More lines than a roll of paper holds are refused by the caller.
  static constexpr std::size_t kMaxLines = 500;

  bool full() const { return lines_.size() >= kMaxLines; }
  bool empty() const { return lines_.empty(); }
  void add(ReceiptLine line) { lines_.push_back(std::move(line)); }
  /// The last line; the receipt is not empty.
  ReceiptLine& last() { return lines_.back(); }
  /// Whether so much can still be taken back: there was sold at least as much of the same, and it is worth
  /// it.
  bool holds(const ReceiptLine& voided) const;
  void adjustSubtotal(Cents change) { (change < 0 ? discount_ : surcharge_) += change; }
  void pay(int form, Cents amount);

  Cents total() const;
  Cents paid() const { return paid_; }
  Cents rest() const { return total() - paid_; }
  /// What a form of payment, from 1, has been given for it.
  Cents paidBy(int form) const { return payments_[static_cast<std::size_t>(form) - 1]; }
  bool beingPaid() const { return beingPaid_; }
  /// Whole pieces on the lines; a quantity with decimals is one piece.
  std::int64_t pieces() const;
  /// `counters` with this receipt in, rung up by that operator (from 1) and closed with so much change.
  Counters countedIn(Counters counters, int cashier, Cents change) const;
  std::vector<SlotMove> sales() const;

  /// Sales of each rate, tax within. A change on the subtotal goes to the rates in proportion, to the last
  /// cent.
  std::array<Cents, kVatRates> vat() const;

 private:
  std::vector<ReceiptLine> lines_;
  Cents discount_ = 0;
  Cents surcharge_ = 0;
  std::array<Cents, kPayments> payments_{};
  Cents paid_ = 0;
  bool beingPaid_ = false;
};

}  // namespace ecrsim
