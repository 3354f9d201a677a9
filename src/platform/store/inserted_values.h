#pragma once

#include <cstddef>
#include <string_view>

namespace store {

/// Where the translator stands among the values of `INSERT INTO table VALUES (...)`, by what it has met. With
/// a list of columns in front, nothing is known of them.
class InsertedValues {
 public:
  void into(std::string_view table) { table_ = table; }
  void begin() { depth_ = table_.empty() ? kOutside : 0; }
  void sign(char symbol);
  void word() { starts_ = false; }

  std::string_view table() const { return table_; }
  /// Place of the value, from 0.
  std::size_t place() const { return place_; }
  /// Whether what comes next is the beginning of a value.
  bool startsValue() const { return depth_ == 1 && starts_; }

 private:
  static constexpr int kOutside = -1;

  std::string_view table_;
  int depth_ = kOutside;
  std::size_t place_ = 0;
  bool starts_ = false;
};

}  // namespace store
