#pragma once

#include <filesystem>

#include "bench/bench.h"

/// A customer archive in the bench's folder, made from the template and filled straight through SQLite.
class CustomerArchive {
 public:
  /// To whom its invoices were issued.
  enum class Issued {
    ByTurns,     ///< to every customer
    ToTheFirst,  ///< all of them to customer 1
  };

  /// `customers` of them beside the anonymous one, codes from 1; moments of the invoices a quarter of an hour
  /// apart, behind `kFirstDay`. Closed at first.
  CustomerArchive(Bench& bench, int customers, int invoices, Issued issued);
  ~CustomerArchive();
  CustomerArchive(const CustomerArchive&) = delete;
  CustomerArchive& operator=(const CustomerArchive&) = delete;

  /// Puts the file back as it was filled; closed.
  void renew();
  /// Makes it the program's open archive.
  void reopen();
  void close();
  std::filesystem::path path() const;

  static constexpr const char* kFirstDay = "2024-01-01";

 private:
  Bench& bench_;
};
