#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <vector>

#include "ecrsim/customers.h"
#include "ecrsim/invoice.h"

namespace ecrsim {

/// Which receipts of a seeded day come with an invoice, and for whom. Its numbers are drawn apart from those
/// of the sales, so that a seed sells the same with any customers.
class SeededInvoices {
 public:
  enum class Which { Some, All };

  SeededInvoices(Customers customers, std::uint32_t seed, Which which);

  /// To be asked once for each receipt before it is paid. Nothing for most of them, for a receipt of nothing,
  /// and for a second invoice at one moment: printing takes longer than that.
  std::optional<InvoiceOrder> next(const Moment& now, Cents total);

 private:
  void addressee(InvoiceOrder& order);
  int keyedIn();

  Customers customers_;
  std::mt19937 draw_;
  Which which_;
  std::vector<int> known_;
  std::vector<int> unknown_;
  std::optional<Moment> last_{};
};

}  // namespace ecrsim
