#include "ecrsim/invoicing.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <utility>

#include "ecrsim/payment_forms.h"

namespace ecrsim {
namespace {

constexpr int kHighestType = std::numeric_limits<std::uint8_t>::max();
constexpr int kHighestCustomer = std::numeric_limits<std::uint16_t>::max();

bool within(int value, int lowest, int highest) {
  return value >= lowest && value <= highest;
}

const InvoiceArchive& archive(Desk& desk) {
  const InvoiceArchive* invoices = desk.books().invoices();
  if (invoices == nullptr) throw Refusal{"MEMORIA GUASTA", true};
  return *invoices;
}

std::string digits(const char* format, int number) {
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), format, number);
  return text.data();
}

std::string customerName(int customer) {
  return customer == 0 ? "CLIENTE ANONIMO" : digits("CLIENTE %05d", customer);
}

std::vector<std::string> linesOf(const Invoice& invoice, int number) {
  std::vector<std::string> lines{row(digits("FATTURA N. %04d", number), customerName(invoice.customer))};
  if (!invoice.holder.empty()) lines.push_back(row("PER " + invoice.holder, ""));
  lines.push_back(row("IMPONIBILE", euro(invoice.taxable)));
  lines.push_back(row("IMPOSTA", euro(invoice.tax)));
  if (invoice.unpaid != 0) lines.push_back(row("NON PAGATO", euro(invoice.unpaid)));
  return lines;
}

}  // namespace

void Invoicing::order(InvoiceOrder order) {
  demand(within(order.type, 1, kHighestType), "FATTURA ERRATA");
  demand(within(order.customer, 0, kHighestCustomer), "CLIENTE ERRATO");
  demand(order.unpaid >= 0, "IMPORTO ERRATO");
  archive(desk_);
  last_ = 0;
  order_ = std::move(order);
}

Issue Invoicing::issue(const Receipt& paid) const {
  if (!order_) return {};
  const int number = archive(desk_).freePlace();
  if (number == 0)
    return {std::nullopt,
            0,
            {row("FATTURA RIFIUTATA", customerName(order_->customer)), "ARCHIVIO FATTURE PIENO"}};
  const Invoice invoice = invoiceOf(*order_, paid);
  return {invoice, number, linesOf(invoice, number)};
}

Invoice Invoicing::invoiceOf(const InvoiceOrder& order, const Receipt& paid) const {
  Invoice invoice{order.type, order.customer, order.holder};
  if (invoice.holder.empty()) invoice.holder = desk_.customers().name(order.customer);
  const std::array<Cents, kVatRates> rates = paid.vat();
  for (int i = 0; i < kVatRates; ++i)
    invoice.tax += taxWithin(rates[static_cast<std::size_t>(i)], desk_.programme().vatRate(i));
  invoice.total = paid.total();
  invoice.taxable = invoice.total - invoice.tax;
  invoice.unpaid = order.unpaid + paid.paidBy(kCredit);
  demand(invoice.unpaid <= std::max<Cents>(invoice.total, 0), "IMPORTO ERRATO");
  return invoice;
}

void Invoicing::done(const Issue& issue) {
  if (order_) last_ = issue.number;
  order_.reset();
}

}  // namespace ecrsim
