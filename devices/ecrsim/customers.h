#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ecrsim/memory.h"

namespace ecrsim {

/// The customer table as the PC sent it, clienti.bin: record n is the customer with code n. Read once, when
/// made; what is missing or too short reads as free records.
class Customers {
 public:
  static constexpr int kCodes = 250;

  explicit Customers(const Memory& memory);

  /// Whether the code has a record with a state flag other than 0.
  bool known(int code) const;
  /// Windows-1252; empty for a code that is not known.
  std::string name(int code) const;

 private:
  std::vector<std::uint8_t> byte_;
};

}  // namespace ecrsim
