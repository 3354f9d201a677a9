#pragma once

#include <QByteArray>
#include <QProgressBar>
#include <QtEndian>
#include <cstdint>
#include <vector>

#include "controls/steady_progress.h"

// The till's two files as a test writes them, by offsets of its own.

/// One record of clienti.bin: the place is `code`, from 1.
struct CustomerPlace {
  int code = 1;
  int flag = 1;
  QByteArray name{};
  QByteArray address{};
  QByteArray town{};
  QByteArray vat{};
  QByteArray note{};
};

/// One record of fatture.bin; `place` from 1.
struct InvoicePlace {
  int place = 1;
  int type = 1;
  int customer = 0;
  QByteArray holder{};
  std::uint32_t moment = 0;
  std::int32_t total = 0;
  std::int32_t taxable = 0;
  std::int32_t tax = 0;
  std::int32_t unpaid = 0;
};

/// The till's number of a moment; `year` of two digits.
constexpr std::uint32_t tillMoment(std::uint32_t day, std::uint32_t month, std::uint32_t year,
                                   std::uint32_t hour = 0, std::uint32_t minute = 0,
                                   std::uint32_t second = 0) {
  return ((((year * 13 + month) * 32 + day) * 24 + hour) * 60 + minute) * 60 + second;
}

inline void lay(QByteArray& file, qsizetype at, const QByteArray& bytes) {
  file.replace(at, bytes.size(), bytes);
}

/// 44250 bytes, the places that are not named empty.
inline QByteArray customersFile(const std::vector<CustomerPlace>& places) {
  QByteArray file(44250, '\0');
  for (const CustomerPlace& one : places) {
    const qsizetype start = qsizetype{177} * (one.code - 1);
    file[start] = static_cast<char>(one.flag);
    lay(file, start + 1, one.name);
    lay(file, start + 42, one.address);
    lay(file, start + 83, one.town);
    lay(file, start + 124, one.vat);
    lay(file, start + 136, one.note);
  }
  return file;
}

/// 77000 bytes, the places that are not named empty.
inline QByteArray invoicesFile(const std::vector<InvoicePlace>& places) {
  QByteArray file(77000, '\0');
  for (const InvoicePlace& one : places) {
    const qsizetype start = qsizetype{77} * (one.place - 1);
    char* const bytes = file.data() + start;
    bytes[0] = static_cast<char>(one.type);
    qToLittleEndian(static_cast<std::uint16_t>(one.customer), bytes + 1);
    lay(file, start + 3, one.holder);
    qToLittleEndian(one.moment, bytes + 44);
    qToLittleEndian(one.total, bytes + 48);
    qToLittleEndian(one.taxable, bytes + 52);
    qToLittleEndian(one.tax, bytes + 56);
    qToLittleEndian(one.unpaid, bytes + 60);
  }
  return file;
}

/// A thousand invoices of different moments, to customers 1 to 250.
inline std::vector<InvoicePlace> thousandInvoices() {
  std::vector<InvoicePlace> all;
  for (int i = 0; i < 1000; ++i)
    all.push_back({.place = i + 1,
                   .customer = 1 + i % 250,
                   .holder = "CLIENTE " + QByteArray::number(1 + i % 250),
                   .moment = tillMoment(5, 6, 24, 8, 0, 0) + static_cast<std::uint32_t>(i),
                   .total = 122 * i,
                   .taxable = 100 * i,
                   .tax = 22 * i});
  return all;
}

/// A progress bar that nobody sees, for procedures that move one.
struct UnseenProgress {
  QProgressBar bar;
  SteadyProgress progress{bar};
};
