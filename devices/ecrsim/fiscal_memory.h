#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ecrsim/memory.h"
#include "ecrsim/moment.h"
#include "ecrsim/money.h"

namespace ecrsim {

/// A fiscal closure as it stays for ever.
struct Closure {
  int number = 0;
  Moment when{};
  int receipts = 0;
  Cents total = 0;
  Cents grandTotal = 0;
  bool operator==(const Closure&) const = default;
};

/// The fiscal memory: a text file of one line for each closure, each with its checksum.
class FiscalMemory {
 public:
  /// Closures that it holds.
  static constexpr int kCapacity = 2000;

  explicit FiscalMemory(const Memory& memory) : memory_(memory) {}

  /// All closures in order; nothing if the file is damaged or none of this till's.
  std::optional<std::vector<Closure>> closures() const;
  /// Writes a closure behind the others; false if it could not, or they are damaged.
  bool add(const Closure& closure) const;

 private:
  bool refresh() const;

  const Memory& memory_;
  /// What the file held when it was last proven: two thousand lines are not taken apart at each receipt.
  mutable std::string text_;
  mutable std::vector<Closure> closures_;
};

}  // namespace ecrsim
