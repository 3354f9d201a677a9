#include "ecrsim/receipt.h"

#include <map>

namespace ecrsim {
namespace {

/// What a line counts on a counter of whole pieces: a quantity with decimals is one weighing.
std::int64_t wholePieces(const ReceiptLine& line) {
  const std::int64_t pieces = line.quantity % kOnePiece == 0 ? line.quantity / kOnePiece : 1;
  return line.kind == LineKind::Sale ? pieces : -pieces;
}

std::size_t place(int number) {
  return static_cast<std::size_t>(number) - 1;
}

}  // namespace

bool Receipt::holds(const ReceiptLine& voided) const {
  std::int64_t quantity = 0;
  Cents worth = 0;
  for (const ReceiptLine& line : lines_) {
    if (!line.sameArticle(voided) || line.kind == LineKind::Refund) continue;
    quantity += line.signedQuantity();
    worth += line.net();
  }
  // What was rung up on a department has no quantity of its own: one void may take several sales back.
  const bool enough = voided.plu == 0 || quantity >= voided.quantity;
  return enough && worth >= -voided.amount && total() >= -voided.amount;
}

void Receipt::pay(int form, Cents amount) {
  payments_[place(form)] += amount;
  paid_ += amount;
  beingPaid_ = true;
}

Cents Receipt::total() const {
  Cents total = discount_ + surcharge_;
  for (const ReceiptLine& line : lines_) total += line.net();
  return total;
}

std::int64_t Receipt::pieces() const {
  std::int64_t pieces = 0;
  for (const ReceiptLine& line : lines_) pieces += wholePieces(line);
  return pieces;
}

std::array<Cents, kVatRates> Receipt::vat() const {
  std::array<Cents, kVatRates> vat{};
  for (const ReceiptLine& line : lines_) vat[static_cast<std::size_t>(line.vat)] += line.net();
  const Cents change = discount_ + surcharge_;
  Cents whole = 0;
  for (const Cents one : vat) whole += one;
  if (change == 0 || whole <= 0) return vat;
  Cents before = 0;
  for (Cents& one : vat) {
    const Cents upTo = before + one;
    one += proportion(change, upTo, whole) - proportion(change, before, whole);
    before = upTo;
  }
  return vat;
}

Counters Receipt::countedIn(Counters counters, int cashier, Cents change) const {
  ++counters.numbers[Counters::FiscalReceipts];
  counters.day[Counters::Total] += total();
  counters.day[Counters::Discounts] += discount_;
  counters.day[Counters::Surcharges] += surcharge_;
  counters.grandTotal[0] += total();
  for (const ReceiptLine& line : lines_) {
    counters.departments[place(line.department)] += line.net();
    counters.departmentPieces[place(line.department)] += line.signedQuantity();
    counters.day[Counters::Discounts] += line.discounts;
    counters.day[Counters::Surcharges] += line.surcharges;
    if (line.kind == LineKind::Refund) counters.day[Counters::Refunds] += line.amount;
    if (line.kind == LineKind::Void) counters.day[Counters::Voids] += line.amount;
  }
  const std::array<Cents, kVatRates> rates = vat();
  for (std::size_t i = 0; i < rates.size(); ++i) counters.vat[i] += rates[i];
  for (std::size_t i = 0; i < payments_.size(); ++i) counters.payments[i] += payments_[i];
  counters.payments[0] -= change;
  ++counters.operatorReceipts[place(cashier)];
  counters.operatorTotals[place(cashier)] += total();
  return counters;
}

/// A surcharge on an article is part of its takings; its discounts are counted beside them, without a sign.
std::vector<SlotMove> Receipt::sales() const {
  std::map<int, SlotMove> slots;
  for (const ReceiptLine& line : lines_) {
    if (line.plu == 0) continue;
    SlotMove& slot = slots[line.plu];
    slot.plu = line.plu;
    slot.amount += line.amount + line.surcharges;
    slot.pieces += wholePieces(line);
    slot.discount -= line.discounts;
  }
  std::vector<SlotMove> moves;
  moves.reserve(slots.size());
  for (const auto& [plu, move] : slots) moves.push_back(move);
  return moves;
}

}  // namespace ecrsim
