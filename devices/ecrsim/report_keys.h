#pragma once

#include <string>
#include <vector>

#include "ecrsim/desk.h"

namespace ecrsim {

/// The functions behind the keys x and z: reports in reading and in zeroing.
class ReportKeys {
 public:
  explicit ReportKeys(Desk& desk) : desk_(desk) {}

  /// x1F to x4F.
  void reading(const std::string& number);
  /// z1F to z7F. Refuses before it prints or clears anything.
  void zeroing(const std::string& number);
  /// Closes the fiscal day into the fiscal memory.
  void fiscalClosure();

 private:
  void print(const char* title, const std::vector<std::string>& lines, Counters left);
  void zeroDepartments();
  void zeroVat();
  void checkFiscalMemory() const;

  Desk& desk_;
};

}  // namespace ecrsim
