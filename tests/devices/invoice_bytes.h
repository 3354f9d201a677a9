#pragma once

#include <QByteArray>
#include <cstdint>
#include <vector>

/// A record of fatture.bin as a test reads it, by offsets of its own.
struct InvoiceRead {
  int place = 0;
  int type = 0;
  int customer = 0;
  QByteArray holder;
  std::uint32_t moment = 0;
  std::int32_t total = 0;
  std::int32_t taxable = 0;
  std::int32_t tax = 0;
  std::int32_t unpaid = 0;
  QByteArray reserved;
};

/// The records in use, with their places from 1. Fails the test for any other length than 77000.
std::vector<InvoiceRead> invoicesOf(const QByteArray& archive);

/// One record of clienti.bin.
struct CustomerWritten {
  int code = 0;
  int flag = 1;
  QByteArray name;
};
/// The 44250 bytes with these customers, all other records zero.
QByteArray customerTable(const std::vector<CustomerWritten>& customers);
