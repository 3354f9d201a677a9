#include "demo/customer_expectations.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <tuple>

#include "demo/expectations.h"

namespace expectations {

namespace {

constexpr std::size_t kCustomers = 250;
constexpr std::size_t kCustomerBytes = 177;
constexpr std::size_t kInvoices = 1000;
constexpr std::size_t kInvoiceBytes = 77;
constexpr std::size_t kHolder = 41;

/// Latin letters alone: their number is their byte.
std::string latin(const std::string& utf8) {
  std::string bytes;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    if (c >= 0x80 && ((c != 0xC2 && c != 0xC3) || i + 1 == utf8.size()))
      throw std::runtime_error("no Latin letters: " + utf8);
    bytes += c < 0x80 ? utf8[i] : static_cast<char>((c << 6) | (utf8[++i] & 0x3F));
  }
  return bytes;
}

std::string utf8(const std::string& latin) {
  std::string text;
  for (const char letter : latin) {
    const auto c = static_cast<unsigned char>(letter);
    if (c < 0x80) {
      text += letter;
    } else {
      text += static_cast<char>(0xC0 | (c >> 6));
      text += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return text;
}

std::uint32_t number(const std::string& bytes, std::size_t start, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes.at(start + i));
  return value;
}

/// The till counts seconds in months of 32 days and years of 13 months.
std::string momentText(std::uint32_t value) {
  std::array<std::uint32_t, 5> parts{};
  constexpr std::array<std::uint32_t, 5> kUnits{60, 60, 24, 32, 13};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    parts[i] = value % kUnits[i];
    value /= kUnits[i];
  }
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%02u/%02u/%04u %02u:%02u:%02u", parts[3], parts[4], 2000 + value,
                parts[2], parts[1], parts[0]);
  return text.data();
}

std::string amount(std::int64_t cents, char decimal) {
  std::string digits = std::to_string(std::abs(cents));
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
  digits.insert(digits.size() - 2, 1, decimal);
  if (cents < 0) digits.insert(0, 1, '-');
  return digits;
}

std::string amounts(std::int64_t total, std::int64_t taxable, std::int64_t tax, std::int64_t unpaid,
                    char decimal) {
  std::string text;
  for (const std::int64_t one : {total, taxable, tax, unpaid}) text += amount(one, decimal) + ';';
  return text;
}

/// A row of the invoice archive before the sums come between.
struct Listed {
  const Customer* customer = nullptr;
  /// Null for a customer without one.
  const Invoice* invoice = nullptr;
  std::string order() const { return invoice == nullptr ? std::string() : numberOf(*invoice); }
};

std::vector<Listed> listed(const std::vector<Customer>& customers, const std::vector<Invoice>& invoices) {
  std::vector<Listed> rows;
  for (const Customer& customer : customers) {
    const std::size_t before = rows.size();
    for (const Invoice& invoice : invoices)
      if (invoice.customer == customer.code) rows.push_back({&customer, &invoice});
    if (rows.size() == before) rows.push_back({&customer, nullptr});
  }
  std::ranges::stable_sort(rows, [](const Listed& left, const Listed& right) {
    return std::tuple(left.customer->name, left.order()) < std::tuple(right.customer->name, right.order());
  });
  return rows;
}

/// Columns 1 to 9.
std::string cellsOf(const Listed& row, char decimal) {
  const std::string head = row.customer->name + ';' + row.customer->vat + ';';
  if (row.invoice == nullptr) return head + ";;;;;;";
  const Invoice& invoice = *row.invoice;
  return head + numberOf(invoice) + ';' + invoice.moment + ';' +
         amounts(invoice.total, invoice.taxable, invoice.tax, invoice.unpaid, decimal) + invoice.holder;
}

}  // namespace

std::string numberOf(const Invoice& invoice) {
  return invoice.moment.substr(6, 4) + '/' + std::to_string(invoice.place);
}

std::string customersImage(const std::vector<Customer>& customers) {
  std::string image(kCustomers * kCustomerBytes, '\0');
  for (const Customer& customer : customers) {
    if (customer.code < 1 || customer.code > static_cast<int>(kCustomers)) continue;
    const std::size_t start = static_cast<std::size_t>(customer.code - 1) * kCustomerBytes;
    image[start] = 1;
    for (const auto& [place, text] : {std::pair{1, &customer.name},
                                      {42, &customer.address},
                                      {83, &customer.town},
                                      {124, &customer.vat},
                                      {136, &customer.note}}) {
      const std::string bytes = latin(*text);
      image.replace(start + static_cast<std::size_t>(place), bytes.size(), bytes);
    }
  }
  return image;
}

std::vector<Invoice> readInvoices(const std::filesystem::path& file) {
  const std::string bytes = readFile(file);
  if (bytes.size() != kInvoices * kInvoiceBytes) throw std::runtime_error("no 1000 invoices");
  std::vector<Invoice> invoices;
  for (std::size_t i = 0; i < kInvoices; ++i) {
    const std::string record = bytes.substr(i * kInvoiceBytes, kInvoiceBytes);
    if (record[0] == '\0') continue;
    const std::string holder = record.substr(3, kHolder);
    invoices.push_back({static_cast<int>(i) + 1, static_cast<unsigned char>(record[0]),
                        static_cast<int>(number(record, 1, 2)), utf8(holder.substr(0, holder.find('\0'))),
                        momentText(number(record, 44, 4)), static_cast<std::int32_t>(number(record, 48, 4)),
                        static_cast<std::int32_t>(number(record, 52, 4)),
                        static_cast<std::int32_t>(number(record, 56, 4)),
                        static_cast<std::int32_t>(number(record, 60, 4))});
  }
  return invoices;
}

std::vector<Customer> withMadeUp(std::vector<Customer> customers, const std::vector<Invoice>& invoices) {
  for (const Invoice& invoice : invoices) {
    if (std::ranges::find(customers, invoice.customer, &Customer::code) != customers.end()) continue;
    Customer madeUp;
    madeUp.code = invoice.customer;
    madeUp.state = 2;
    customers.push_back(madeUp);
  }
  std::ranges::sort(customers, {}, &Customer::code);
  return customers;
}

std::vector<std::string> invoiceRows(const std::vector<Customer>& customers,
                                     const std::vector<Invoice>& invoices, char decimal) {
  std::vector<std::string> rows;
  const Customer* last = nullptr;
  std::array<std::int64_t, 4> sums{};
  const auto endCustomer = [&] {
    if (last != nullptr)
      rows.push_back(" ; ; ; ; ;" + amounts(sums[0], sums[1], sums[2], sums[3], decimal) + ' ');
    sums = {};
  };
  for (const Listed& row : listed(customers, invoices)) {
    if (row.customer != last) endCustomer();
    last = row.customer;
    rows.push_back(std::to_string(row.customer->code) + ';' + cellsOf(row, decimal));
    if (row.invoice == nullptr) continue;
    const Invoice& one = *row.invoice;
    std::size_t i = 0;
    for (const std::int64_t amount : {one.total, one.taxable, one.tax, one.unpaid}) sums[i++] += amount;
  }
  endCustomer();
  return rows;
}

std::string csvCustomers(const std::vector<Customer>& customers) {
  std::string text;
  for (const Customer& one : customers) {
    const char* const state = one.state == 0 ? "0" : one.state == 1 ? " " : "*";
    text += std::string(state) + ';' + one.name + ';' + one.address + ';' + one.town + ';' + one.vat + ';' +
            one.note + "; \r\n";
  }
  return latin(text);
}

std::string csvInvoices(const std::vector<Customer>& customers, const std::vector<Invoice>& invoices,
                        char decimal) {
  std::string text;
  for (const Listed& row : listed(customers, invoices)) text += cellsOf(row, decimal) + "; \r\n";
  return latin(text);
}

}  // namespace expectations
