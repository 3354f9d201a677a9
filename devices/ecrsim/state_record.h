#pragma once

#include <cstdint>
#include <string>

namespace ecrsim {

/// What the till tells of itself.
struct TillState {
  bool receiptOpen = false;
  bool nonFiscal = false;
  std::int64_t fiscalReceipts = 0;
  std::int64_t managementReceipts = 0;
  /// 0 to 100.
  int cardFilled = 0;
  int fiscalMemoryFilled = 0;
  char printer = 'O';
  char paper = 'O';
  bool card = true;
};

inline constexpr std::size_t kStateRecordBytes = 39;

/// The 39 bytes: kind, maker, serial number; fiscal, receipt open or closed, its kind; numbers of receipts;
/// memory card and fiscal memory in per cent; printer, paper, card.
std::string stateRecord(const TillState& state);

}  // namespace ecrsim
