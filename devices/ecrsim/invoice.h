#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "ecrsim/moment.h"
#include "ecrsim/money.h"

namespace ecrsim {

/// An invoice that is asked for: it is issued with the receipt that is closed next, whose amounts it bears.
struct InvoiceOrder {
  /// 1 to 255. The till keeps it; nothing in it goes by it.
  int type = 1;
  /// 0 to 65535; 0 is the anonymous customer.
  int customer = 0;
  /// Windows-1252, cut to its field. Empty: the name in the customer table, if the code has a record there.
  std::string holder{};
  /// Hundredths that are left to be paid, besides what the receipt puts on credit.
  Cents unpaid = 0;
};

/// Amounts in hundredths; total = taxable + tax.
struct Invoice {
  int type = 0;
  int customer = 0;
  std::string holder{};
  Moment when{};
  Cents total = 0;
  Cents taxable = 0;
  Cents tax = 0;
  Cents unpaid = 0;
};

inline constexpr std::size_t kInvoiceBytes = 77;
using InvoiceRecord = std::array<std::uint8_t, kInvoiceBytes>;

/// The record as it stands in fatture.bin, reserved bytes zero.
InvoiceRecord recordOf(const Invoice& invoice);

}  // namespace ecrsim
