#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ecrsim/memory.h"
#include "ecrsim/money.h"

namespace ecrsim {

inline constexpr int kDepartments = 80;
inline constexpr int kPlus = 5000;
inline constexpr int kVatRates = 8;
inline constexpr int kOperators = 10;

struct Department {
  std::string description;
  /// 0 to 7.
  int vat = 0;
  Cents price = 0;
  /// 0: no limit.
  Cents lowest = 0;
  Cents highest = 0;
};

struct Plu {
  std::string description;
  bool programmed = false;
  /// From 1; the till counts it from 0 in its record, so that up to 256 may come out.
  int department = 0;
  Cents price = 0;
  bool freePrice = false;
  bool zeroPrice = false;
};

/// What the till was programmed with, read from the files of its memory when first asked for. What is missing
/// or too short reads as zeros, as on a till that nobody has programmed.
class Programme {
 public:
  explicit Programme(const Memory& memory) : memory_(memory) {}

  /// Numbers from 1; the caller keeps them inside.
  Department department(int number);
  Plu plu(int number);
  /// Hundredths of a per cent, 0 for a rate that is none.
  std::int64_t vatRate(int index);
  bool operatorEnabled(int number);
  std::string operatorName(int number);
  /// The most that one line may come to; 0: no limit.
  Cents highestSale();
  std::vector<std::string> header();
  std::vector<std::string> courtesy();
  /// Articles of plu.bin.
  int articles();
  /// Reads everything anew.
  void forget() { files_.clear(); }

 private:
  const std::vector<std::uint8_t>& file(std::string_view name);
  std::vector<std::uint8_t> record(std::string_view name, std::size_t byte, std::size_t index);

  const Memory& memory_;
  std::map<std::string, std::vector<std::uint8_t>, std::less<>> files_;
};

}  // namespace ecrsim
