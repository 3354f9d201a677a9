#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "demo/expectations.h"

/// What a week of sales must come to, computed a second time with nothing of the program's own code. Amounts
/// in hundredths.
namespace expectations {

/// What the sales of some articles bring in, discounts off.
std::int64_t takings(const std::vector<Sales>& sold);

/// A closure of the fiscal day, as the till's fiscal memory tells it.
struct Closure {
  int number = 0;
  /// "dd/mm/yyyy".
  std::string day;
  int receipts = 0;
  std::int64_t total = 0;
  std::int64_t grandTotal = 0;
  bool operator==(const Closure&) const = default;
};

/// Throws std::runtime_error for a file that cannot be read, or a line that is none of the till's.
std::vector<Closure> readClosures(const std::filesystem::path& file);

}  // namespace expectations
