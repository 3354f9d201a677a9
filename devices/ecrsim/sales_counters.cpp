#include "ecrsim/sales_counters.h"

#include <algorithm>
#include <limits>

#include "ecrcom/codes.h"
#include "ecrsim/known_files.h"

namespace ecrsim {
namespace {

constexpr std::size_t kIntegerBytes = 4;
constexpr std::size_t kAmounts = 0;
constexpr std::size_t kPieces = kPlaces * kIntegerBytes;
constexpr std::size_t kDiscounts = 2 * kPlaces * kIntegerBytes;

}  // namespace

bool SalesCounters::load() {
  if (!byte_.empty()) return true;
  if (!memory_.has(kSalesFile)) {
    byte_.resize(kSalesBytes);
  } else if (memory_.read(kSalesFile, byte_) != ecrcom::kDone || byte_.size() != kSalesBytes) {
    byte_.clear();
    return false;
  }
  before_ = byte_;
  return true;
}

void SalesCounters::add(const SlotMove& move) {
  add(kAmounts, move.plu, move.amount);
  add(kPieces, move.plu, move.pieces);
  add(kDiscounts, move.plu, move.discount);
}

void SalesCounters::add(std::size_t array, int plu, std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::size_t start = array + (static_cast<std::size_t>(plu) - 1) * kIntegerBytes;
  std::uint32_t old = 0;
  for (std::size_t i = kIntegerBytes; i > 0; --i) old = old << 8U | byte_[start + i - 1];
  const std::int64_t sum =
      std::clamp<std::int64_t>(static_cast<std::int32_t>(old) + value, Limits::min(), Limits::max());
  for (std::size_t i = 0; i < kIntegerBytes; ++i)
    byte_[start + i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(sum) >> 8U * i);
}

bool SalesCounters::store() const {
  return memory_.write(kSalesFile, byte_) == ecrcom::kDone;
}

bool SalesCounters::restore() const {
  return memory_.write(kSalesFile, before_) == ecrcom::kDone;
}

}  // namespace ecrsim
