#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// What the customers' screens must send, store, list and export, computed a second time with nothing of the
/// program's own code. Texts are UTF-8, amounts hundredths.
namespace expectations {

struct Customer {
  int code = 0;
  std::string name;
  std::string address;
  std::string town;
  std::string vat;
  std::string note;
  /// 1 for an ordinary one, 2 for one made up from an invoice.
  int state = 1;
  bool operator==(const Customer&) const = default;
};

struct Invoice {
  /// In the till's file, from 1.
  int place = 0;
  int type = 0;
  int customer = 0;
  std::string holder;
  /// "dd/mm/yyyy hh:mm:ss".
  std::string moment;
  std::int32_t total = 0;
  std::int32_t taxable = 0;
  std::int32_t tax = 0;
  std::int32_t unpaid = 0;
  bool operator==(const Invoice&) const = default;
};

/// Year and place: "2026/17".
std::string numberOf(const Invoice& invoice);

/// The till's 44250 bytes of customer places for these; the anonymous one has none.
std::string customersImage(const std::vector<Customer>& customers);
/// The used places of the till's 77000 bytes of invoices; throws std::runtime_error for another length.
std::vector<Invoice> readInvoices(const std::filesystem::path& file);

/// By code, with one made up for each code that only an invoice names.
std::vector<Customer> withMadeUp(std::vector<Customer> customers, const std::vector<Invoice>& invoices);

/// The rows of the invoice archive, cells joined with ";": by name and number, customers without an invoice
/// too, behind each customer the sums.
std::vector<std::string> invoiceRows(const std::vector<Customer>& customers,
                                     const std::vector<Invoice>& invoices, char decimal);
/// The exports of the registry and of the invoice archive: Windows-1252, CR LF, a blank behind the last ";".
std::string csvCustomers(const std::vector<Customer>& customers);
std::string csvInvoices(const std::vector<Customer>& customers, const std::vector<Invoice>& invoices,
                        char decimal);

}  // namespace expectations
