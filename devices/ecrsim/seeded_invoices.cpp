#include "ecrsim/seeded_invoices.h"

#include <array>
#include <string_view>
#include <utility>

namespace ecrsim {
namespace {

/// One receipt in so many comes with an invoice.
constexpr std::uint32_t kOneInvoiceIn = 8;
/// Of ten invoices so many go to customers of the table, then to codes without a record; the rest is
/// anonymous.
constexpr std::uint32_t kTen = 10;
constexpr std::uint32_t kKnown = 6;
constexpr std::uint32_t kUnknown = 8;
/// Of four invoices one is not paid at all, one by half.
constexpr std::uint32_t kFour = 4;
constexpr int kPaidType = 1;
constexpr int kUnpaidType = 2;
/// Codes beyond a table without a free record.
constexpr std::uint32_t kCodesBeyond = 100;
/// Sets the stream of a seed apart from that of its sales.
constexpr std::uint32_t kOtherStream = 0x46415454;

/// Holders as they are keyed in at the counter, Windows-1252.
constexpr std::array<std::string_view, 7> kHolders{
    "BAR DEL PORTO",        "CAFF\xC8 DELLE ROSE",   "OSTERIA AL PONTE", "STUDIO TECNICO ALBA",
    "FERRAMENTA LA CHIAVE", "PANETTERIA DUE SPIGHE", "CICLOFFICINA NORD"};
constexpr std::string_view kPassingBy = "CLIENTE DI PASSAGGIO";

}  // namespace

SeededInvoices::SeededInvoices(Customers customers, std::uint32_t seed, Which which)
    : customers_(std::move(customers)), draw_(seed ^ kOtherStream), which_(which) {
  for (int code = 1; code <= Customers::kCodes; ++code)
    (customers_.known(code) ? known_ : unknown_).push_back(code);
}

std::optional<InvoiceOrder> SeededInvoices::next(const Moment& now, Cents total) {
  const bool drawn = which_ == Which::All || draw_() % kOneInvoiceIn == 0;
  if (!drawn || total <= 0 || last_ == now) return std::nullopt;
  last_ = now;
  InvoiceOrder order;
  addressee(order);
  const auto unpaid = draw_() % kFour;
  if (unpaid < 2) order.unpaid = unpaid == 0 ? total : total / 2;
  order.type = order.unpaid > 0 ? kUnpaidType : kPaidType;
  return order;
}

void SeededInvoices::addressee(InvoiceOrder& order) {
  const auto whom = draw_() % kTen;
  if (whom < kKnown && !known_.empty()) {
    order.customer = known_[draw_() % known_.size()];
    order.holder = customers_.name(order.customer);
  } else if (whom < kUnknown) {
    order.customer = keyedIn();
    order.holder = kHolders[static_cast<std::size_t>(order.customer) % kHolders.size()];
  } else {
    order.holder = kPassingBy;
  }
}

int SeededInvoices::keyedIn() {
  const auto number = draw_();
  if (unknown_.empty()) return Customers::kCodes + 1 + static_cast<int>(number % kCodesBeyond);
  return unknown_[number % unknown_.size()];
}

}  // namespace ecrsim
