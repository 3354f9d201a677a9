#pragma once

#include <filesystem>
#include <vector>

#include "demo/customer_expectations.h"

/// What stands in a customer archive, read past the program through a connection of its own.
struct RereadCustomers {
  /// By code, the anonymous one too.
  std::vector<expectations::Customer> customers;
  /// By their place in the till's file.
  std::vector<expectations::Invoice> invoices;
  bool operator==(const RereadCustomers&) const = default;
};

/// Throws std::runtime_error if the file cannot be read.
RereadCustomers rereadCustomers(const std::filesystem::path& file);
