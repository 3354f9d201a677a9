#pragma once

#include <array>

#include "ecrsim/counters.h"

namespace ecrsim {

struct PaymentForm {
  const char* name;
  /// Whether more than the rest may be given: change comes back in cash.
  bool change;
};

/// Keys 1T to 5T.
inline constexpr std::array<PaymentForm, kPayments> kPaymentForms{
    PaymentForm{"CONTANTI", true}, PaymentForm{"ASSEGNI", true}, PaymentForm{"CARTA DI CREDITO", false},
    PaymentForm{"TICKET", true}, PaymentForm{"CREDITO", false}};
/// The key of the form that is paid later.
inline constexpr int kCredit = 5;

}  // namespace ecrsim
