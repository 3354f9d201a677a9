#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "ecrsim/money.h"
#include "ecrsim/programme.h"

namespace ecrsim {

/// Forms of payment.
inline constexpr int kPayments = 5;

/// What the till counts of its sales, apart from the articles. Amounts in hundredths, pieces in thousandths.
struct Counters {
  /// One number of a document more.
  enum Number { FiscalReceipts, ManagementReceipts, kNumbers };
  /// Of the fiscal day.
  enum Day { Total, Discounts, Surcharges, Refunds, Voids, kDays };

  std::array<std::int64_t, kNumbers> numbers{};
  std::array<Cents, kDays> day{};
  std::array<Cents, 1> grandTotal{};
  std::array<std::int64_t, kDepartments> departmentPieces{};
  std::array<Cents, kDepartments> departments{};
  /// Sales of each rate, tax within.
  std::array<Cents, kVatRates> vat{};
  /// Change is taken off the cash.
  std::array<Cents, kPayments> payments{};
  std::array<Cents, kPayments> cashIn{};
  std::array<Cents, kPayments> cashOut{};
  std::array<std::int64_t, kOperators> operatorReceipts{};
  std::array<Cents, kOperators> operatorTotals{};
  bool operator==(const Counters&) const = default;
};

/// One line for each number that is not 0, and their checksum.
std::string textOf(const Counters& counters);
/// What textOf() wrote; nothing for another text.
std::optional<Counters> countersOf(std::string_view text);

}  // namespace ecrsim
