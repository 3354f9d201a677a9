#pragma once

#include <cstdint>
#include <vector>

#include "ecrsim/memory.h"
#include "ecrsim/money.h"

namespace ecrsim {

/// What an article's slot has sold. Amounts in hundredths before discounts, which stand beside them.
struct SlotMove {
  /// From 1.
  int plu = 0;
  Cents amount = 0;
  std::int64_t pieces = 0;
  Cents discount = 0;
};

/// venduto.bin: amounts, pieces and discounts, a 32-bit integer each for every slot, that stop at their
/// limits.
class SalesCounters {
 public:
  explicit SalesCounters(const Memory& memory) : memory_(memory) {}

  /// False if the file cannot be read or is no counters' file. One that is missing is all zeros.
  bool load();
  void add(const SlotMove& move);
  bool store() const;
  /// Puts back what load() found.
  bool restore() const;
  bool empty() const { return byte_.empty(); }
  void forget() { byte_.clear(); }

 private:
  void add(std::size_t array, int plu, std::int64_t value);

  const Memory& memory_;
  std::vector<std::uint8_t> byte_;
  std::vector<std::uint8_t> before_;
};

}  // namespace ecrsim
