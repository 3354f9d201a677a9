#pragma once

#include <cstdint>
#include <vector>

#include "ecrsim/invoice.h"
#include "ecrsim/memory.h"

namespace ecrsim {

/// fatture.bin: 1000 places, of which one whose first byte is 0 is free.
class InvoiceArchive {
 public:
  explicit InvoiceArchive(const Memory& memory) : memory_(memory) {}

  /// False if the file cannot be read or is no archive of invoices. One that is missing is all free.
  bool load();
  /// The first free place, from 1; 0 if there is none. Loaded.
  int freePlace() const;
  /// Into the first free place; nothing happens without one. Loaded.
  void add(const Invoice& invoice);
  /// Writes what has been added, if anything has.
  bool store() const;
  /// Puts back what load() found, if anything has been added since.
  void restore() const;
  void forget() { byte_.clear(); }

 private:
  const Memory& memory_;
  std::vector<std::uint8_t> byte_;
  std::vector<std::uint8_t> before_;
};

}  // namespace ecrsim
