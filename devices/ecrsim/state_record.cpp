#include "ecrsim/state_record.h"

#include <array>
#include <cstdio>

#include "ecrsim/desk.h"

namespace ecrsim {

std::string stateRecord(const TillState& state) {
  std::array<char, 128> text;
  std::snprintf(text.data(), text.size(), "ECRSIM%sF%c%c%06lld%06lld%03d %03d %c%c%c", Desk::kSerialNumber,
                state.receiptOpen ? 'A' : 'C', state.nonFiscal ? 'G' : 'F',
                static_cast<long long>(state.fiscalReceipts),
                static_cast<long long>(state.managementReceipts), state.cardFilled, state.fiscalMemoryFilled,
                state.printer, state.paper, state.card ? 'P' : 'N');
  return text.data();
}

}  // namespace ecrsim
